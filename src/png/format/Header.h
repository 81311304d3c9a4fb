// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace png {

// What the bytes of IHDR mean: PNG standard, https://www.w3.org/TR/png-3/#11IHDR.
// A file may hold any other value, too.
enum ColorTypes : int32_t {
    kGrey = 0,
    kTrueColor = 2,
    kIndexed = 3,
    kGreyAlpha = 4,
    kTrueColorAlpha = 6,
};
enum CompressionMethods : int32_t { kDeflate = 0 };
enum InterlaceMethods : int32_t { kNotInterlaced = 0, kAdam7 = 1 };

/// What IHDR says of the picture, unchecked, and the sizes that follow from it.
struct Header {
    int32_t Width = 0;
    int32_t Height = 0;
    int32_t Bitdepht = 0;
    int32_t ColorType = 0;
    int32_t Compression = 0;
    int32_t Filter = 0;
    int32_t Interlacing = 0;
    /// The bits of a sample once a stage has changed them; 0 means none has.
    int32_t WorkDepth = 0;

    /// 0 for a colour type that doesn't exist.
    int32_t BitsPerPixel() const {
        const int32_t depth = WorkDepth != 0 ? WorkDepth : Bitdepht;
        switch (ColorType) {
        case kGrey:
        case kIndexed:
            return depth;
        case kTrueColor:
            return 3 * depth;
        case kGreyAlpha:
            return 2 * depth;
        case kTrueColorAlpha:
            return 4 * depth;
        default:
            return 0;
        }
    }
    /// The distance of the filters.
    int32_t BytesPerPixel() const { return std::max(1, BitsPerPixel() / 8); }
    /// A row as it is stored, with its filter byte. Negative widths aren't allowed.
    int64_t LineBytes() const { return (int64_t{Width} * BitsPerPixel() + 7) / 8 + 1; }
};

/// The bytes of a row of a device-independent bitmap: padded to a multiple of 4.
constexpr size_t RowStride(size_t width, size_t bits) {
    return (width * bits + 31) / 32 * 4;
}

} // namespace png
