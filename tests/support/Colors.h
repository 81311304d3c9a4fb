// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSet>
#include <QWidget>

namespace support {

/// The colours that the widget shows there, or anywhere.
inline QSet<QRgb> Colors(QWidget& widget, const QRect& area = {}) {
    const QImage image = widget.grab(area.isNull() ? widget.rect() : area).toImage();
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            colors.insert(image.pixel(x, y));
    return colors;
}

} // namespace support
