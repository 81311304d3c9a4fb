// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/Replacement.h"

#include "platform/files/FileErrors.h"

#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace platform {
namespace {

namespace fs = std::filesystem;

// The name of a replacement is .quillmark-PID-N.tmp, PID being the process that writes it.
constexpr std::string_view kPrefix = ".quillmark-";
constexpr std::string_view kSuffix = ".tmp";

std::optional<pid_t> WriterOf(std::string_view name) {
    if (!name.starts_with(kPrefix) || !name.ends_with(kSuffix))
        return std::nullopt;
    name.remove_prefix(kPrefix.size());
    pid_t writer = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), writer);
    const bool whole = error == std::errc() && *end == '-' && writer > 0;
    return whole ? std::optional(writer) : std::nullopt;
}

bool Lives(pid_t process) {
    return ::kill(process, 0) == 0 || errno != ESRCH;
}

void RemoveLeftovers(const fs::path& folder) {
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        const auto writer = WriterOf(it->path().filename().native());
        if (writer && !Lives(*writer))
            ::unlink(it->path().c_str());
    }
}

fs::path FreeName(const fs::path& target) {
    const fs::path folder = target.parent_path();
    for (int i = 0;; ++i) {
        fs::path name = folder / (std::string(kPrefix) + std::to_string(::getpid()) + "-" +
                                  std::to_string(i) + std::string(kSuffix));
        std::error_code error;
        if (!fs::exists(fs::symlink_status(name, error)))
            return name;
    }
}

} // namespace

Replacement::Replacement(const fs::path& target, mode_t mode)
    : m_target(target),
      m_path(FreeName(target)),
      m_handle(m_path, O_WRONLY | O_CREAT | O_EXCL, mode) {
    RemoveLeftovers(target.parent_path());
}

Replacement::~Replacement() {
    if (!m_whole)
        ::unlink(m_path.c_str());
}

void Replacement::Resemble(const struct stat& other) const {
    if (::fchown(m_handle.Descriptor(), other.st_uid, other.st_gid) != 0 ||
        ::fchmod(m_handle.Descriptor(), other.st_mode & 07777U) != 0)
        ThrowErrno();
}

void Replacement::Write(QByteArrayView bytes, qint64 offset) {
    m_synced = false;
    m_handle.Write(bytes, offset);
    ::sync_file_range(m_handle.Descriptor(), offset, bytes.size(), SYNC_FILE_RANGE_WRITE);
}

void Replacement::Sync() {
    if (!std::exchange(m_synced, true))
        m_handle.Sync();
}

void Replacement::TakePlace() {
    Sync();
    if (::rename(m_path.c_str(), m_target.c_str()) != 0)
        ThrowErrno();
    m_whole = true;
    SyncFolder(m_target.parent_path());
}

} // namespace platform
