// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/Convert.h"

#include "png/Deinterlace.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace png {
namespace {

template<size_t bytes>
void SwapRedBlue(Bytes& buffer) {
    for (size_t i = 0; i + bytes <= buffer.size(); i += bytes)
        std::swap(buffer[i], buffer[i + 2]);
}

} // namespace

void SwapRedBlue24(Bytes& buffer) {
    SwapRedBlue<3>(buffer);
}

void SwapRedBlue32(Bytes& buffer) {
    SwapRedBlue<4>(buffer);
}

void Reduce16To8(Bytes& buffer) {
    const size_t half = buffer.size() / 2;
    for (size_t i = 0; i < half; ++i)
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
    Bytes aligned(height * stride);
    for (size_t y = 0; y < height; ++y) {
        uint8_t* to = aligned.data() + y * stride;
        std::copy_n(buffer.data() + y * length, length, to);
        std::fill(to + length, to + stride, uint8_t{0});
    }
    buffer = std::move(aligned);
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
