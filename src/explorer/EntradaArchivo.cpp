// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/EntradaArchivo.h"

#include "core/Rounding.h"
#include "platform/files/FileTime.h"
#include "platform/files/FindFile.h"
#include "platform/text/NativeNames.h"

#include <QCollator>
#include <QLocale>
#include <array>
#include <utility>

namespace explorer {
namespace {

constexpr std::array kLetras = {
    std::pair{platform::FILE_ATTRIBUTE_TEMPORARY, u'T'},
    std::pair{platform::FILE_ATTRIBUTE_READONLY, u'R'},
    std::pair{platform::FILE_ATTRIBUTE_HIDDEN, u'H'},
    std::pair{platform::FILE_ATTRIBUTE_SYSTEM, u'S'},
    std::pair{platform::FILE_ATTRIBUTE_NORMAL, u'N'},
    std::pair{platform::FILE_ATTRIBUTE_COMPRESSED, u'C'},
    std::pair{platform::FILE_ATTRIBUTE_ARCHIVE, u'A'},
};

QString DosCifras(unsigned numero) {
    return QStringLiteral("%1").arg(numero, 2, 10, QLatin1Char('0'));
}

int Comparar(const EntradaArchivo& a, const EntradaArchivo& b) {
    const int orden = a.orden->compare(*b.orden);
    return orden != 0 ? orden : a.nombre.compare(b.nombre);
}

void ordenarRango(std::span<EntradaArchivo> entradas, qsizetype lo, qsizetype hi) {
    const auto en = [&](qsizetype indice) -> EntradaArchivo& {
        return entradas[static_cast<size_t>(indice)];
    };
    const EntradaArchivo pivote =
        en(static_cast<qsizetype>(core::RoundHalfEven(static_cast<double>(lo + hi) / 2)));
    qsizetype i = lo;
    qsizetype j = hi;
    while (i <= j) {
        while (Comparar(en(i), pivote) < 0)
            ++i;
        while (Comparar(en(j), pivote) > 0)
            --j;
        if (i <= j)
            std::swap(en(i++), en(j--));
    }
    if (lo < j)
        ordenarRango(entradas, lo, j);
    if (i < hi)
        ordenarRango(entradas, i, hi);
}

} // namespace

bool EsTipo(QStringView tipo, QStringView otro) {
    return tipo.compare(otro, Qt::CaseInsensitive) == 0;
}

QString ClaveDeArchivo(const QString& nombre) {
    return u'z' + nombre.sliced(nombre.lastIndexOf(u'.') + 1).toLower();
}

QString TextoTamano(qint32 tamano) {
    return QString::number(tamano / 1024 + 1) + QStringLiteral(" KB");
}

QString TextoFecha(qint64 fechaEscritura) {
    const platform::SystemTime t = platform::FileTimeToSystemTime(fechaEscritura);
    return DosCifras(t.day) + u'.' + DosCifras(t.month) + u'.' + QString::number(t.year) + u' ' +
           QString::number(t.hour) + u':' + DosCifras(static_cast<unsigned>(t.minute)) + u':' +
           DosCifras(static_cast<unsigned>(t.second));
}

QString TextoAtributos(quint32 atributos) {
    QString texto;
    for (const auto& [atributo, letra] : kLetras) {
        if (atributos & atributo)
            texto += letra;
    }
    return texto;
}

void ordenarEntradas(std::span<EntradaArchivo> entradas) {
    QCollator colador{QLocale()};
    colador.setCaseSensitivity(Qt::CaseInsensitive);
    for (EntradaArchivo& entrada : entradas)
        entrada.orden = colador.sortKey(platform::DisplayText(entrada.nombre));
    qsizetype k = 0;
    for (EntradaArchivo& entrada : entradas) {
        if (EsTipo(entrada.tipo, kTipoCarpeta))
            std::swap(entrada, entradas[static_cast<size_t>(k++)]);
    }
    const auto cuantas = static_cast<qsizetype>(entradas.size());
    if (k != 0)
        ordenarRango(entradas, 0, k - 1);
    if (k < cuantas)
        ordenarRango(entradas, k, cuantas - 1);
}

} // namespace explorer
