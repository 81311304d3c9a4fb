// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/forms/Arrange.h"

#include <algorithm>
#include <cmath>

namespace platform {

std::vector<QRect> CascadeRects(QSize area, int count, int step) {
    const QSize size(area.width() * 3 / 4, area.height() * 3 / 4);
    const int room = std::min(area.width() - size.width(), area.height() - size.height());
    const int perRun = std::max(1, room / std::max(1, step) + 1);
    std::vector<QRect> rects;
    for (int i = 0; i < count; ++i) {
        const int offset = i % perRun * step;
        rects.emplace_back(QPoint(offset, offset), size);
    }
    return rects;
}

std::vector<QRect> TileVerticallyRects(QSize area, int count) {
    std::vector<QRect> rects;
    // As many rows as fit a square, and the last columns take one window more if it doesn't divide.
    const int rows = static_cast<int>(std::sqrt(count));
    const int columns = rows > 0 ? count / rows : 0;
    const int fuller = columns > 0 ? count - rows * columns : 0;
    for (int column = 0; column < columns; ++column) {
        const int inColumn = rows + (column >= columns - fuller ? 1 : 0);
        const int left = area.width() * column / columns;
        const int right = area.width() * (column + 1) / columns;
        for (int row = 0; row < inColumn; ++row) {
            const int top = area.height() * row / inColumn;
            const int bottom = area.height() * (row + 1) / inColumn;
            rects.emplace_back(left, top, right - left, bottom - top);
        }
    }
    return rects;
}

std::vector<QRect> TileHorizontallyRects(QSize area, int count) {
    std::vector<QRect> rects = TileVerticallyRects(area.transposed(), count);
    for (QRect& rect : rects)
        rect = QRect(rect.y(), rect.x(), rect.height(), rect.width());
    return rects;
}

std::vector<QRect> StackRects(QSize area, const std::vector<QSize>& sizes) {
    std::vector<QRect> rects;
    int right = area.width(); // of the column
    int left = right;
    int top = 0;
    for (const QSize& size : sizes) {
        if (top > 0 && top + size.height() > area.height()) {
            right = left;
            top = 0;
        }
        rects.push_back(MovedInside({QPoint(right - size.width(), top), size}, area));
        left = std::min(left, rects.back().left());
        top += size.height();
    }
    return rects;
}

QRect MovedInside(QRect rect, QSize area) {
    rect.moveLeft(std::max(0, std::min(rect.left(), area.width() - rect.width())));
    rect.moveTop(std::max(0, std::min(rect.top(), area.height() - rect.height())));
    return rect;
}

std::vector<QRect> IconRects(QSize area, int count, QSize icon) {
    const int perRow = std::max(1, area.width() / std::max(1, icon.width()));
    std::vector<QRect> rects;
    for (int i = 0; i < count; ++i) {
        const int row = i / perRow;
        rects.emplace_back(
            QPoint(i % perRow * icon.width(), area.height() - (row + 1) * icon.height()), icon);
    }
    return rects;
}

} // namespace platform
