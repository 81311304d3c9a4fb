// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Files.h"

#include "platform/Failure.h"
#include "platform/Paths.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
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

// An errno on its way to the one place that knows the path and the verb.
struct SystemError {
    int number;
};

[[noreturn]] void ThrowErrno() {
    throw SystemError{errno};
}

// Our own numbers beside those of errno.
constexpr int kNotRegular = -1;
constexpr int kTooLarge = -2;

struct ErrorRow {
    int number;
    FailureCode code;
    const char16_t* text;
};

constexpr std::array kErrors = {
    ErrorRow{kNotRegular, FailureCode::PathFileAccess, u"no es un archivo normal"},
    ErrorRow{kTooLarge, FailureCode::PathFileAccess, u"es demasiado grande (más de 1 GiB)"},
    ErrorRow{ENOENT, FailureCode::FileNotFound, u"no existe"},
    ErrorRow{ENOTDIR, FailureCode::PathNotFound, u"la carpeta no existe"},
    ErrorRow{EISDIR, FailureCode::PathFileAccess, u"es una carpeta"},
    ErrorRow{EACCES, FailureCode::PermissionDenied, u"no tienes permiso"},
    ErrorRow{EPERM, FailureCode::PermissionDenied, u"la operación no está permitida"},
    ErrorRow{EROFS, FailureCode::PermissionDenied, u"el disco es de solo lectura"},
    ErrorRow{ENOSPC, FailureCode::DiskFull, u"el disco está lleno"},
    ErrorRow{EDQUOT, FailureCode::DiskFull, u"se ha agotado tu cuota de disco"},
    ErrorRow{EFBIG, FailureCode::DiskFull, u"el archivo sería demasiado grande"},
    ErrorRow{ENAMETOOLONG, FailureCode::PathFileAccess, u"el nombre es demasiado largo"},
    ErrorRow{ELOOP, FailureCode::PathFileAccess, u"hay un ciclo de enlaces"},
    ErrorRow{EIO, FailureCode::PathFileAccess, u"el disco no responde bien"},
    ErrorRow{EMFILE, FailureCode::PathFileAccess, u"hay demasiados archivos abiertos"},
    ErrorRow{ETXTBSY, FailureCode::PathFileAccess, u"el archivo está en uso"},
};

const ErrorRow* FindError(int number) {
    const auto* row = std::find_if(kErrors.begin(), kErrors.end(),
                                   [=](const ErrorRow& r) { return r.number == number; });
    return row == kErrors.end() ? nullptr : row;
}

Failure FileFailure(QStringView verb, const QString& path, SystemError error) {
    const ErrorRow* row = FindError(error.number);
    return {row ? row->code : FailureCode::PathFileAccess, QStringLiteral("Archivos"),
            FileFailureText(verb, path, ErrorText(error.number))};
}

class FileHandle {
public:
    FileHandle(const fs::path& path, int flags, mode_t mode = 0)
        : m_fd(::open(path.c_str(), flags | O_CLOEXEC, mode)) {
        if (m_fd < 0)
            ThrowErrno();
    }
    ~FileHandle() { ::close(m_fd); }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    int Descriptor() const { return m_fd; }

    struct stat Status() const {
        struct stat status = {};
        if (::fstat(m_fd, &status) != 0)
            ThrowErrno();
        return status;
    }

    void WriteAll(const QByteArray& bytes) const {
        for (qsizetype done = 0; done < bytes.size();) {
            const ssize_t count =
                ::pwrite(m_fd, bytes.data() + done, static_cast<size_t>(bytes.size() - done), done);
            if (count < 0 && errno != EINTR)
                ThrowErrno();
            done += std::max<ssize_t>(count, 0);
        }
    }

    QByteArray ReadAll() const {
        QByteArray bytes(std::min<qint64>(Status().st_size, kLargestFile) + 1, Qt::Uninitialized);
        qsizetype done = 0;
        for (;;) {
            const ssize_t count =
                ::pread(m_fd, bytes.data() + done, static_cast<size_t>(bytes.size() - done), done);
            if (count < 0 && errno != EINTR)
                ThrowErrno();
            done += std::max<ssize_t>(count, 0);
            if (count == 0)
                break;
            if (done > kLargestFile)
                throw SystemError{kTooLarge};
            if (done == bytes.size())
                bytes.resize(bytes.size() * 2); // it grows while it is being read
        }
        bytes.resize(done);
        return bytes;
    }

    void Sync() const {
        if (::fsync(m_fd) != 0 && errno != EINVAL)
            ThrowErrno();
    }

private:
    int m_fd;
};

void SyncFolder(const fs::path& folder) {
    try {
        FileHandle(folder, O_RDONLY | O_DIRECTORY).Sync();
    } catch (const SystemError&) {
        // Some file systems can't sync a folder; the file itself is safe.
    }
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
            handle.WriteAll(bytes);
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
    handle.WriteAll(bytes);
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
        // A file that isn't there yet is no failure, so it is its folder that is missing.
        const SystemError told{error.number == ENOENT ? ENOTDIR : error.number};
        throw FileFailure(u"guardar", path, told);
    }
}

} // namespace

QString ErrorText(int error) {
    const ErrorRow* row = FindError(error);
    return row ? QString::fromUtf16(row->text)
               : QStringLiteral("error %1 del sistema (%2)")
                     .arg(error)
                     .arg(QString::fromLocal8Bit(std::strerror(error)));
}

QString FileFailureText(QStringView verb, const QString& path, const QString& reason) {
    return QStringLiteral("No se puede %1 el archivo \"%2\": %3.")
        .arg(verb, DisplayText(path), reason);
}

QByteArray ReadFile(const QString& path) {
    try {
        // Without O_NONBLOCK the opening of a pipe would wait for a writer.
        const FileHandle handle(ToNative(path), O_RDONLY | O_NONBLOCK);
        const struct stat status = handle.Status();
        if (S_ISDIR(status.st_mode))
            throw SystemError{EISDIR};
        if (!S_ISREG(status.st_mode))
            throw SystemError{kNotRegular};
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
