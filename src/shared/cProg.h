// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/controls/PropertyBag.h"

#include <QString>
#include <QWidget>
#include <array>

namespace shared {

/// The progress bar of the program: a background, a bar over it and the percentage over both.
/// Lengths are in twips.
class cProg : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int Value READ Value WRITE Value NOTIFY PropertyChanged)
    Q_PROPERTY(int PaletteColor READ PaletteColor WRITE PaletteColor NOTIFY PropertyChanged)

public:
    explicit cProg(QWidget* padre = nullptr);

    /// The percentage shown, cut to 16 bits but not to 0..100. A resize fills the bar until the
    /// next value is set.
    int Value() const { return m_valor; }
    void Value(int porcentaje);
    /// 1 is green, 2 is blue; any other number leaves the colours as they are.
    int PaletteColor() const { return m_paleta; }
    void PaletteColor(int paleta);
    QFont Font() const { return m_letra; }
    void Font(const QFont& letra);

    void WriteProperties(platform::PropertyBag& bolsa) const;
    void ReadProperties(const platform::PropertyBag& bolsa);

    /// The bar's width, in twips.
    int AnchoBarra() const { return m_anchoBarra; }
    QString Rotulo() const;

Q_SIGNALS:
    void PropertyChanged(const QString& nombre);

protected:
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

private:
    struct Colores {
        QRgb fondo;
        QRgb bordeFondo;
        QRgb barra;
        QRgb bordeBarra;
        QRgb texto;
    };
    static const std::array<Colores, 2> kPaletas;

    void DrawBar();
    void ApplyPalette();

    qint16 m_valor = 15;
    int m_paleta = 1;
    QFont m_letra;
    Colores m_colores;
    qint16 m_anchoBarra = 0;
};

} // namespace shared
