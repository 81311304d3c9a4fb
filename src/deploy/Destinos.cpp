// SPDX-License-Identifier: GPL-3.0-or-later
#include "deploy/Destinos.h"

#include "platform/files/FileSystemObject.h"
#include "platform/files/Paths.h"
#include "platform/text/NativeNames.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace deploy {
namespace {

constexpr const char16_t* kGame = u"GAME";
constexpr const char16_t* kGame150 = u"GAME150";
constexpr qsizetype kNombreMasLargo = 255; // UTF-16 units

constexpr std::array kFirmwares = {
    Firmware{u"Firmware 1.5", kGame},
    Firmware{u"CF 2.71 SE-Todas versiones", kGame150},
    Firmware{u"CF 3.03 OE-Todas versiones", kGame150},
    Firmware{u"CF 3.10 OE-Todas versiones", kGame150},
    Firmware{u"CF 3.30 OE-Todas versiones", kGame150},
    Firmware{u"CF 3.40 OE-Todas versiones", kGame150},
    Firmware{u"CF 3.52 M33-Todas versiones", kGame150},
    Firmware{u"CF 3.71 M33-Todas versiones", kGame150},
    Firmware{u"CF 3.80 M33-Todas versiones", kGame150},
    Firmware{u"CF 3.90 M33-Todas versiones", kGame150},
    Firmware{u"CF 3.93 M33-Todas versiones", kGame150},
    Firmware{u"CF 3.93 GEN-Todas versiones", kGame150},
    Firmware{u"CF 3.95 GEN-Todas versiones", kGame150},
    Firmware{u"CF 4.01 M33-Todas versiones", kGame150},
};

constexpr std::array kEboots = {
    Eboot{u"Eboot clasico", u"\\data\\EBOOT.PBP"},
    Eboot{u"Eboot HM6.6", u"\\data\\EBOOT2.PBP"},
    Eboot{u"Eboot HM8.0", u"\\data\\EBOOT3.PBP", true},
    Eboot{u"Eboot PhoenixGameEngine 0.02", u"\\data\\EBOOT4.PBP"},
};

// Tests the name as it is shown, where U+FFFD stands for each byte that is no text.
bool TieneCaracterProhibido(const QString& nombre) {
    const QString mostrado = platform::DisplayText(nombre);
    const QString prohibidos = QStringLiteral("\\/:*?\"<>|") + QChar(QChar::ReplacementCharacter);
    return std::any_of(mostrado.begin(), mostrado.end(), [&](QChar c) {
        return c.unicode() < 0x20 || c.unicode() == 0x7F || prohibidos.contains(c);
    });
}

// Names that other systems which use FAT keep for devices, with any extension.
bool EsDispositivo(const QString& nombre) {
    static const QRegularExpression dispositivo(
        QRegularExpression::anchoredPattern(
            QStringLiteral("(con|prn|aux|nul|conin\\$|conout\\$|(com|lpt)[0-9¹²³])(\\..*)?")),
        QRegularExpression::CaseInsensitiveOption);
    return dispositivo.match(nombre).hasMatch();
}

// Such a name may be the 8.3 alias that FAT keeps for a folder with a long name.
bool EsNombreCorto(const QString& nombre) {
    static const QRegularExpression alias(
        QRegularExpression::anchoredPattern(QStringLiteral("[^.]{1,6}~[0-9]{1,6}(\\..{0,3})?")));
    return alias.match(nombre).hasMatch();
}

// Half of a UTF-16 surrogate pair.
bool TieneMedioCaracter(const QString& nombre) {
    return !nombre.isValidUtf16();
}

// FAT drops these endings. Includes "." and "..".
bool AcabaEnPuntoOEspacio(const QString& nombre) {
    return nombre.endsWith(u'.') || nombre.endsWith(u' ');
}

bool EsDemasiadoLargo(const QString& nombre) {
    return nombre.size() > kNombreMasLargo;
}

bool EsImposible(const QString& nombre) {
    constexpr std::array kDefectos = {TieneCaracterProhibido, TieneMedioCaracter,
                                      EsDispositivo,          EsNombreCorto,
                                      AcabaEnPuntoOEspacio,   EsDemasiadoLargo};
    return std::ranges::any_of(kDefectos, [&](auto defecto) { return defecto(nombre); });
}

} // namespace

std::span<const Firmware> Firmwares() {
    return kFirmwares;
}

std::span<const Eboot> Eboots() {
    return kEboots;
}

std::optional<QString> DefectoDeNombre(const QString& nombre) {
    const QString mostrado = platform::DisplayText(nombre);
    if (nombre.isEmpty())
        return QStringLiteral("El script aún no tiene nombre. Pasa el ratón por la franja que hay "
                              "encima de su texto y vuelve a intentarlo. Ese nombre es el del "
                              "documento sin sus cuatro últimas letras: si no tiene más de cuatro, "
                              "guárdalo antes con otro más largo.");
    if (EsImposible(nombre))
        return QStringLiteral("\"%1\" no puede ser el nombre de una carpeta en la tarjeta de "
                              "memoria. Guarda el script con otro nombre y pasa el ratón por la "
                              "franja que hay encima de su texto.")
            .arg(mostrado);
    return std::nullopt;
}

std::optional<QString> DefectoDeDestino(const Destino& destino) {
    if (destino.unidad.isEmpty())
        return QStringLiteral("Elige en PSP la unidad de la tarjeta de memoria.");
    if (auto defecto = DefectoDeNombre(destino.nombre))
        return defecto;
    const platform::FileSystemObject fso;
    if (!fso.FolderExists(destino.unidad + u'\\'))
        return QStringLiteral("La unidad %1 no está. Conecta la consola o la tarjeta de memoria y "
                              "vuelve a intentarlo.")
            .arg(destino.unidad);
    const auto carpeta = platform::ToNative(destino.CarpetaFirmware());
    std::error_code error;
    if (!std::filesystem::is_directory(carpeta, error))
        return QStringLiteral("En la unidad %1 no existe la carpeta %2. Comprueba la unidad y el "
                              "firmware, o crea esa carpeta.")
            .arg(destino.unidad, destino.CarpetaFirmware());
    if (::access(carpeta.c_str(), W_OK | X_OK) != 0)
        return QStringLiteral("No se puede escribir en %1. Quita la protección contra escritura de "
                              "la tarjeta de memoria.")
            .arg(destino.CarpetaFirmware());
    return std::nullopt;
}

} // namespace deploy
