// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/draw/Bitmap.h"

#include "png/format/Header.h"

#include <cassert>
#include <cstddef>
#include <utility>

namespace png {
namespace {

void Store(uint8_t* pixel, uint8_t blue, uint8_t green, uint8_t red) {
    pixel[0] = blue;
    pixel[1] = green;
    pixel[2] = red;
    pixel[3] = 255;
}

} // namespace

Bitmap::Bitmap(const BitmapInfoHeader& header, std::span<const RgbQuad> colors, Bytes bits)
    : m_header(header), m_colors(colors.begin(), colors.end()), m_bits(std::move(bits)) {
    assert(m_bits.size() >= RowStride(static_cast<size_t>(Width()), header.BitCount) *
                                static_cast<size_t>(Height()));
}

void Bitmap::CopyRow(int y, uint8_t* pixels) const {
    const auto width = static_cast<size_t>(Width());
    const size_t bits = m_header.BitCount;
    const int stored = m_header.Height < 0 ? y : Height() - 1 - y;
    const uint8_t* row = m_bits.data() + static_cast<size_t>(stored) * RowStride(width, bits);
    const size_t step = bits / 8;
    for (size_t x = 0; x < width; ++x) {
        if (bits > 8) {
            Store(pixels + 4 * x, row[step * x], row[step * x + 1], row[step * x + 2]);
            continue;
        }
        const size_t first =
            x * bits; // the pixel's first bit, counted from the high one of the row
        const size_t index = row[first / 8] >> (8 - bits - first % 8) & ((1U << bits) - 1);
        const RgbQuad& color = m_colors[index];
        Store(pixels + 4 * x, color.Blue, color.Green, color.Red);
    }
}

} // namespace png
