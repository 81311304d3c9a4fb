// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/controls/PropertyBag.h"

#include <QWidget>
#include <array>

namespace deploy {

/// The progress bar of the program: a background, a bar over it and the percentage over both.
/// Lengths are in twips.
class cProg : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int Value READ Value WRITE Value NOTIFY PropertyChanged)
    Q_PROPERTY(int PaletteColor READ PaletteColor WRITE PaletteColor NOTIFY PropertyChanged)

public:
    explicit cProg(QWidget* parent = nullptr);

    /// The percentage that is shown, of 16 bits; it isn't clamped. A resize fills the bar, and the
    /// next writing sets its width again.
    int Value() const { return m_value; }
    void Value(int percent);
    /// 1 is green, 2 is blue; any other number leaves the colours as they are.
    int PaletteColor() const { return m_paletteColor; }
    void PaletteColor(int palette);
    QFont Font() const { return m_font; }
    void Font(const QFont& font);

    void WriteProperties(platform::PropertyBag& bag) const;
    void ReadProperties(const platform::PropertyBag& bag);

    /// The bar's width, in twips.
    int BarWidth() const { return m_barWidth; }
    QString LabelText() const;

Q_SIGNALS:
    void PropertyChanged(const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Colors {
        QRgb back;
        QRgb backBorder;
        QRgb bar;
        QRgb barBorder;
        QRgb text;
    };
    static const std::array<Colors, 2> kPalettes;

    void DrawBar();
    void ApplyPalette();

    qint16 m_value = 15;
    int m_paletteColor = 1;
    QFont m_font;
    Colors m_colors;
    qint16 m_barWidth = 0;
};

} // namespace deploy
