// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace Module1 {

/// The only way to read a setting: the value without blanks around it, at most 255 characters.
/// `Defecto` stands for a missing file, section or key and for an empty value. Never fails.
QString LeerIni(const QString& Archivo, const QString& Seccion, const QString& Clave,
                const QString& Defecto);

/// The only way to write one. A failure goes to the log.
void EscribirIni(const QString& Archivo, const QString& Seccion, const QString& Clave,
                 const QString& Valor);

/// Registers the program as the opener of an extension such as ".qmk". An empty argument but the
/// icon's gets a message and nothing is written; a write that fails goes to the log.
void Asociar(const QString& Descripcion, const QString& RutaPrograma, const QString& Extension,
             const QString& Icono);

/// What the registry and the desktop are told about a type of files.
struct TipoDeArchivo {
    QString clase;
    QString titulo;
    QString extension;
    QString programa; ///< program path
    QString icono;    ///< program path of an .ico file
};
void Registrar(const TipoDeArchivo& tipo);

/// The text without the blanks (U+0020 only) around it.
QString SinBlancos(const QString& texto);

/// The path of the settings file, config.ini; platform/files/ProfileFile.h tells its format.
QString RutaConfig();

/// The sections of the settings file, each followed by its keys, and two values.
inline constexpr QLatin1StringView kGeneral("general");
inline constexpr QLatin1StringView kNuevo("nuevo"); ///< kSi or kNo: a blank document at the start
inline constexpr QLatin1StringView kInicio("inicio");
inline constexpr QLatin1StringView kEjecuciones("ejecuciones"); ///< 0 until the first start
inline constexpr QLatin1StringView kExplorador("explorador");
inline constexpr QLatin1StringView kPath("path"); ///< the letter of a drive
inline constexpr QLatin1StringView kUpdate("update");
inline constexpr QLatin1StringView kVer("ver"); ///< the version that was last on offer
inline constexpr QLatin1StringView kSi("si");
inline constexpr QLatin1StringView kNo("no");

} // namespace Module1
