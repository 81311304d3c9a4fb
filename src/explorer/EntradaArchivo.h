// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCollator>
#include <QString>
#include <QStringView>
#include <optional>
#include <span>

namespace explorer {

inline constexpr QStringView kTipoCarpeta = u"Carpeta de Archivos";
inline constexpr QStringView kClaveCarpeta = u"carpeta";

/// One entry of a listed folder.
struct EntradaArchivo {
    QString clave; ///< of the row's icon in both image lists
    QString nombre;
    QString tipo;
    quint32 atributos = 0;
    qint32 tamano = 0;                     ///< the low 32 bits of the size in bytes
    qint64 fechaEscritura = 0;             ///< as a file time, see platform/files/FileTime.h
    std::optional<QCollatorSortKey> orden; ///< sort key of the name, set by ordenarEntradas
};

/// True if the types are equal without regard to case.
bool EsTipo(QStringView tipo, QStringView otro);

/// "z" and the extension in lower case; without a point the whole name is the extension.
QString ClaveDeArchivo(const QString& nombre);

QString TextoTamano(qint32 tamano);
QString TextoFecha(qint64 fechaEscritura);
QString TextoAtributos(quint32 atributos);

/// Sorts folders first, then files, each by name in the locale's order (QCollator) without regard
/// to case, equal names by their UTF-16 code units.
void ordenarEntradas(std::span<EntradaArchivo> entradas);

} // namespace explorer
