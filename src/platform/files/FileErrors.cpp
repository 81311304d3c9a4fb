// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/FileErrors.h"

#include "platform/text/NativeNames.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace platform {
namespace {

struct ErrorRow {
    int number;
    FailureCode code;
    const char16_t* text;
};

constexpr std::array kErrors = {
    ErrorRow{kNotRegular, FailureCode::PathFileAccess, u"no es un archivo normal"},
    ErrorRow{kTooLarge, FailureCode::PathFileAccess, u"es demasiado grande (más de 1 GiB)"},
    ErrorRow{kNoParent, FailureCode::PathNotFound, u"falta la carpeta de encima"},
    ErrorRow{ENOENT, FailureCode::FileNotFound, u"no existe"},
    ErrorRow{ENOTDIR, FailureCode::PathNotFound, u"la carpeta no existe"},
    ErrorRow{EEXIST, FailureCode::PathFileAccess, u"ya existe"},
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

QString FailureText(QStringView verb, QStringView object, const QString& path,
                    const QString& reason) {
    return QStringLiteral("No se puede %1 %2 \"%3\": %4.")
        .arg(verb, object, DisplayText(path), reason);
}

Failure FailureOf(QStringView verb, QStringView object, const QString& path, SystemError error) {
    const ErrorRow* row = FindError(error.number);
    return {row ? row->code : FailureCode::PathFileAccess, QStringLiteral("Archivos"),
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
    const ErrorRow* row = FindError(error);
    return row ? QString::fromUtf16(row->text)
               : QStringLiteral("error %1 del sistema (%2)")
                     .arg(error)
                     .arg(QString::fromLocal8Bit(std::strerror(error)));
}

QString FileFailureText(QStringView verb, const QString& path, const QString& reason) {
    return FailureText(verb, u"el archivo", path, reason);
}

} // namespace platform
