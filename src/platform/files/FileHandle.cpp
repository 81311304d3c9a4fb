// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/FileHandle.h"

#include "platform/files/FileErrors.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace platform {
namespace {

constexpr qint64 kLargestFile = qint64{1} << 30;

} // namespace

FileHandle::FileHandle(const std::filesystem::path& path, int flags, mode_t mode)
    : m_descriptor(::open(path.c_str(), flags | O_CLOEXEC, mode)) {
    if (!m_descriptor)
        ThrowErrno();
}

struct stat FileHandle::Status() const {
    struct stat status = {};
    if (::fstat(Descriptor(), &status) != 0)
        ThrowErrno();
    return status;
}

void FileHandle::RequireRegular() const {
    const mode_t mode = Status().st_mode;
    if (!S_ISREG(mode))
        throw SystemError{S_ISDIR(mode) ? EISDIR : kNotRegular};
}

qsizetype FileHandle::Read(std::span<char> buffer, qint64 offset) const {
    const auto size = static_cast<qsizetype>(buffer.size());
    qsizetype done = 0;
    while (done < size) {
        const ssize_t count = ::pread(Descriptor(), buffer.data() + done,
                                      static_cast<size_t>(size - done), offset + done);
        if (count < 0 && errno != EINTR)
            ThrowErrno();
        if (count == 0)
            break;
        done += std::max<ssize_t>(count, 0);
    }
    return done;
}

QByteArray FileHandle::ReadAll() const {
    QByteArray bytes;
    qsizetype done = 0;
    qint64 room = Status().st_size + 1;
    if (room > kLargestFile + 1)
        throw SystemError{kTooLarge};
    do { // more than once if it grows while it is being read
        bytes.resize(std::min(room, kLargestFile + 1));
        done += Read({bytes.data() + done, static_cast<size_t>(bytes.size() - done)}, done);
        if (done > kLargestFile)
            throw SystemError{kTooLarge};
        room *= 2;
    } while (done == bytes.size());
    bytes.resize(done);
    return bytes;
}

void FileHandle::Write(QByteArrayView bytes, qint64 offset) const {
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = ::pwrite(Descriptor(), bytes.data() + done,
                                       static_cast<size_t>(bytes.size() - done), offset + done);
        if (count < 0 && errno != EINTR)
            ThrowErrno();
        done += std::max<ssize_t>(count, 0);
    }
}

void FileHandle::Sync() const {
    if (::fsync(Descriptor()) != 0 && errno != EINVAL)
        ThrowErrno();
}

void SyncFolder(const std::filesystem::path& folder) {
    constexpr std::array kCannot = {EINVAL, ENOSYS, EOPNOTSUPP, EACCES};
    try {
        FileHandle(folder, O_RDONLY | O_DIRECTORY).Sync();
    } catch (const SystemError& error) {
        if (std::find(kCannot.begin(), kCannot.end(), error.number) == kCannot.end())
            throw;
    }
}

} // namespace platform
