// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/Line.h"

#include "platform/base/Twips.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace platform {
namespace {

constexpr int kDash = 4; // pixels

// The pixel that holds the point.
int PixelAt(float twips) {
    return static_cast<int>(std::floor(twips / kTwipsPerPixel));
}

} // namespace

Line::Line(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

QPoint Line::First() const {
    return parentWidget()->contentsRect().topLeft() + QPoint(PixelAt(m_x1), PixelAt(m_y1));
}

QPoint Line::Last() const {
    return parentWidget()->contentsRect().topLeft() + QPoint(PixelAt(m_x2), PixelAt(m_y2));
}

void Line::Place() {
    const auto [left, right] = std::minmax({First().x(), Last().x()});
    const auto [top, bottom] = std::minmax({First().y(), Last().y()});
    setGeometry(QRect(QPoint(left, top), QPoint(right, bottom)));
}

void Line::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.translate(QPointF(0.5, 0.5) - pos());
    painter.setPen(Qt::white);
    painter.drawLine(First(), Last());
    QPen dashes(Qt::black, 1, Qt::CustomDashLine, Qt::FlatCap);
    dashes.setDashPattern({kDash, kDash});
    painter.setPen(dashes);
    painter.drawLine(First(), Last());
}

} // namespace platform
