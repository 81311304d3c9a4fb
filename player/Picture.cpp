// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Picture.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <utility>

namespace player {
namespace {

constexpr Pixel kRedBlue = 0x00FF00FF;
constexpr Pixel kGreen = 0x0000FF00;

Pixel Alpha(Pixel color) {
    return color >> 24;
}

// Over an opaque pixel. Red and blue are computed in one go.
inline Pixel OverOpaque(Pixel below, Pixel color) {
    const Pixel alpha = Alpha(color) + (Alpha(color) >> 7);
    const Pixel rest = 256 - alpha;
    const Pixel redBlue = ((color & kRedBlue) * alpha + (below & kRedBlue) * rest) >> 8 & kRedBlue;
    const Pixel green = ((color & kGreen) * alpha + (below & kGreen) * rest) >> 8 & kGreen;
    return kOpaque | redBlue | green;
}

// Over a translucent pixel: each colour is weighted by what is seen of it.
Pixel OverTranslucent(Pixel below, Pixel color) {
    const Pixel front = Alpha(color) * 255;
    const Pixel back = Alpha(below) * (255 - Alpha(color));
    const Pixel all = front + back;
    Pixel result = (all + 127) / 255 << 24;
    for (const int shift : {0, 8, 16}) {
        const Pixel sum = (color >> shift & 255) * front + (below >> shift & 255) * back;
        result |= (sum + all / 2) / all << shift;
    }
    return result;
}

void BlendRow(Pixel* target, const Pixel* source, int count) {
    for (int i = 0; i < count; ++i)
        target[i] = Over(target[i], source[i]);
}

// Without branches, for the compiler to vectorise.
void BlendRowOpaque(Pixel* __restrict target, const Pixel* __restrict source, int count) {
    for (int i = 0; i < count; ++i)
        target[i] = OverOpaque(target[i], source[i]);
}

// Clips a span that goes from `start` of a source to `place` of a target to the sizes of both.
void Clip(int& place, int& start, int& length, int target, int source) {
    const int before = std::max({0, -place, -start});
    place += before;
    start += before;
    length = std::min({length - before, target - place, source - start});
}

} // namespace

Pixel Over(Pixel below, Pixel color) {
    if (Alpha(color) == 255)
        return color;
    if (Alpha(color) == 0)
        return below;
    return Alpha(below) == 255 ? OverOpaque(below, color) : OverTranslucent(below, color);
}

Picture::Picture(int wide, int high, bool withoutAlpha)
    : width(wide),
      height(high),
      always(withoutAlpha ? kOpaque : 0),
      pixels(static_cast<size_t>(wide) * static_cast<size_t>(high), always) {}

void Picture::Clear(Pixel color) {
    std::fill(pixels.begin(), pixels.end(), color | always);
}

void Picture::Fill(const Rect& rect, Pixel color) {
    const int left = std::max(rect.x, 0);
    const int right = std::min(rect.x + rect.width, width);
    for (int y = std::max(rect.y, 0); y < std::min(rect.y + rect.height, height); ++y) {
        Pixel* const row = &pixels[Index(0, y)];
        for (int x = left; x < right; ++x)
            row[x] = Over(row[x], color);
    }
}

void Picture::Line(int x0, int y0, int x1, int y1, Pixel color) {
    const bool steep = std::abs(y1 - y0) > std::abs(x1 - x0);
    if (steep) {
        std::swap(x0, y0);
        std::swap(x1, y1);
    }
    if (x0 > x1) {
        std::swap(x0, x1);
        std::swap(y0, y1);
    }
    const int64_t length = std::max(x1 - x0, 1);
    const int last = std::min(x1, (steep ? height : width) - 1);
    for (int x = std::max(x0, 0); x <= last; ++x) {
        const int64_t way = int64_t{x - x0} * (y1 - y0);
        const int64_t half = way < 0 ? -length / 2 : length / 2;
        const int y = y0 + static_cast<int>((way + half) / length);
        const int column = steep ? y : x;
        const int row = steep ? x : y;
        if (Contains(column, row))
            Set(column, row, Over(At(column, row), color));
    }
}

void Picture::Stamp(int x, int y, const Mask& mask, Pixel color) {
    int row = 0, column = 0;
    int rows = mask.height, columns = mask.width;
    Clip(x, column, columns, width, mask.width);
    Clip(y, row, rows, height, mask.height);
    for (int j = 0; j < rows; ++j) {
        for (int i = 0; i < columns; ++i) {
            const ptrdiff_t place = ptrdiff_t{row + j} * mask.width + column + i;
            const Pixel alpha = Alpha(color) * mask.coverage[static_cast<size_t>(place)] / 255;
            Pixel& target = pixels[Index(x + i, y + j)];
            target = Over(target, (color & ~kOpaque) | alpha << 24);
        }
    }
}

void Picture::Blit(int x, int y, const Picture& source, const Rect& part, bool blend) {
    Rect clipped = part;
    Clip(x, clipped.x, clipped.width, width, source.width);
    Clip(y, clipped.y, clipped.height, height, source.height);
    if (clipped.width <= 0 || clipped.height <= 0)
        return;
    if (&source == this) { // the parts may lie over each other
        Picture copy(clipped.width, clipped.height);
        copy.Blit(0, 0, source, clipped, false);
        return Blit(x, y, copy, {0, 0, clipped.width, clipped.height}, blend);
    }
    for (int row = 0; row < clipped.height; ++row) {
        const Pixel* const from = &source.pixels[source.Index(clipped.x, clipped.y + row)];
        Pixel* const to = &pixels[Index(x, y + row)];
        if (blend && always)
            BlendRowOpaque(to, from, clipped.width);
        else if (blend)
            BlendRow(to, from, clipped.width);
        else
            std::transform(from, from + clipped.width, to, [this](Pixel p) { return p | always; });
    }
}

} // namespace player
