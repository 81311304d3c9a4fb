// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileSystemObject.h"

#include "platform/FileErrors.h"
#include "platform/Paths.h"

#include <cerrno>
#include <filesystem>
#include <unistd.h>

namespace platform {

namespace fs = std::filesystem;

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

} // namespace platform
