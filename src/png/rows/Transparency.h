// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures without an alpha channel whose tRNS chunk makes pixels transparent: they become blue,
// green, red, alpha in rows of 4 x width bytes.
#pragma once

#include "png/format/Bytes.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace png {

/// Palette indices of 1, 4 or 8 bits in rows of RowStride(width, bits). `palette` holds red, green,
/// blue per entry; an index past it is black and opaque. `alpha` holds a byte per entry; an index
/// past it is opaque.
void IndexedToRgba(int32_t width, int32_t height, int32_t bits, std::span<const uint8_t> palette,
                   std::span<const uint8_t> alpha, Bytes& buffer);

/// The three 16-bit samples of a tRNS chunk of a true colour picture.
using ColorKey = std::array<uint16_t, 3>;
/// None if the chunk is too short to hold them.
std::optional<ColorKey> ReadColorKey(std::span<const uint8_t> trns);

/// Blue, green, red in rows of RowStride(width, 24). Only the low bytes of the key count.
void RgbKeyToRgba(int32_t width, int32_t height, const std::optional<ColorKey>& key, Bytes& buffer);

/// The same for samples of 16 bits as they stand in the file, in rows without padding: they are
/// compared whole before their low bytes go.
void RgbKey16ToRgba(const std::optional<ColorKey>& key, Bytes& buffer);

} // namespace png
