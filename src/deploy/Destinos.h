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

/// In the order of the lists Combo1 and Combo2.
std::span<const Firmware> Firmwares();
std::span<const Eboot> Eboots();

/// The files of the driver folder, each with a "\" before its name.
inline constexpr std::array kDrivers = {u"\\hook.prx", u"\\load.pbp", u"\\rdriver.prx",
                                        u"\\syslib.prx"};

/// Where a script goes, as program paths.
struct Destino {
    QString unidad;  ///< with its colon: "E:"
    QString carpeta; ///< of the firmware: "GAME"
    QString nombre;  ///< of the script

    QString CarpetaFirmware() const { return unidad + QStringLiteral("\\PSP\\") + carpeta; }
    QString Proyecto() const { return CarpetaFirmware() + u'\\' + nombre; }
    QString Script() const { return Proyecto() + QStringLiteral("\\script.lua"); }
    QString Eboot() const { return Proyecto() + QStringLiteral("\\EBOOT.PBP"); }
    QString Drivers() const { return Proyecto() + QStringLiteral("\\LPHMDRIVER"); }
};

/// Why the memory stick can't hold a folder of this name, as a Spanish text for the user; nullopt
/// if it can. The rules are those of FAT with long names.
std::optional<QString> DefectoDeNombre(const QString& nombre);

/// The same for the whole destination: also its drive and its firmware folder must be there, and
/// the folder writable.
std::optional<QString> DefectoDeDestino(const Destino& destino);

} // namespace deploy
