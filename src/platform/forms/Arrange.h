// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>
#include <QSize>
#include <vector>

namespace platform {

/// Places for windows inside a frame, in pixels, first window first.

/// Each one `step` further right and down than the last, starting anew at the top when it would
/// leave.
std::vector<QRect> CascadeRects(QSize area, int count, int step);
/// Rows across the whole width, one above the other; a grid from the fourth window on.
std::vector<QRect> TileHorizontallyRects(QSize area, int count);
/// Columns of the whole height, side by side; a grid from the fourth window on.
std::vector<QRect> TileVerticallyRects(QSize area, int count);
/// Windows that keep their sizes: below each other from the upper right corner, and in a further
/// column to the left where the area ends.
std::vector<QRect> StackRects(QSize area, const std::vector<QSize>& sizes);
/// The rectangle moved into the area; its upper left corner is in there whatever its size.
QRect MovedInside(QRect rect, QSize area);
/// Icons of one size in rows along the bottom edge, from the left.
std::vector<QRect> IconRects(QSize area, int count, QSize icon);

} // namespace platform
