// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace shell {

/// A picture that is painted at each paint event, so that it is sharp at every scale.
class Cuadro : public QWidget {
public:
    using Trazado = void (*)(QPainter& pintor, const QRectF& donde);

    explicit Cuadro(QWidget* padre = nullptr) : QWidget(padre) {}
    void Dibujo(Trazado trazado) { m_trazado = trazado; }

protected:
    void paintEvent(QPaintEvent* evento) override;

private:
    Trazado m_trazado = nullptr;
};

} // namespace shell
