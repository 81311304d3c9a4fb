// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/Bytes.h"
#include "png/PictureBox.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace png {

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
        case 0:
        case 3:
            return depth;
        case 2:
            return 3 * depth;
        case 4:
            return 2 * depth;
        case 6:
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

/// The state of a LoadPNG beside the one of its Inflate.
struct Fields : Header {
    Bytes IdatData; ///< all IDAT payloads in file order
    int32_t IdatSize = 0;
    Bytes PaletteData; ///< red, green, blue per entry
    int32_t ErrorNumber = 0;
    bool SetAlpha = false;
    bool HaveAlpha = false;
    Bytes TrnsData;
    bool HaveTransparence = false;
    bool SetTrans = false;
    Bytes BkgdData;
    bool HasBKGDChunk = false;
    int32_t BkgdColor = 0;
    std::string Text;
    std::string ModiTime;
    std::string zText;
    int32_t GamaRaw = 0; ///< gamma x 100000
    int32_t DrawX = 0;
    int32_t DrawY = 0;
    PictureBox* BackgroundPicture = nullptr;
    bool OwnBkgndOn = false;
    int32_t OwnBackColor = 0;
    PictureBox* PicBox = nullptr;
    bool SetToBG = false;
};

} // namespace png
