// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/draw/PictureBox.h"
#include "png/format/Bytes.h"
#include "png/format/Header.h"

#include <cstdint>
#include <string>

namespace png {

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
