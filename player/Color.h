// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace player {

/// A colour as pictures keep it: 0xAARRGGBB.
using Pixel = uint32_t;

constexpr Pixel kOpaque = 0xFF000000;
constexpr Pixel kBlack = kOpaque;

struct Color {
    static constexpr const char* kName = "Color";
    Pixel pixel = kBlack;
};

} // namespace player
