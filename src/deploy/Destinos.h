// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <array>
#include <optional>
#include <span>

namespace deploy {

/// A firmware of the console and the folder from which it runs programs.
struct Firmware {
    const char16_t* nombre = u"";
    const char16_t* carpeta = u"";
};

/// A loader: the file in the program's folder that goes to the console as EBOOT.PBP.
struct Eboot {
    const char16_t* nombre = u"";
    const char16_t* origen = u"";
    bool conDriver = false; ///< a folder of drivers goes with it
};

/// Both in the order of their lists.
std::span<const Firmware> Firmwares();
std::span<const Eboot> Eboots();

/// The files of the driver folder, each with the "\\" before it.
inline constexpr std::array kDrivers = {u"\\hook.prx", u"\\load.pbp", u"\\rdriver.prx",
                                        u"\\syslib.prx"};

/// Where a script goes: a drive ("E:"), a folder of the firmware and the script's name.
struct Destino {
    QString unidad;
    QString carpeta;
    QString nombre;

    QString CarpetaFirmware() const { return unidad + QStringLiteral("\\PSP\\") + carpeta; }
    QString Proyecto() const { return CarpetaFirmware() + u'\\' + nombre; }
    QString Script() const { return Proyecto() + QStringLiteral("\\script.lua"); }
    QString Eboot() const { return Proyecto() + QStringLiteral("\\EBOOT.PBP"); }
    QString Drivers() const { return Proyecto() + QStringLiteral("\\LPHMDRIVER"); }
};

/// What speaks against the name of a folder on the console's memory stick, for the user's eyes;
/// empty if nothing does. The rules are those of FAT with long names.
std::optional<QString> DefectoDeNombre(const QString& nombre);

/// The same of the whole destination, which must be there and writable.
std::optional<QString> DefectoDeDestino(const Destino& destino);

} // namespace deploy
