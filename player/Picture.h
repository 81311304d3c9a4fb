// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/Color.h"
#include "player/Memory.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace player {

constexpr int kMostSide = 4096;

struct Rect {
    int x = 0, y = 0, width = 0, height = 0;
};

/// Eight-bit coverage of a glyph.
struct Mask {
    int width = 0, height = 0;
    std::span<const uint8_t> coverage;
};

/// Pixels and the drawing on them, which is clipped to the picture; coordinates may be anything
/// within what Integer of Userdata.h gives.
struct Picture {
    static constexpr const char* kName = "Image";

    Picture(int wide, int high, bool withoutAlpha = false);

    bool Contains(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
    Pixel At(int x, int y) const { return pixels[Index(x, y)]; }
    void Set(int x, int y, Pixel color) { pixels[Index(x, y)] = color | always; }

    void Clear(Pixel color);
    /// These blend.
    void Fill(const Rect& rect, Pixel color);
    void Line(int x0, int y0, int x1, int y1, Pixel color);
    void Stamp(int x, int y, const Mask& mask, Pixel color);
    /// Blends, or copies the pixels with their alpha.
    void Blit(int x, int y, const Picture& source, const Rect& part, bool blend);

    int width;
    int height;
    Pixel always; // bits that every pixel has: the screen has no alpha
    std::vector<Pixel> pixels;
    Share share;

private:
    size_t Index(int x, int y) const {
        return static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x);
    }
};

/// The colour laid over what is there.
Pixel Over(Pixel below, Pixel color);

} // namespace player
