// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/PinturaCabecera.h"

#include <QPainter>
#include <gtest/gtest.h>

using namespace explorer;

namespace {

// A skin whose cell n is of the red 20 * n, 4 pixels wide; titles are blue, or green if raised.
EstadoCabecera Estado(int columnaActiva) {
    QImage skin(4 * kCeldas + 1, 6, QImage::Format_RGB32); // a pixel more than nine cells
    for (int x = 0; x < skin.width(); ++x)
        for (int y = 0; y < skin.height(); ++y)
            skin.setPixelColor(x, y, QColor(x / 4 * 20, 0, 0));
    EstadoCabecera estado;
    estado.PonerSkin(QPixmap::fromImage(skin));
    estado.TextNormalColor = 0xC00000;
    estado.TextResalteColor = 0x00C000;
    estado.tamanoIcono = QSize(8, 8);
    estado.columnaActiva = columnaActiva;
    return estado;
}

QImage Pintada(const std::vector<ColumnaCabecera>& columnas, const EstadoCabecera& estado) {
    QImage imagen(140, 20, QImage::Format_RGB32);
    imagen.fill(Qt::white);
    QPainter pintor(&imagen);
    PintarCabecera(pintor, imagen.rect(), columnas, estado);
    return imagen;
}

// Where something is drawn in a colour that the skin hasn't.
QRect Tinta(const QImage& imagen, int (QColor::*parte)() const) {
    QRect tinta;
    for (int x = 0; x < imagen.width(); ++x)
        for (int y = 0; y < imagen.height(); ++y)
            if ((imagen.pixelColor(x, y).*parte)() > 100)
                tinta |= QRect(x, y, 1, 1);
    return tinta;
}

TEST(PinturaCabecera, ColumnsShowTheCellsOfTheirLook) {
    QPixmap icono(8, 8);
    icono.fill(Qt::green);
    const std::vector<ColumnaCabecera> columnas = {{{0, 0, 60, 20}, QString(), 16384, {}},
                                                   {{60, 0, 60, 20}, QString(), 18432, icono},
                                                   {{120, 0, 5, 20}, QString(), 7, icono}};
    struct {
        bool sinResalte = false, pulsado = false;
        int izquierda = 0, medio = 0, derecha = 0;
        QColor icono;
        QPoint donde;
    } const aspectos[] = {{true, true, 0, 0, 40, QColor(Qt::green), {69, 6}},
                          {false, false, 60, 80, 100, QColor(Qt::green), {69, 6}},
                          {false, true, 120, 140, 160, QColor(70, 127, 0), {70, 7}}};
    for (const auto& aspecto : aspectos) {
        EstadoCabecera estado = Estado(1);
        estado.sinResalte = aspecto.sinResalte;
        estado.pulsado = aspecto.pulsado;
        const QImage imagen = Pintada(columnas, estado);
        const auto rojo = [&](int x) { return imagen.pixelColor(x, 1).red(); };
        const std::array vistos{rojo(61), rojo(64), rojo(100), rojo(118)};
        EXPECT_EQ(vistos,
                  (std::array{aspecto.izquierda, aspecto.medio, aspecto.medio, aspecto.derecha}));
        EXPECT_EQ(aspecto.medio == 0 ? 20 : aspecto.medio, rojo(115)); // the background's end
        EXPECT_EQ(40, rojo(58)); // the column before is always normal
        EXPECT_EQ(0, rojo(40));
        EXPECT_EQ(40, rojo(123)); // narrower than its ends
        EXPECT_EQ(20, rojo(126)); // the background begins at column 1 of the skin, ends in cell 1
        const QColor visto = imagen.pixelColor(aspecto.donde + QPoint(1, 1));
        EXPECT_NEAR(aspecto.icono.red(), visto.red(), 2);
        EXPECT_NEAR(aspecto.icono.green(), visto.green(), 2);
        EXPECT_EQ(QRect(aspecto.donde, QSize(8, 8)), Tinta(imagen, &QColor::green));
    }
}

TEST(PinturaCabecera, TitlesHaveTheColourTheFontAndTheRoomOfTheirLook) {
    const std::vector<ColumnaCabecera> columnas = {{{0, 0, 90, 20}, QString(20, u'H'), 16384, {}}};
    const QRect normal = Tinta(Pintada(columnas, Estado(-1)), &QColor::blue);
    EXPECT_NEAR(10, normal.left(), 1);
    EXPECT_GT(normal.right(), 60);
    EXPECT_LT(normal.right(), 81); // cut, so that it doesn't come to the end of the column
    EXPECT_NEAR(10, normal.center().y(), 1);
    EstadoCabecera estado = Estado(0);
    EXPECT_EQ(normal, Tinta(Pintada(columnas, estado), &QColor::green));
    estado.pulsado = true;
    EXPECT_EQ(normal.translated(1, 1), Tinta(Pintada(columnas, estado), &QColor::green));
    const std::vector<ColumnaCabecera> corta = {{{0, 0, 90, 20}, QStringLiteral("H"), 16384, {}}};
    EstadoCabecera negrita = Estado(-1);
    const QRect fina = Tinta(Pintada(corta, negrita), &QColor::blue);
    negrita.HedersFontBlod = true;
    EXPECT_GT(Tinta(Pintada(corta, negrita), &QColor::blue).width(), fina.width());
}

} // namespace
