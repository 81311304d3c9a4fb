// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Cuadro.h"

#include <QPainter>

namespace shell {

void Cuadro::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    if (m_pintor)
        m_pintor(painter, rect());
}

} // namespace shell
