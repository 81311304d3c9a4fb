// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/rows/Convert.h"

#include "png/format/Machine.h"
#include "png/rows/Deinterlace.h"
#include "png/rows/RowsSsse3.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>
#include <utility>

namespace png {

void SwapRedBlue24(Bytes& buffer) {
    const std::span pixels(buffer.data(), buffer.size());
    const size_t done = ThisMachine().Ssse3 ? SwapRedBlue24Ssse3(pixels) : 0;
    for (uint8_t* pixel = buffer.begin() + done; buffer.end() - pixel >= 3; pixel += 3)
        std::swap(pixel[0], pixel[2]);
}

void SwapRedBlue32(Bytes& buffer) {
    for (uint8_t* pixel = buffer.begin(); buffer.end() - pixel >= 4; pixel += 4) {
        uint32_t bytes = 0;
        std::memcpy(&bytes, pixel, sizeof bytes);
        bytes = (bytes & 0xFF00FF00U) | (bytes & 0xFFU) << 16 | (bytes >> 16 & 0xFFU);
        std::memcpy(pixel, &bytes, sizeof bytes);
    }
}

void Reduce16To8(Bytes& buffer) {
    const size_t half = buffer.size() / 2;
    size_t i = 0;
    // As words, whose low byte is the sample's high one, and through buffers of fixed size: of that
    // compilers make vector instructions that narrow all at once.
    for (std::array<uint16_t, 16> from{}; i + from.size() <= half; i += from.size()) {
        std::array<uint8_t, from.size()> to{};
        std::memcpy(from.data(), buffer.data() + 2 * i, sizeof from);
        std::ranges::transform(from, to.begin(), [](uint16_t word) { return word & 0xFF; });
        std::memcpy(buffer.data() + i, to.data(), sizeof to);
    }
    for (; i < half; ++i)
        buffer[i] = buffer[2 * i];
    buffer.Resize(half);
    buffer.Trim();
}

void AlignRows(const Header& header, int32_t bits, Bytes& buffer) {
    const auto length = static_cast<size_t>(header.LineBytes() - 1);
    const size_t stride = RowStride(static_cast<size_t>(header.Width), static_cast<size_t>(bits));
    if (bits == 32 || stride == length)
        return;
    const auto height = static_cast<size_t>(header.Height);
    buffer.Resize(height * stride);
    for (size_t y = height; y-- > 0;) { // the last row first, as they move up
        uint8_t* to = buffer.data() + y * stride;
        std::memmove(to, buffer.data() + y * length, length);
        std::fill(to + length, to + stride, uint8_t{0});
    }
}

void Expand2BitTo8(int32_t width, int32_t height, Bytes& buffer, int64_t lineBytes) {
    const auto pixels = static_cast<size_t>(width);
    const auto rows = static_cast<size_t>(height);
    const auto length = static_cast<size_t>(lineBytes - 1);
    const size_t stride = RowStride(pixels, 8);
    Bytes expanded(rows * stride);
    for (size_t y = 0; y < rows; ++y) {
        const std::span to(expanded.data() + y * stride, stride);
        ExpandRowToBytes(std::span(buffer.data() + y * length, length), 2, to.first(pixels));
        std::ranges::fill(to.subspan(pixels), uint8_t{0});
    }
    buffer = std::move(expanded);
}

void GreyAlphaToRgba(Bytes& buffer) {
    const size_t pixels = buffer.size() / 2;
    Bytes rgba(pixels * 4);
    for (size_t i = 0; i < pixels; ++i) {
        std::memset(rgba.data() + 4 * i, buffer[2 * i], 3);
        rgba[4 * i + 3] = buffer[2 * i + 1];
    }
    buffer = std::move(rgba);
}

void FlipRows(Bytes& buffer, size_t rowBytes) {
    if (buffer.empty())
        return;
    for (uint8_t *top = buffer.begin(), *bottom = buffer.end() - rowBytes; top < bottom;
         top += rowBytes, bottom -= rowBytes)
        std::swap_ranges(top, top + rowBytes, bottom);
}

} // namespace png
