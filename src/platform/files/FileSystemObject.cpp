// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/FileSystemObject.h"

#include "platform/base/Failure.h"
#include "platform/files/FileErrors.h"
#include "platform/files/FileHandle.h"
#include "platform/files/Paths.h"

#include <cerrno>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace fs = std::filesystem;

namespace {

// Makes all folders below writable too: else they can't be emptied. Links are left alone.
void MakeWritable(const fs::path& folder) {
    std::error_code error;
    fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, error);
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        std::error_code unknown;
        if (fs::is_directory(it->symlink_status(unknown)))
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

QString FileSystemObject::BuildPath(const QString& folder, const QString& name) const {
    qsizetype end = folder.size();
    while (end > 0 && (folder.at(end - 1) == u'\\' || folder.at(end - 1) == u'/'))
        --end;
    return folder.first(end) + u'\\' + name;
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
    std::error_code error;
    if (force && !fs::is_symlink(native, error))
        MakeWritable(native);
    fs::remove_all(native, error);
    try {
        if (error)
            throw SystemError{error.value()};
        SyncFolder(native.parent_path());
    } catch (const SystemError& failure) {
        throw FolderFailure(u"borrar", path, failure);
    }
}

void FileSystemObject::CreateFolder(const QString& path) const {
    const fs::path native = ToNative(path, LastName::AsWritten);
    try {
        if (::mkdir(native.c_str(), 0777) != 0)
            ThrowErrno();
        SyncFolder(native.parent_path());
    } catch (const SystemError& error) {
        throw FolderFailure(u"crear", path, {error.number == ENOENT ? kNoParent : error.number});
    }
}

} // namespace platform
