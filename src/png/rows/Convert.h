// SPDX-License-Identifier: GPL-3.0-or-later
// What turns the samples of a file into those of a bitmap. Everything happens in place unless the
// buffer grows.
#pragma once

#include "png/format/Bytes.h"
#include "png/format/Header.h"

#include <cstddef>
#include <cstdint>

namespace png {

/// Swaps bytes 0 and 2 of each 3, or of each 4.
void SwapRedBlue24(Bytes& buffer);
void SwapRedBlue32(Bytes& buffer);

/// Keeps the high byte of each 16-bit sample.
void Reduce16To8(Bytes& buffer);

/// Pads the rows, whose length is LineBytes - 1, to RowStride(Width, bits). Nothing for 32 bits.
void AlignRows(const Header& header, int32_t bits, Bytes& buffer);

/// From packed 2-bit rows of lineBytes - 1 bytes to one byte per pixel in rows of RowStride(width,
/// 8).
void Expand2BitTo8(int32_t width, int32_t height, Bytes& buffer, int64_t lineBytes);

/// Each pair grey, alpha becomes grey, grey, grey, alpha.
void GreyAlphaToRgba(Bytes& buffer);

/// Reverses the order of the rows.
void FlipRows(Bytes& buffer, size_t rowBytes);

} // namespace png
