// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/Files.h"

#include "platform/files/FileErrors.h"
#include "platform/files/FileHandle.h"
#include "platform/files/Paths.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>

namespace platform {
namespace {

namespace fs = std::filesystem;

constexpr qint64 kLargestFile = qint64{1} << 30;
constexpr int kLargestLinkDepth = 40;

QByteArray ReadAll(const FileHandle& handle) {
    QByteArray bytes;
    qsizetype done = 0;
    qint64 room = handle.Status().st_size + 1;
    if (room > kLargestFile + 1)
        throw SystemError{kTooLarge};
    do { // more than once if it grows while it is being read
        bytes.resize(std::min(room, kLargestFile + 1));
        done += handle.Read({bytes.data() + done, static_cast<size_t>(bytes.size() - done)}, done);
        if (done > kLargestFile)
            throw SystemError{kTooLarge};
        room *= 2;
    } while (done == bytes.size());
    bytes.resize(done);
    return bytes;
}

// A second file beside the target, gone again unless it takes the target's place.
class FileBeside {
public:
    // Owner and permissions are those of `like`, or the mode less the umask without one.
    FileBeside(const fs::path& target, const QByteArray& bytes, const struct stat* like,
               mode_t mode = 0600)
        : m_path(FreeName(target)) {
        FileHandle handle(m_path, O_WRONLY | O_CREAT | O_EXCL, mode);
        m_exists = true;
        try {
            if (like && (::fchown(handle.Descriptor(), like->st_uid, like->st_gid) != 0 ||
                         ::fchmod(handle.Descriptor(), like->st_mode & 07777U) != 0))
                ThrowErrno();
            handle.Write(bytes, 0);
            handle.Sync();
        } catch (...) {
            Remove();
            throw;
        }
    }
    ~FileBeside() { Remove(); }
    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;

    void TakePlaceOf(const fs::path& target) {
        if (::rename(m_path.c_str(), target.c_str()) != 0)
            ThrowErrno();
        m_exists = false;
        SyncFolder(target.parent_path());
    }

private:
    static fs::path FreeName(const fs::path& target) {
        for (int i = 0;; ++i) {
            fs::path name = target.parent_path() / (".quillmark-" + std::to_string(::getpid()) +
                                                    "-" + std::to_string(i) + ".tmp");
            std::error_code error;
            if (!fs::exists(fs::symlink_status(name, error)))
                return name;
        }
    }
    void Remove() {
        if (std::exchange(m_exists, false))
            ::unlink(m_path.c_str());
    }

    fs::path m_path;
    bool m_exists = false;
};

// Where the bytes belong: the end of a chain of symbolic links, which need not exist.
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

// Space is taken before the first old byte is overwritten, so a full disk shows early.
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
    const QByteArray old = ReadAll(handle);
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

void WriteNative(const fs::path& path, const QByteArray& bytes) {
    const fs::path target = EndOfLinks(path);
    const auto status = WritableTarget(target);
    if (!status) {
        FileBeside(target, bytes, nullptr, 0666).TakePlaceOf(target);
        return;
    }
    try {
        const bool inPlace = ReplacementWouldLose(target, *status);
        FileBeside beside(target, bytes, inPlace ? nullptr : &*status);
        if (inPlace)
            WriteInPlace(target, bytes); // the whole text stands beside it meanwhile
        else
            beside.TakePlaceOf(target);
    } catch (const SystemError& error) {
        if (!FolderRefuses(error))
            throw;
        WriteInPlace(target, bytes);
    }
}

// The permissions of a new file in the place of the one that is there.
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
        FileBeside(path, bytes, nullptr, ModeInPlaceOf(path)).TakePlaceOf(path);
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
        // Without O_NONBLOCK the opening of a pipe would wait for a writer.
        const FileHandle handle(ToNative(path), O_RDONLY | O_NONBLOCK);
        handle.RequireRegular();
        return ReadAll(handle);
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
