// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/rows/Transparency.h"

#include "png/format/Header.h"

#include <cstddef>
#include <cstring>
#include <utility>

namespace png {
namespace {

using Bgra = std::array<uint8_t, 4>;
constexpr uint8_t kOpaque = 255;

std::array<Bgra, 256> ColorsOf(std::span<const uint8_t> palette, std::span<const uint8_t> alpha) {
    std::array<Bgra, 256> colors{};
    for (size_t i = 0; i < colors.size(); ++i) {
        colors[i][3] = kOpaque;
        if (3 * i + 3 > palette.size())
            continue;
        colors[i] = {palette[3 * i + 2], palette[3 * i + 1], palette[3 * i],
                     i < alpha.size() ? alpha[i] : kOpaque};
    }
    return colors;
}

// Pixel `x` of a row, the first one in the high bits.
uint8_t IndexAt(const uint8_t* row, size_t x, size_t bits) {
    const size_t perByte = 8 / bits;
    const size_t shift = (perByte - 1 - x % perByte) * bits;
    return static_cast<uint8_t>(row[x / perByte] >> shift & ((1U << bits) - 1));
}

uint16_t Word(const uint8_t* bytes) {
    return static_cast<uint16_t>(bytes[0] << 8 | bytes[1]);
}

} // namespace

void IndexedToRgba(int32_t width, int32_t height, int32_t bits, std::span<const uint8_t> palette,
                   std::span<const uint8_t> alpha, Bytes& buffer) {
    const auto columns = static_cast<size_t>(width);
    const auto rows = static_cast<size_t>(height);
    const auto depth = static_cast<size_t>(bits);
    const size_t stride = RowStride(columns, depth);
    const std::array<Bgra, 256> colors = ColorsOf(palette, alpha);
    Bytes rgba(4 * columns * rows);
    uint8_t* to = rgba.data();
    for (size_t y = 0; y < rows; ++y) {
        const uint8_t* row = buffer.data() + y * stride;
        for (size_t x = 0; x < columns; ++x, to += 4)
            std::memcpy(to, colors[IndexAt(row, x, depth)].data(), 4);
    }
    buffer = std::move(rgba);
}

std::optional<ColorKey> ReadColorKey(std::span<const uint8_t> trns) {
    if (trns.size() < 6)
        return std::nullopt;
    return ColorKey{Word(&trns[0]), Word(&trns[2]), Word(&trns[4])};
}

void RgbKeyToRgba(int32_t width, int32_t height, const std::optional<ColorKey>& key,
                  Bytes& buffer) {
    const auto columns = static_cast<size_t>(width);
    const auto rows = static_cast<size_t>(height);
    const size_t stride = RowStride(columns, 24);
    const auto low = [&](size_t i) { return key ? (*key)[i] & 0xFF : -1; };
    const int red = low(0);
    const int green = low(1);
    const int blue = low(2);
    Bytes rgba(4 * columns * rows);
    uint8_t* to = rgba.data();
    for (size_t y = 0; y < rows; ++y) {
        const uint8_t* pixel = buffer.data() + y * stride;
        for (size_t x = 0; x < columns; ++x, pixel += 3, to += 4) {
            std::memcpy(to, pixel, 3);
            const bool clear = pixel[0] == blue && pixel[1] == green && pixel[2] == red;
            to[3] = clear ? 0 : kOpaque;
        }
    }
    buffer = std::move(rgba);
}

void RgbKey16ToRgba(const std::optional<ColorKey>& key, Bytes& buffer) {
    const size_t pixels = buffer.size() / 6;
    uint8_t* to = buffer.data();
    for (const uint8_t *pixel = to, *end = to + 6 * pixels; pixel < end; pixel += 6, to += 4) {
        const ColorKey color = {Word(pixel), Word(pixel + 2), Word(pixel + 4)};
        const Bgra bgra = {pixel[4], pixel[2], pixel[0], key == color ? uint8_t{0} : kOpaque};
        std::memcpy(to, bgra.data(), bgra.size());
    }
    buffer.Resize(4 * pixels);
}

} // namespace png
