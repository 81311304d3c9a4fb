// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/DibujosBarra.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <utility>

namespace explorer {
namespace {

constexpr int kUnidades = 24; // side of a picture in the units that it is drawn in

struct Paleta {
    QColor linea;
    QColor fondo;
    QColor flecha;
};
const Paleta kNormal{{0x2B, 0x2B, 0x3A}, {0xF4, 0xEE, 0xDD}, {0x1E, 0x6B, 0x85}};
const Paleta kBajoElRaton{{0x12, 0x1C, 0x33}, {0xF3, 0xC9, 0x6B}, {0x2A, 0x95, 0xB8}};

using Pintar = void (*)(QPainter& painter, const Paleta& paleta);

QIcon Dibujo(Pintar pintar, const Paleta& paleta) {
    QIcon icono;
    for (const int escala : {1, 2, 3}) {
        QPixmap imagen(kLadoDibujo * escala, kLadoDibujo * escala);
        imagen.fill(Qt::transparent);
        QPainter painter(&imagen);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(qreal(imagen.width()) / kUnidades, qreal(imagen.height()) / kUnidades);
        painter.setPen(QPen(paleta.linea, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(paleta.fondo);
        pintar(painter, paleta);
        icono.addPixmap(imagen);
    }
    return icono;
}

void PintarFlecha(QPainter& painter, const Paleta& paleta, const QPolygonF& flecha) {
    painter.setPen(QPen(paleta.linea, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(paleta.flecha);
    painter.drawPolygon(flecha);
}

void PintarCarpeta(QPainter& painter) {
    painter.drawPolygon(QPolygonF({{2, 20}, {2, 6}, {9, 6}, {11, 8.5}, {21, 8.5}, {21, 20}}));
    painter.drawLine(QPointF(2, 11), QPointF(21, 11));
}

void PintarSubir(QPainter& painter, const Paleta& paleta) {
    PintarCarpeta(painter);
    PintarFlecha(
        painter, paleta,
        QPolygonF({{16, 1}, {22, 8}, {18.2, 8}, {18.2, 17}, {13.8, 17}, {13.8, 8}, {10, 8}}));
}

void PintarCambiar(QPainter& painter, const Paleta& paleta) {
    painter.drawRoundedRect(QRectF(2, 12, 20, 9), 2, 2); // a drive
    painter.drawLine(QPointF(5, 17), QPointF(13, 17));
    painter.setBrush(paleta.flecha);
    painter.drawEllipse(QPointF(18.5, 17), 1.2, 1.2);
    PintarFlecha(painter, paleta,
                 QPolygonF({{2, 6}, {6, 2}, {6, 4.5}, {11, 4.5}, {11, 7.5}, {6, 7.5}, {6, 10}}));
    PintarFlecha(
        painter, paleta,
        QPolygonF({{22, 6}, {18, 2}, {18, 4.5}, {13, 4.5}, {13, 7.5}, {18, 7.5}, {18, 10}}));
}

void PintarVolver(QPainter& painter, const Paleta& paleta) {
    painter.drawRect(QRectF(5, 11, 14, 10)); // a house
    PintarFlecha(painter, paleta, QPolygonF({{12, 2}, {22.5, 12}, {1.5, 12}}));
    painter.drawRect(QRectF(10, 15, 4, 6));
}

} // namespace

void LlenarDibujos(platform::ImageList& ImageListNormal, platform::ImageList& imagelistup) {
    for (const auto& [clave, pintar] :
         {std::pair<const char16_t*, Pintar>{kDibujoSubir, PintarSubir},
          {kDibujoCambiar, PintarCambiar},
          {kDibujoVolver, PintarVolver}}) {
        ImageListNormal.AddImage(QString::fromUtf16(clave), Dibujo(pintar, kNormal));
        imagelistup.AddImage(QString::fromUtf16(clave), Dibujo(pintar, kBajoElRaton));
    }
}

QIcon DibujoDeBoton(const QIcon& normal, const QIcon& bajoElRaton) {
    QIcon icono;
    for (const QSize& lado : normal.availableSizes()) {
        icono.addPixmap(normal.pixmap(lado, 1), QIcon::Normal);
        icono.addPixmap(bajoElRaton.pixmap(lado, 1), QIcon::Active);
    }
    return icono;
}

} // namespace explorer
