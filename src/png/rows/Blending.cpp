// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/rows/Blending.h"

#include "png/format/Header.h"

#include <algorithm>
#include <cstring>

namespace png {
namespace {

uint8_t Mix(int source, int background, int alpha) {
    return static_cast<uint8_t>((source * alpha + background * (255 - alpha) + 255) >> 8);
}

void BlendRow(const uint8_t* from, const uint8_t* background, uint8_t* to, int32_t width) {
    for (int32_t x = 0; x < width; ++x, from += 4, background += 3, to += 3) {
        const int alpha = from[3];
        if (alpha == 255)
            std::memmove(to, from, 3);
        else if (alpha == 0)
            std::memcpy(to, background, 3);
        else {
            for (int c = 0; c < 3; ++c)
                to[c] = Mix(from[c], background[c], alpha);
        }
    }
}

} // namespace

void FillBackground(Bytes& buffer, int32_t color, size_t rowBytes) {
    for (size_t row = 0; row + rowBytes <= buffer.size(); row += rowBytes) {
        uint8_t* to = buffer.data() + row;
        for (size_t i = 0; i < rowBytes; ++i)
            to[i] = static_cast<uint8_t>(color >> (16 - 8 * (i % 3)));
    }
}

void BlendRows(const Background& background, int32_t width, int32_t height, Bytes& Data) {
    const auto columns = static_cast<size_t>(width);
    const auto rows = static_cast<size_t>(height);
    const size_t stride = RowStride(columns, 24);
    // A row of the result is never longer than its source, so it can take the place of it.
    for (size_t y = 0; y < rows; ++y) {
        uint8_t* to = Data.data() + y * stride;
        BlendRow(Data.data() + y * 4 * columns, background.rows.data() + y * background.step, to,
                 width);
        std::fill(to + 3 * columns, to + stride, uint8_t{0});
    }
    Data.Resize(rows * stride);
}

} // namespace png
