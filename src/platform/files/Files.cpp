// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/Files.h"

#include "platform/files/FileErrors.h"
#include "platform/files/FileHandle.h"
#include "platform/files/Paths.h"
#include "platform/files/Replacement.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace platform {
namespace {

namespace fs = std::filesystem;

constexpr int kLargestLinkDepth = 40;

// The file that a chain of symbolic links leads to; it need not exist.
fs::path EndOfLinks(fs::path path) {
    std::error_code error;
    for (int depth = 0; fs::is_symlink(fs::symlink_status(path, error)); ++depth) {
        if (depth == kLargestLinkDepth)
            throw SystemError{ELOOP};
        path = path.parent_path() / fs::read_symlink(path, error);
    }
    return path;
}

std::optional<struct stat> WritableTarget(const fs::path& target) {
    struct stat status = {};
    if (::stat(target.c_str(), &status) != 0) {
        if (errno == ENOENT)
            return std::nullopt;
        ThrowErrno();
    }
    if (S_ISDIR(status.st_mode))
        throw SystemError{EISDIR};
    if (!S_ISREG(status.st_mode))
        throw SystemError{kNotRegular};
    if (::access(target.c_str(), W_OK) != 0)
        ThrowErrno();
    return status;
}

bool ReplacementWouldLose(const fs::path& target, const struct stat& status) {
    const bool foreign = status.st_uid != ::geteuid() && ::geteuid() != 0;
    const bool listed = ::getxattr(target.c_str(), "system.posix_acl_access", nullptr, 0) > 0;
    return status.st_nlink > 1 || foreign || listed;
}

// Allocates the space before the first old byte is overwritten, so that a full disk loses nothing.
void Reserve(const FileHandle& handle, qsizetype oldSize, qsizetype newSize) {
    if (newSize <= oldSize)
        return;
    const int error = ::posix_fallocate(handle.Descriptor(), oldSize, newSize - oldSize);
    if (error != 0 && error != EOPNOTSUPP && error != EINVAL)
        throw SystemError{error};
}

void Rewrite(const FileHandle& handle, const QByteArray& bytes) {
    handle.Write(bytes, 0);
    if (::ftruncate(handle.Descriptor(), bytes.size()) != 0)
        ThrowErrno();
    handle.Sync();
}

void WriteInPlace(const fs::path& target, const QByteArray& bytes) {
    const FileHandle handle(target, O_RDWR);
    const QByteArray old = handle.ReadAll();
    try {
        Reserve(handle, old.size(), bytes.size());
        Rewrite(handle, bytes);
    } catch (const SystemError&) {
        Rewrite(handle, old);
        throw;
    }
}

bool FolderRefuses(SystemError error) {
    constexpr std::array kRefusals = {EACCES, EPERM, EROFS, ENOSYS, EOPNOTSUPP};
    return std::find(kRefusals.begin(), kRefusals.end(), error.number) != kRefusals.end();
}

void ReplaceBy(const fs::path& target, const QByteArray& bytes, mode_t mode) {
    Replacement fresh(target, mode);
    fresh.Write(bytes, 0);
    fresh.TakePlace();
}

void WriteOver(const fs::path& target, const QByteArray& bytes, const struct stat& old) {
    Replacement fresh(target, 0600);
    const bool inPlace = ReplacementWouldLose(target, old);
    if (!inPlace)
        fresh.Resemble(old);
    fresh.Write(bytes, 0);
    if (!inPlace)
        return fresh.TakePlace();
    fresh.Sync(); // a whole copy stays beside it while it is rewritten
    WriteInPlace(target, bytes);
}

void WriteNative(const fs::path& path, const QByteArray& bytes) {
    const fs::path target = EndOfLinks(path);
    const auto status = WritableTarget(target);
    if (!status)
        return ReplaceBy(target, bytes, 0666);
    try {
        WriteOver(target, bytes, *status);
    } catch (const SystemError& error) {
        if (!FolderRefuses(error))
            throw;
        WriteInPlace(target, bytes);
    }
}

// The permissions of a file that replaces the one at the path.
mode_t ModeInPlaceOf(const fs::path& path) {
    struct stat status = {};
    if (::lstat(path.c_str(), &status) != 0 || S_ISLNK(status.st_mode))
        return 0666;
    if (!S_ISREG(status.st_mode))
        throw SystemError{S_ISDIR(status.st_mode) ? EISDIR : kNotRegular};
    return (status.st_mode & 0777U) | S_IWUSR;
}

void ReplaceNative(const fs::path& path, const QByteArray& bytes) {
    try {
        ReplaceBy(path, bytes, ModeInPlaceOf(path));
    } catch (const SystemError& error) {
        if (!FolderRefuses(error))
            throw;
        WriteNative(path, bytes);
    }
}

void Save(const QString& path, const QByteArray& bytes,
          void (*write)(const fs::path&, const QByteArray&)) {
    try {
        write(ToNative(path, LastName::AsWritten), bytes);
    } catch (const SystemError& error) {
        throw SaveFailure(path, error);
    }
}

} // namespace

QByteArray ReadFileHead(const QString& path, qint64 count) {
    try {
        const FileHandle handle(ToNative(path), O_RDONLY | O_NONBLOCK);
        handle.RequireRegular();
        QByteArray bytes(count, Qt::Uninitialized);
        bytes.resize(handle.Read({bytes.data(), static_cast<size_t>(count)}, 0));
        return bytes;
    } catch (const SystemError& error) {
        throw FileFailure(u"abrir", path, error);
    }
}

QByteArray ReadFile(const QString& path) {
    try {
        // Without O_NONBLOCK, opening a pipe would wait for a writer.
        const FileHandle handle(ToNative(path), O_RDONLY | O_NONBLOCK);
        handle.RequireRegular();
        return handle.ReadAll();
    } catch (const SystemError& error) {
        throw FileFailure(u"abrir", path, error);
    }
}

void WriteFile(const QString& path, const QByteArray& bytes) {
    Save(path, bytes, WriteNative);
}

void ReplaceFile(const QString& path, const QByteArray& bytes) {
    Save(path, bytes, ReplaceNative);
}

} // namespace platform
