// SPDX-License-Identifier: GPL-3.0-or-later
#include "deploy/cProg.h"

#include "platform/base/Twips.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPainter>
#include <QResizeEvent>
#include <algorithm>
#include <cmath>
#include <limits>

namespace deploy {
namespace {

constexpr int kLabelMargin = 120; // twips from the right edge
constexpr double kLabelPoints = 9.75;

qint16 To16Bits(double number) {
    using Limits = std::numeric_limits<qint16>;
    return static_cast<qint16>(std::clamp<double>(number, Limits::min(), Limits::max()));
}

class AccessibleBar : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleBar(cProg* bar) : QAccessibleWidget(bar, QAccessible::ProgressBar) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override { return static_cast<cProg*>(widget())->Value(); }
    void setCurrentValue(const QVariant&) override {}
    QVariant maximumValue() const override { return 100; }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
    auto* bar = qobject_cast<cProg*>(object);
    return bar ? new AccessibleBar(bar) : nullptr;
}

} // namespace

const std::array<cProg::Colors, 2> cProg::kPalettes = {{
    {qRgb(192, 255, 192), qRgb(0, 128, 0), qRgb(0, 192, 0), qRgb(0, 128, 0), qRgb(0, 128, 0)},
    {qRgb(51, 102, 153), qRgb(0, 129, 200), qRgb(0, 129, 200), qRgb(0, 129, 200),
     qRgb(255, 255, 255)},
}};

cProg::cProg(QWidget* parent) : QWidget(parent), m_font(font()), m_colors(kPalettes[1]) {
    m_font.setBold(true);
    m_font.setPointSizeF(kLabelPoints);
    QAccessible::installFactory(MakeAccessible);
}

void cProg::Value(int percent) {
    m_value = static_cast<qint16>(percent);
    DrawBar();
    Q_EMIT PropertyChanged(QStringLiteral("Value"));
    QAccessibleValueChangeEvent event(this, percent);
    QAccessible::updateAccessibility(&event);
}

void cProg::PaletteColor(int palette) {
    m_paletteColor = palette;
    ApplyPalette();
    Q_EMIT PropertyChanged(QStringLiteral("PaletteColor"));
}

void cProg::Font(const QFont& font) {
    m_font = font;
    update();
    Q_EMIT PropertyChanged(QStringLiteral("Font"));
}

void cProg::WriteProperties(platform::PropertyBag& bag) const {
    bag.Write(QStringLiteral("PaletteColor"), m_paletteColor, 1);
    bag.Write(QStringLiteral("Value"), Value(), 15);
    bag.Write(QStringLiteral("Font"), m_font, font());
}

void cProg::ReadProperties(const platform::PropertyBag& bag) {
    m_font = bag.Read(QStringLiteral("Font"), font()).value<QFont>();
    m_value = static_cast<qint16>(bag.Read(QStringLiteral("Value"), 15).toInt());
    m_paletteColor = bag.Read(QStringLiteral("PaletteColor"), 1).toInt();
    DrawBar();
    ApplyPalette();
}

QString cProg::LabelText() const {
    return QStringLiteral("%1%").arg(m_value);
}

void cProg::DrawBar() {
    // Halves go to the even neighbour.
    m_barWidth = To16Bits(std::nearbyint(m_value * double(platform::ToTwips(width())) / 100));
    update();
}

void cProg::ApplyPalette() {
    if (m_paletteColor < 1 || m_paletteColor > static_cast<int>(kPalettes.size()))
        return;
    m_colors = kPalettes.at(static_cast<size_t>(m_paletteColor) - 1);
    update();
}

void cProg::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_barWidth = To16Bits(platform::ToTwips(width()));
    // The first size comes before the host's properties do.
    if (!event->oldSize().isValid())
        DrawBar();
}

void cProg::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto box = [&](int pixels, QRgb back, QRgb border) {
        if (pixels <= 0)
            return;
        painter.setBrush(QColor(back));
        painter.setPen(QColor(border));
        painter.drawRect(QRect(0, 0, pixels - 1, height() - 1));
    };
    box(width(), m_colors.back, m_colors.backBorder);
    box(platform::ToPixels(m_barWidth), m_colors.bar, m_colors.barBorder);
    painter.setFont(m_font);
    painter.setPen(QColor(m_colors.text));
    painter.drawText(rect().adjusted(0, 0, -platform::ToPixels(kLabelMargin), 0),
                     Qt::AlignRight | Qt::AlignVCenter, LabelText());
}

} // namespace deploy
