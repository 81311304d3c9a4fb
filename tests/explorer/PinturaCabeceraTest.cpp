// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/PinturaCabecera.h"

#include <QPainter>
#include <gtest/gtest.h>

using namespace explorer;

namespace {

// A skin whose cell n is of the grey 20 * n, 4 pixels wide.
QPixmap Skin() {
    QImage skin(4 * kCeldas + 1, 6, QImage::Format_RGB32); // a pixel more than nine cells
    for (int x = 0; x < skin.width(); ++x)
        for (int y = 0; y < skin.height(); ++y)
            skin.setPixelColor(x, y, QColor(x / 4 * 20, 0, 0));
    return QPixmap::fromImage(skin);
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
        EstadoCabecera estado;
        estado.SkinPicture = Skin();
        estado.tamanoIcono = QSize(8, 8);
        estado.columnaActiva = 1;
        estado.sinResalte = aspecto.sinResalte;
        estado.pulsado = aspecto.pulsado;
        QImage imagen(140, 20, QImage::Format_RGB32);
        imagen.fill(Qt::white);
        QPainter pintor(&imagen);
        PintarCabecera(pintor, imagen.rect(), columnas, estado);
        pintor.end();
        const auto rojo = [&](int x) { return imagen.pixelColor(x, 1).red(); };
        EXPECT_EQ(aspecto.izquierda, rojo(61));
        EXPECT_EQ(aspecto.medio, rojo(100));
        EXPECT_EQ(aspecto.derecha, rojo(118));
        EXPECT_EQ(40, rojo(58)); // the column before is always normal
        EXPECT_EQ(0, rojo(40));
        EXPECT_EQ(40, rojo(123)); // narrower than its ends
        EXPECT_EQ(20,
                  rojo(126)); // the background begins at column 1 of the skin and ends in cell 1
        const QColor visto = imagen.pixelColor(aspecto.donde + QPoint(1, 1));
        EXPECT_NEAR(aspecto.icono.red(), visto.red(), 2);
        EXPECT_NEAR(aspecto.icono.green(), visto.green(), 2);
        EXPECT_EQ(0, imagen.pixelColor(aspecto.donde - QPoint(1, 1)).green());
    }
}

} // namespace
