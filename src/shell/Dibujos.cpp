// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Dibujos.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <array>

namespace shell {
namespace {

const QColor kNoche(0x12, 0x1C, 0x33);
const QColor kMar(0x1E, 0x6B, 0x85);
const QColor kPapel(0xF4, 0xEE, 0xDD);
const QColor kTinta(0x2B, 0x2B, 0x3A);
const QColor kOro(0xE0, 0xA8, 0x3C);

// Widths of the lines of a drawn script, in percent of the room.
constexpr std::array kRenglones = {46, 34, 62, 52, 70, 28, 40};

void PintarScript(QPainter& pintor, const QRectF& donde) {
    const qreal paso = donde.height() / (kRenglones.size() + 1);
    const std::array colores = {kOro, kPapel, kPapel.darker(130)};
    pintor.save();
    for (size_t i = 0; i < kRenglones.size(); ++i) {
        const qreal sangria = i == 0 || i + 1 == kRenglones.size() ? 0 : donde.width() * 0.08;
        const qreal y = donde.top() + paso * static_cast<qreal>(i + 1);
        pintor.setPen(QPen(colores[i % colores.size()], paso * 0.3, Qt::SolidLine, Qt::RoundCap));
        pintor.drawLine(QPointF(donde.left() + sangria, y),
                        QPointF(donde.left() + sangria + donde.width() * kRenglones[i] / 100, y));
    }
    pintor.restore();
}

} // namespace

// The feather in a square of side 100, from the upper right to its nib at the lower left.
void PintarPluma(QPainter& pintor, const QRectF& donde) {
    pintor.save();
    pintor.translate(donde.topLeft());
    pintor.scale(donde.width() / 100, donde.height() / 100);
    QPainterPath barbas(QPointF(97, 2));
    barbas.cubicTo(78, 4, 52, 16, 41, 38);
    barbas.lineTo(46, 38); // notches, as the barbs part
    barbas.cubicTo(36, 46, 29, 58, 25, 74);
    barbas.cubicTo(40, 72, 52, 68, 60, 60);
    barbas.lineTo(59, 55);
    barbas.cubicTo(80, 46, 96, 26, 97, 2);
    QLinearGradient luz(20, 80, 97, 2);
    luz.setColorAt(0, kOro);
    luz.setColorAt(1, kPapel);
    pintor.fillPath(barbas, luz);
    pintor.setPen(QPen(kTinta, 1.6, Qt::SolidLine, Qt::RoundCap));
    pintor.drawLine(QPointF(88, 12), QPointF(25, 74));
    pintor.setPen(QPen(kOro.darker(120), 3.2, Qt::SolidLine, Qt::RoundCap));
    pintor.drawLine(QPointF(25, 74), QPointF(11, 90));
    QPainterPath punta(QPointF(13, 85));
    punta.lineTo(5, 97);
    punta.lineTo(17, 89);
    pintor.fillPath(punta, kTinta);
    pintor.restore();
}

void PintarConsola(QPainter& pintor, const QRectF& donde) {
    const qreal borde = donde.height() * 0.14;
    const QRectF pantalla =
        donde.adjusted(donde.width() * 0.2, borde, -donde.width() * 0.2, -borde);
    pintor.setPen(Qt::NoPen);
    pintor.setBrush(kTinta);
    pintor.drawRoundedRect(donde, donde.height() * 0.4, donde.height() * 0.4);
    pintor.setBrush(kNoche);
    pintor.drawRect(pantalla);
    pintor.setBrush(kPapel);
    const qreal boton = donde.height() * 0.07;
    const QPointF cruz(donde.left() + donde.width() * 0.1, donde.center().y());
    const QPointF mando(donde.right() - donde.width() * 0.1, donde.center().y());
    pintor.drawRect(QRectF(cruz.x() - boton * 1.6, cruz.y() - boton / 2, boton * 3.2, boton));
    pintor.drawRect(QRectF(cruz.x() - boton / 2, cruz.y() - boton * 1.6, boton, boton * 3.2));
    for (const QPointF lado : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)})
        pintor.drawEllipse(mando + lado * boton * 1.5, boton * 0.7, boton * 0.7);
    PintarScript(pintor, pantalla.adjusted(borde / 2, 0, -borde / 2, 0));
}

QIcon Icono() {
    QIcon icono;
    for (const int lado : {16, 32, 48, 128}) {
        QPixmap imagen(lado, lado);
        imagen.fill(Qt::transparent);
        QPainter pintor(&imagen);
        pintor.setRenderHint(QPainter::Antialiasing);
        PintarPluma(pintor, imagen.rect());
        icono.addPixmap(imagen);
    }
    return icono;
}

void PintarPortada(QPainter& pintor, const QRectF& donde) {
    QLinearGradient fondo(donde.topLeft(), donde.bottomRight());
    fondo.setColorAt(0, kNoche);
    fondo.setColorAt(1, kMar);
    pintor.fillRect(donde, fondo);
    const qreal alto = donde.height();
    pintor.setOpacity(0.25);
    PintarScript(pintor, donde.adjusted(alto * 0.12, 0, -alto * 0.5, -alto * 0.28));
    pintor.setOpacity(1);
    PintarPluma(pintor, {donde.right() - alto * 0.8, alto * 0.06, alto * 0.72, alto * 0.72});
    QFont letra;
    letra.setPixelSize(static_cast<int>(alto * 0.2));
    letra.setBold(true);
    pintor.setFont(letra);
    pintor.setPen(kPapel);
    pintor.drawText(donde.adjusted(alto * 0.12, 0, 0, -alto * 0.1), Qt::AlignLeft | Qt::AlignBottom,
                    QStringLiteral("Quillmark"));
}

} // namespace shell
