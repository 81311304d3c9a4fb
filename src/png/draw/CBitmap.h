// SPDX-License-Identifier: GPL-3.0-or-later
// The bitmap descriptors with their colour tables, shared by all pictures, and the painting of the
// bitmap that was made last. Not for more than one thread.
#pragma once

#include "png/draw/Bitmap.h"
#include "png/draw/PictureBox.h"
#include "png/format/Bytes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace png::CBitmap {

template<size_t colors>
struct BitmapInfo {
    BitmapInfoHeader Header;
    std::array<RgbQuad, colors> Colors{};
};

// The tables keep their entries from one picture to the next.
extern BitmapInfo<2> Info1;
extern BitmapInfo<16> Info4;
extern BitmapInfo<256> Info8;
extern BitmapInfo<0> Info24;
extern BitmapInfo<0> Info32;
/// The bitmap just made; DrawBitmap uses it up.
extern std::unique_ptr<Bitmap> BitmapHandle;

/// The greys of 1, 2, 4, 8 or 16 bits (256 for 16) as red, green, blue each; none for other depths.
/// They also go into a shared table: those of 1 bit only with ForceTo8, those of 4 bits into Info8
/// with it and into Info4 without.
Bytes MakeGreyPalette(int32_t bits, bool ForceTo8);

void SetBlackWhitePalette();
/// Red, green, blue per entry; black and white unless there are exactly two.
void SetPaletteFor1Bit(std::span<const uint8_t> palette);
/// Entries that the palette lacks are black; those past the table are left out.
void SetPaletteFor4Bit(std::span<const uint8_t> palette);
void SetPaletteFor8Bit(std::span<const uint8_t> palette);

/// Make a bitmap of all rows, padded to RowStride bytes, and take the buffer over.
void CreateBitmap1(Bytes& buffer, int32_t width, int32_t height, bool TopDown);
void CreateBitmap4(Bytes& buffer, int32_t width, int32_t height, bool TopDown);
void CreateBitmap8(Bytes& buffer, int32_t width, int32_t height, bool TopDown);
/// Mode 0: 32 bits; mode 1: 24 bits.
void CreateBitmapTrue(Bytes& buffer, int32_t width, int32_t height, bool TopDown, int32_t mode);

/// A pair of lengths, across and down.
struct Extent {
    double x = 0;
    double y = 0;
};
Extent PixelsToTwips(const PictureBox& screen, Extent pixels);
Extent TwipsToPixels(const PictureBox& screen, Extent twips);

/// Clears the box and copies the bitmap to X, Y of it, in pixels, so that it persists. Unless
/// SetToBG is set, the box takes the picture's size for its inner area.
void DrawBitmap(int32_t width, int32_t height, PictureBox& box, bool FitBox, int32_t X, int32_t Y,
                bool SetToBG);

} // namespace png::CBitmap
