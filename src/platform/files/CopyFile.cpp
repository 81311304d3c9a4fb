// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/CopyFile.h"

#include "platform/files/FileErrors.h"
#include "platform/files/FileHandle.h"
#include "platform/files/Paths.h"
#include "platform/files/Replacement.h"

#include <QCoreApplication>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <future>
#include <optional>
#include <span>
#include <vector>

namespace platform {
namespace {

namespace fs = std::filesystem;

constexpr size_t kStep = 1 << 20; // bytes
constexpr std::chrono::milliseconds kPatience(10);

// Runs the work, which may wait for the disk, on a thread of its own and handles events meanwhile.
template<class Work>
auto Beside(Work work) {
    auto result = std::async(std::launch::async, std::move(work));
    do {
        QCoreApplication::processEvents();
    } while (result.wait_for(kPatience) != std::future_status::ready);
    return result.get();
}

// The file that is copied. Its failures carry its path: any other SystemError is the target's.
class Source {
    template<class Work>
    auto Telling(Work work) const {
        try {
            return work();
        } catch (const SystemError& error) {
            throw FileFailure(u"copiar", m_path, error);
        }
    }

public:
    explicit Source(const QString& path) : m_path(path) {
        Telling([this] {
            m_handle.emplace(ToNative(m_path), O_RDONLY | O_NONBLOCK);
            m_handle->RequireRegular();
        });
    }
    qint64 Size() const {
        return Telling([this] { return m_handle->Status().st_size; });
    }
    qsizetype Read(std::span<char> buffer, qint64 offset) const {
        return Telling([&] { return m_handle->Read(buffer, offset); });
    }

private:
    QString m_path;
    std::optional<FileHandle> m_handle;
};

bool CopyNative(const Source& source, const fs::path& target, const CopyProgressRoutine& progress,
                const int& cancel) {
    const qint64 total = source.Size();
    Replacement fresh(target);
    std::vector<char> buffer(kStep);
    qint64 copied = 0;
    qsizetype step = 0;
    do {
        step = Beside([&] {
            const qsizetype count = source.Read(buffer, copied);
            fresh.Write(QByteArrayView(buffer.data(), count), copied);
            return count;
        });
        copied += step;
        if (step > 0 || copied == 0)
            progress(total, copied);
        if (cancel != 0)
            return false;
    } while (step == static_cast<qsizetype>(kStep));
    Beside([&] { fresh.Sync(); });
    if (cancel != 0)
        return false;
    Beside([&] { fresh.TakePlace(); });
    return true;
}

} // namespace

bool CopyFileExA(const QString& source, const QString& target, const CopyProgressRoutine& progress,
                 const int& cancel) {
    if (cancel != 0)
        return false;
    const Source file(source);
    try {
        return CopyNative(file, ToNative(target, LastName::AsWritten), progress, cancel);
    } catch (const SystemError& error) {
        throw SaveFailure(target, error);
    }
}

} // namespace platform
