// SPDX-License-Identifier: GPL-3.0-or-later
// Transparent pixels over what lies below them.
#pragma once

#include "png/format/Bytes.h"

#include <cstddef>
#include <cstdint>

namespace png {

/// Writes the colour (red + 256 x green + 65536 x blue) into every pixel of every row, as blue,
/// green, red.
void FillBackground(Bytes& buffer, int32_t color, size_t rowBytes);

/// Rows of RowStride(width, 24) bytes under a picture, blue, green, red.
struct Background {
    Bytes rows;
    size_t step = 0; ///< from one to the next; 0 repeats the first
};

/// Blends Data, rows of blue, green, red, alpha without padding, with what lies below. It becomes
/// rows as those, in place.
void BlendRows(const Background& background, int32_t width, int32_t height, Bytes& Data);

} // namespace png
