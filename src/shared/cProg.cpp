// SPDX-License-Identifier: GPL-3.0-or-later
#include "shared/cProg.h"

#include "core/Rounding.h"
#include "platform/base/Twips.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPainter>
#include <QResizeEvent>
#include <algorithm>
#include <limits>

namespace shared {
namespace {

constexpr int kMargen = 120; // twips from the right edge
constexpr double kPuntos = 9.75;

qint16 A16Bits(double numero) {
    using Limites = std::numeric_limits<qint16>;
    return static_cast<qint16>(std::clamp<double>(numero, Limites::min(), Limites::max()));
}

class BarraAccesible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit BarraAccesible(cProg* barra) : QAccessibleWidget(barra, QAccessible::ProgressBar) {}

    void* interface_cast(QAccessible::InterfaceType tipo) override {
        return tipo == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(tipo);
    }
    QVariant currentValue() const override { return static_cast<cProg*>(widget())->Value(); }
    void setCurrentValue(const QVariant&) override {}
    QVariant maximumValue() const override { return 100; }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }
};

QAccessibleInterface* HacerAccesible(const QString&, QObject* objeto) {
    auto* barra = qobject_cast<cProg*>(objeto);
    return barra ? new BarraAccesible(barra) : nullptr;
}

} // namespace

const std::array<cProg::Colores, 2> cProg::kPaletas = {{
    {qRgb(192, 255, 192), qRgb(0, 128, 0), qRgb(0, 192, 0), qRgb(0, 128, 0), qRgb(0, 128, 0)},
    {qRgb(51, 102, 153), qRgb(0, 129, 200), qRgb(0, 129, 200), qRgb(0, 129, 200),
     qRgb(255, 255, 255)},
}};

cProg::cProg(QWidget* padre) : QWidget(padre), m_letra(font()), m_colores(kPaletas[1]) {
    m_letra.setBold(true);
    m_letra.setPointSizeF(kPuntos);
    QAccessible::installFactory(HacerAccesible);
}

void cProg::Value(int porcentaje) {
    m_valor = static_cast<qint16>(porcentaje);
    DrawBar();
    Q_EMIT PropertyChanged(QStringLiteral("Value"));
    QAccessibleValueChangeEvent evento(this, porcentaje);
    QAccessible::updateAccessibility(&evento);
}

void cProg::PaletteColor(int paleta) {
    m_paleta = paleta;
    ApplyPalette();
    Q_EMIT PropertyChanged(QStringLiteral("PaletteColor"));
}

void cProg::Font(const QFont& letra) {
    m_letra = letra;
    update();
    Q_EMIT PropertyChanged(QStringLiteral("Font"));
}

void cProg::WriteProperties(platform::PropertyBag& bolsa) const {
    bolsa.Write(QStringLiteral("PaletteColor"), m_paleta, 1);
    bolsa.Write(QStringLiteral("Value"), Value(), 15);
    bolsa.Write(QStringLiteral("Font"), m_letra, font());
}

void cProg::ReadProperties(const platform::PropertyBag& bolsa) {
    m_letra = bolsa.Read(QStringLiteral("Font"), font()).value<QFont>();
    m_valor = static_cast<qint16>(bolsa.Read(QStringLiteral("Value"), 15).toInt());
    m_paleta = bolsa.Read(QStringLiteral("PaletteColor"), 1).toInt();
    DrawBar();
    ApplyPalette();
}

QString cProg::Rotulo() const {
    return QStringLiteral("%1%").arg(m_valor);
}

void cProg::DrawBar() {
    m_anchoBarra = A16Bits(core::RoundHalfEven(m_valor * double(platform::ToTwips(width())) / 100));
    update();
}

void cProg::ApplyPalette() {
    if (m_paleta < 1 || m_paleta > static_cast<int>(kPaletas.size()))
        return;
    m_colores = kPaletas.at(static_cast<size_t>(m_paleta) - 1);
    update();
}

void cProg::resizeEvent(QResizeEvent* evento) {
    QWidget::resizeEvent(evento);
    m_anchoBarra = A16Bits(platform::ToTwips(width()));
    // The first resize comes before ReadProperties.
    if (!evento->oldSize().isValid())
        DrawBar();
}

void cProg::paintEvent(QPaintEvent*) {
    QPainter pintor(this);
    const auto caja = [&](int pixeles, QRgb fondo, QRgb borde) {
        if (pixeles <= 0)
            return;
        pintor.setBrush(QColor(fondo));
        pintor.setPen(QColor(borde));
        pintor.drawRect(QRect(0, 0, pixeles - 1, height() - 1));
    };
    caja(width(), m_colores.fondo, m_colores.bordeFondo);
    caja(platform::ToPixels(m_anchoBarra), m_colores.barra, m_colores.bordeBarra);
    pintor.setFont(m_letra);
    pintor.setPen(QColor(m_colores.texto));
    pintor.drawText(rect().adjusted(0, 0, -platform::ToPixels(kMargen), 0),
                    Qt::AlignRight | Qt::AlignVCenter, Rotulo());
}

} // namespace shared
