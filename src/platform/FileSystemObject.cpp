// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileSystemObject.h"

#include "platform/FileErrors.h"
#include "platform/FileHandle.h"
#include "platform/Paths.h"

#include <cerrno>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace fs = std::filesystem;

namespace {

// A folder without permissions can't be emptied. Links are left alone.
void MakeWritable(const fs::path& folder) {
    std::error_code error;
    fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, error);
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        if (fs::is_directory(it->symlink_status()))
            MakeWritable(it->path());
    }
}

} // namespace

bool FileSystemObject::FileExists(const QString& path) const {
    try {
        std::error_code error;
        const fs::file_status status = fs::status(ToNative(path, LastName::AsWritten), error);
        return fs::exists(status) && !fs::is_directory(status);
    } catch (const Failure&) {
        return false;
    }
}

void FileSystemObject::DeleteFile(const QString& path, bool force) const {
    const fs::path native = ToNative(path, LastName::AsWritten);
    const bool refused = !force && ::access(native.c_str(), W_OK) != 0;
    if (refused || ::unlink(native.c_str()) != 0)
        throw Failure(errno == ENOENT ? FailureCode::FileNotFound : FailureCode::PermissionDenied,
                      QStringLiteral("Archivos"),
                      FileFailureText(u"borrar", path, ErrorText(errno)));
}

bool FileSystemObject::FolderExists(const QString& path) const {
    try {
        std::error_code error;
        return fs::is_directory(ToNative(path, LastName::AsWritten), error);
    } catch (const Failure&) {
        return false;
    }
}

void FileSystemObject::DeleteFolder(const QString& path, bool force) const {
    const fs::path native = ToNative(path, LastName::AsWritten);
    if (force && !fs::is_symlink(native))
        MakeWritable(native);
    std::error_code error;
    fs::remove_all(native, error);
    if (error)
        throw FileFailure(u"borrar", path, SystemError{error.value()});
    SyncFolder(native.parent_path());
}

void FileSystemObject::CreateFolder(const QString& path) const {
    const fs::path native = ToNative(path, LastName::AsWritten);
    if (::mkdir(native.c_str(), 0777) != 0) {
        const int error = errno == ENOENT ? ENOTDIR : errno; // the folder above is missing
        throw FileFailure(u"crear", path, SystemError{error});
    }
    SyncFolder(native.parent_path());
}

} // namespace platform
