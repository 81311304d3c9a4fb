// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/FileErrors.h"

#include "core/ErrorText.h"
#include "platform/text/NativeNames.h"

#include <array>
#include <cerrno>
#include <cstring>

namespace platform {
namespace {

constexpr std::array kOwnErrors = {
    core::ErrorText{kNotRegular, "no es un archivo normal"},
    core::ErrorText{kTooLarge, "es demasiado grande (más de 1 GiB)"},
    core::ErrorText{kNoParent, "falta la carpeta de encima"},
};

FailureCode CodeOf(int number) {
    switch (number) {
    case ENOENT:
        return FailureCode::FileNotFound;
    case ENOTDIR:
    case kNoParent:
        return FailureCode::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
        return FailureCode::PermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return FailureCode::DiskFull;
    default:
        return FailureCode::PathFileAccess;
    }
}

QString FailureText(QStringView verb, QStringView object, const QString& path,
                    const QString& reason) {
    return QStringLiteral("No se puede %1 %2 \"%3\": %4.")
        .arg(verb, object, DisplayText(path), reason);
}

Failure FailureOf(QStringView verb, QStringView object, const QString& path, SystemError error) {
    return {CodeOf(error.number), QStringLiteral("Archivos"),
            FailureText(verb, object, path, ErrorText(error.number))};
}

} // namespace

void ThrowErrno() {
    throw SystemError{errno};
}

Failure FileFailure(QStringView verb, const QString& path, SystemError error) {
    return FailureOf(verb, u"el archivo", path, error);
}

Failure SaveFailure(const QString& path, SystemError error) {
    return FileFailure(u"guardar", path, {error.number == ENOENT ? ENOTDIR : error.number});
}

Failure FolderFailure(QStringView verb, const QString& path, SystemError error) {
    return FailureOf(verb, u"la carpeta", path, error);
}

QString ErrorText(int error) {
    const char* const text = core::TextOfError(kOwnErrors, error);
    return text ? QString::fromUtf8(text)
                : QStringLiteral("error %1 del sistema (%2)")
                      .arg(error)
                      .arg(QString::fromLocal8Bit(std::strerror(error)));
}

QString FileFailureText(QStringView verb, const QString& path, const QString& reason) {
    return FailureText(verb, u"el archivo", path, reason);
}

} // namespace platform
