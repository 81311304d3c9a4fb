// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/format/Bytes.h"

#include <cstdint>
#include <span>
#include <vector>

namespace png {

/// An entry of a colour table, as it lies in a device-independent bitmap.
struct RgbQuad {
    uint8_t Blue = 0;
    uint8_t Green = 0;
    uint8_t Red = 0;
    uint8_t Reserved = 0;
};

/// The header of a device-independent bitmap; the names follow the bitmap format.
struct BitmapInfoHeader {
    uint32_t Size = 40;
    int32_t Width = 0;
    int32_t Height = 0; ///< negative: the first row in memory is the top one
    uint16_t Planes = 1;
    uint16_t BitCount = 0; ///< 1, 4, 8, 24 or 32
    uint32_t Compression = 0;
    uint32_t SizeImage = 0;
    int32_t XPelsPerMeter = 0;
    int32_t YPelsPerMeter = 0;
    uint32_t ClrUsed = 0;
    uint32_t ClrImportant = 0;
};

/// A finished picture: header, colour table and rows, ready to be copied to a picture box.
class Bitmap {
public:
    /// `colors` holds as many entries as the bit count can name, none for 24 and 32 bits; `bits`
    /// holds all rows of RowStride bytes each.
    Bitmap(const BitmapInfoHeader& header, std::span<const RgbQuad> colors, Bytes bits);

    int Width() const { return m_header.Width; }
    int Height() const { return m_header.Height < 0 ? -m_header.Height : m_header.Height; }
    const BitmapInfoHeader& Header() const { return m_header; }
    const Bytes& Bits() const { return m_bits; }

    /// Writes row `y`, counted from the top, as Width pixels of blue, green, red and 255.
    void CopyRow(int y, uint8_t* pixels) const;

private:
    BitmapInfoHeader m_header;
    std::vector<RgbQuad> m_colors;
    Bytes m_bits;
};

} // namespace png
