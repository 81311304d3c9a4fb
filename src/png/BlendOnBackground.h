// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/Fields.h"
#include "png/draw/PictureBox.h"
#include "png/format/Bytes.h"

#include <cstdint>

namespace png {

/// Blends Data (blue, green, red, alpha; the bottom row first) with the pixels of the box at X, Y,
/// or with the colour of the fields without one. Data becomes blue, green, red in rows of
/// RowStride(Width, 24). A box that is too small grows first. Nothing that fails stops it: a box
/// that gives no pixels counts as black.
void BlendOnBackground(const Fields& fields, PictureBox* box, Bytes& Data, int32_t X, int32_t Y);

} // namespace png
