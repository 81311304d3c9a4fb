// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace platform {

/// Sizes and places of windows are given in twips; 15 twips are one logical pixel.
inline constexpr int kTwipsPerPixel = 15;
/// On paper, whatever the resolution of the printer is.
inline constexpr double kTwipsPerInch = 1440;

constexpr int ToPixels(int twips) {
    const int half = kTwipsPerPixel / 2;
    return (twips + (twips < 0 ? -half : half)) / kTwipsPerPixel;
}

constexpr int ToTwips(int pixels) {
    return pixels * kTwipsPerPixel;
}

} // namespace platform
