// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ErrorText.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace core {
namespace {

constexpr std::array kTexts = {
    ErrorText{ENOENT, "no existe"},
    ErrorText{ENOTDIR, "la carpeta no existe"},
    ErrorText{EEXIST, "ya existe"},
    ErrorText{EISDIR, "es una carpeta"},
    ErrorText{ENOTEMPTY, "la carpeta no está vacía"},
    ErrorText{EACCES, "no tienes permiso"},
    ErrorText{EPERM, "la operación no está permitida"},
    ErrorText{EROFS, "el disco es de solo lectura"},
    ErrorText{ENOSPC, "el disco está lleno"},
    ErrorText{EDQUOT, "se ha agotado tu cuota de disco"},
    ErrorText{EFBIG, "el archivo sería demasiado grande"},
    ErrorText{ENAMETOOLONG, "el nombre es demasiado largo"},
    ErrorText{ELOOP, "hay un ciclo de enlaces"},
    ErrorText{EIO, "el disco no responde bien"},
    ErrorText{EMFILE, "hay demasiados archivos abiertos"},
    ErrorText{ETXTBSY, "el archivo está en uso"},
    ErrorText{ECONNREFUSED, "nadie atiende en ese puerto"},
    ErrorText{ECONNRESET, "el otro lado cortó la conexión"},
    ErrorText{EPIPE, "el otro lado cortó la conexión"},
    ErrorText{ETIMEDOUT, "el otro lado no responde"},
    ErrorText{ENETUNREACH, "no hay red hasta ese sitio"},
    ErrorText{EHOSTUNREACH, "no hay camino hasta ese sitio"},
    ErrorText{EADDRINUSE, "el puerto ya está en uso"},
};

const char* Find(std::span<const ErrorText> texts, int number) {
    const auto found = std::ranges::find(texts, number, &ErrorText::number);
    return found == texts.end() ? nullptr : found->text;
}

} // namespace

const char* TextOfError(int number) {
    return Find(kTexts, number);
}

const char* TextOfError(std::span<const ErrorText> special, int number) {
    const char* const text = Find(special, number);
    return text ? text : TextOfError(number);
}

} // namespace core
