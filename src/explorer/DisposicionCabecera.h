// SPDX-License-Identifier: GPL-3.0-or-later
// Where everything in a column of a skinned list header goes, without a window. Lengths are in
// pixels of the header.
#pragma once

#include <QRect>
#include <QString>
#include <functional>
#include <optional>

namespace explorer {

/// Number of cells of a skin, all of the same width, from left to right.
inline constexpr int kCeldas = 9;

/// The nearest whole number, halves to the even neighbour.
int Redondeado(double valor);

/// The width of a cell of a skin of that width.
int AnchoCelda(int anchoSkin);

/// Where the text stands in a column of a format (`fmt` of its HDITEM), and whether it has an icon.
struct Caso {
    enum Lado { Izquierda, Derecha, Centro };
    Lado lado = Izquierda;
    bool icono = false;
};
/// nullopt for an unknown format; such a column is laid out like the one before it.
std::optional<Caso> CasoDe(int fmt);

/// The measures of a column: its rectangle, the size of its shortened title and of an icon.
struct Columna {
    QRect sitio;
    QSize texto;
    QSize icono;
};
struct Posiciones {
    QPoint texto;
    QPoint icono;
    bool conIcono = false; ///< false also if the icon has no room
};
Posiciones Disponer(const Columna& columna, const Caso& caso, bool iconoDerecha);

/// The width that a title may have.
int AnchoTitulo(const Columna& columna, const Caso& caso);
/// The title if it isn't wider than `ancho`, else its longest start that fits with "..." after it;
/// empty if not even one character fits.
QString Recortar(QString titulo, int ancho, const std::function<int(const QString&)>& medir);

/// The three ways in which a column is drawn.
struct Aspecto {
    int izquierda = 0;        ///< cell of the left end
    std::optional<int> medio; ///< cell of the middle; without one the background shows
    int derecha = 0;
    bool resaltado = false; ///< the text has the colour for the column under the mouse
    int desplazamiento = 0; ///< of icon and text, right and down
    int estiloIcono = 1;    ///< 1 transparent, 3 blended as well
};
const Aspecto& AspectoDe(bool activa, bool sinResalte, bool pulsado);

} // namespace explorer
