// SPDX-License-Identifier: GPL-3.0-or-later
// Interlaced pictures: Adam7, PNG standard,
// https://www.w3.org/TR/png-3/#8InterlaceMethods.
#pragma once

#include "png/format/Bytes.h"
#include "png/format/Header.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace png {

/// The bytes of a row of a pass. The digits of the pattern name the columns, counted from 1, that
/// the pass has in each block of 8 pixels.
int64_t PassRowBytes(int32_t width, int32_t bitsPerPixel, std::string_view pattern);

/// The bytes of all passes with their filter bytes.
int64_t InterlacedBytes(const Header& header);

/// A packed row of 1, 2 or 4 bits per pixel as one byte per pixel. `pixels` says how many.
void ExpandRowToBytes(std::span<const uint8_t> row, int32_t bitDepth, std::span<uint8_t> pixels);

/// Undoes the filters and puts the passes together: Width pixels a row of whole bytes each, one
/// byte for a pixel of less than 8 bits. The data must hold all passes; it is used up.
Bytes Deinterlace(const Header& header, Bytes data);

} // namespace png
