// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/FontOfHeight.h"

#include <QApplication>
#include <QFontMetrics>
#include <algorithm>

namespace platform {

QFont FontOfHeight(int pixels) {
    QFont font = QApplication::font();
    int size = std::max(pixels, 1);
    font.setPixelSize(size);
    while (size > 1 && QFontMetrics(font).height() > pixels)
        font.setPixelSize(--size);
    return font;
}

} // namespace platform
