// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Cuadro.h"

#include <QPainter>

namespace shell {

void Cuadro::paintEvent(QPaintEvent* evento) {
    QWidget::paintEvent(evento);
    QPainter pintor(this);
    pintor.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    if (m_trazado)
        m_trazado(pintor, rect());
}

} // namespace shell
