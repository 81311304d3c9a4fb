// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace shell {

/// A picture that is painted when it is seen, sharp at every scale.
class Cuadro : public QWidget {
public:
    using Pintor = void (*)(QPainter& painter, const QRectF& donde);

    explicit Cuadro(QWidget* parent = nullptr) : QWidget(parent) {}
    void Dibujo(Pintor pintor) { m_pintor = pintor; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Pintor m_pintor = nullptr;
};

} // namespace shell
