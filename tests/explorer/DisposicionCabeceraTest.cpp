// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/DisposicionCabecera.h"

#include <gtest/gtest.h>

using namespace explorer;

namespace {

// A column from 10 to 111, 20 high, with a title of 30 x 13 and icons of 16 x 16.
const Columna kColumna = {{10, 0, 101, 20}, {30, 13}, {16, 16}};

TEST(DisposicionCabecera, TextAndIconStandAsTheFormatSays) {
    struct {
        int fmt;
        bool derecha;
        int texto;
        int icono;
    } const casos[] = {{0, false, 19, -1},     {16384, true, 19, -1},  {16385, false, 72, -1},
                       {16386, false, 46, -1}, {18432, false, 44, 19}, {18432, true, 19, 49},
                       {18433, false, 72, 47}, {18433, true, 56, 86},  {18434, false, 52, 27},
                       {18434, true, 36, 66}};
    for (const auto& caso : casos) {
        const Posiciones posiciones = Disponer(kColumna, CasoDe(caso.fmt).value(), caso.derecha);
        EXPECT_EQ(QPoint(caso.texto, 4), posiciones.texto) << caso.fmt << caso.derecha;
        EXPECT_EQ(caso.icono >= 0, posiciones.conIcono) << caso.fmt;
        if (posiciones.conIcono) {
            EXPECT_EQ(QPoint(caso.icono, 2), posiciones.icono) << caso.fmt << caso.derecha;
        }
    }
    EXPECT_FALSE(CasoDe(1).has_value());
    EXPECT_EQ(101 - 18, AnchoTitulo(kColumna, CasoDe(16384).value()));
    EXPECT_EQ(101 - 18 - 16, AnchoTitulo(kColumna, CasoDe(18432).value()));
    // Without room for the icon its place still counts for the text.
    const Columna estrecha = {{0, 0, 20, 20}, {5, 13}, {16, 16}};
    const Posiciones posiciones = Disponer(estrecha, CasoDe(18432).value(), false);
    EXPECT_FALSE(posiciones.conIcono);
    EXPECT_EQ(34, posiciones.texto.x());
    EXPECT_FALSE(
        Disponer({{0, 0, 40, 20}, {30, 13}, {16, 16}}, CasoDe(18433).value(), false).conIcono);
    EXPECT_EQ(12, AnchoCelda(112)); // 12.4
    EXPECT_EQ(2, Redondeado(2.5));
}

TEST(DisposicionCabecera, TitlesAreShortenedToTheirRoom) {
    const auto medir = [](const QString& texto) { return int(texto.size()) * 10; };
    const QString titulo = QStringLiteral("Nombre");
    EXPECT_EQ(titulo, Recortar(titulo, 60, medir));
    EXPECT_EQ(QStringLiteral("No..."), Recortar(titulo, 59, medir));
    EXPECT_EQ(QStringLiteral("N..."), Recortar(titulo, 40, medir));
    EXPECT_EQ(QString(), Recortar(titulo, 39, medir));
    EXPECT_EQ(QString(), Recortar(titulo, -5, medir));
    EXPECT_EQ(QString(), Recortar(QString(), -5, medir));
}

} // namespace
