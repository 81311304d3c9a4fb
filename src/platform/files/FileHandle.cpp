// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/FileHandle.h"

#include "platform/files/FileErrors.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace platform {

FileHandle::FileHandle(const std::filesystem::path& path, int flags, mode_t mode)
    : m_fd(::open(path.c_str(), flags | O_CLOEXEC, mode)) {
    if (m_fd < 0)
        ThrowErrno();
}

FileHandle::~FileHandle() {
    ::close(m_fd);
}

struct stat FileHandle::Status() const {
    struct stat status = {};
    if (::fstat(m_fd, &status) != 0)
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
        const ssize_t count =
            ::pread(m_fd, buffer.data() + done, static_cast<size_t>(size - done), offset + done);
        if (count < 0 && errno != EINTR)
            ThrowErrno();
        if (count == 0)
            break;
        done += std::max<ssize_t>(count, 0);
    }
    return done;
}

void FileHandle::Write(QByteArrayView bytes, qint64 offset) const {
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = ::pwrite(m_fd, bytes.data() + done,
                                       static_cast<size_t>(bytes.size() - done), offset + done);
        if (count < 0 && errno != EINTR)
            ThrowErrno();
        done += std::max<ssize_t>(count, 0);
    }
}

void FileHandle::Sync() const {
    if (::fsync(m_fd) != 0 && errno != EINVAL)
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
