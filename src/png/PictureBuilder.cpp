// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/PictureBuilder.h"

#include "png/BlendOnBackground.h"
#include "png/draw/CBitmap.h"
#include "png/format/Header.h"
#include "png/inflate/DeflateTables.h"
#include "png/rows/Convert.h"
#include "png/rows/Deinterlace.h"
#include "png/rows/Transparency.h"
#include "png/rows/Unfilter.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <utility>

namespace png {
namespace {

constexpr size_t kZlibHeader = 2;
constexpr int64_t kMost = std::numeric_limits<int32_t>::max();

bool HasKnownInterlacing(const Header& header) {
    return header.Interlacing == kNotInterlaced || header.Interlacing == kAdam7;
}

// For how many bytes of a stream there should be room. A header may promise any number.
int64_t ExpectedBytes(const Header& header) {
    if (!HasKnownInterlacing(header) || header.Height <= 0)
        return 0;
    const int64_t line = header.LineBytes() + (header.Interlacing == kAdam7 ? 1 : 0);
    return line > kMost / header.Height ? kMost : std::max(int64_t{0}, line * header.Height);
}

// The bytes of all rows as they come out of the stream, with their filter bytes.
int64_t StoredBytes(const Header& header) {
    return header.Interlacing == kAdam7 ? InterlacedBytes(header)
                                        : header.Height * header.LineBytes();
}

// The most bits that a pixel has on its way to the bitmap, once the rows are there.
int32_t WidestPixel(const Header& header, bool toRgba) {
    if (toRgba)
        return 32;
    const bool wholeBytes = header.Interlacing == kAdam7 || header.Bitdepht == 2;
    return std::max(header.BitsPerPixel(), wholeBytes ? 8 : 1);
}

bool HasChannel(const Header& header) {
    return header.ColorType == kGreyAlpha || header.ColorType == kTrueColorAlpha;
}

bool HasWholeBytes(const Header& header) {
    return header.Bitdepht == 8 || header.Bitdepht == 16;
}

// Whether there is a picture at all, and every size on the way to it can be counted.
bool IsPossible(const Header& header, bool toRgba) {
    if (header.Width <= 0 || header.Height <= 0 || !HasKnownInterlacing(header) ||
        header.BitsPerPixel() == 0)
        return false;
    const int32_t bits = header.BitsPerPixel();
    if (header.Interlacing == kAdam7 && bits < 8 && bits != 1 && bits != 2 && bits != 4)
        return false; // parts of bytes that no PNG file has
    const auto stride = RowStride(static_cast<size_t>(header.Width),
                                  static_cast<size_t>(WidestPixel(header, toRgba)));
    return std::max(header.LineBytes(), static_cast<int64_t>(stride)) <= kMost / header.Height;
}

} // namespace

void PictureBuilder::BuildPicture() {
    m_fields.HaveAlpha = HasChannel(m_fields) && HasWholeBytes(m_fields);
    const bool keyed = IsKeyed();
    const bool possible = IsPossible(m_fields, keyed || HasChannel(m_fields));
    const int64_t stored = possible ? StoredBytes(m_fields) : 0;
    Unpack(stored);
    if (!possible || static_cast<int64_t>(Data.size()) < stored)
        return;
    Reconstruct();
    Convert();
    if (keyed)
        ApplyTransparence();
    Paint();
}

bool PictureBuilder::IsKeyed() const {
    return m_fields.HaveTransparence && m_fields.SetTrans &&
           (m_fields.ColorType == kGrey || m_fields.ColorType == kTrueColor ||
            m_fields.ColorType == kIndexed);
}

// Takes the image data out of its stream, with room for all that is stored. Even a stream for which
// there will be no picture is read, as its codes may give a message.
void PictureBuilder::Unpack(int64_t stored) {
    Data = std::move(m_fields.IdatData);
    Data.DropFront(kZlibHeader);
    if (m_fields.Compression != kDeflate)
        return;
    // Narrow interlaced pictures have more bytes than expected, and no stream gives all that a
    // header may promise.
    const int64_t most =
        std::min(static_cast<int64_t>(kMostGrowth * Data.size()), int64_t{Inflater::kMostExpected});
    auto ExpectedSize =
        static_cast<int32_t>(std::min(std::max(ExpectedBytes(m_fields), stored), most));
    int32_t Result = 0;
    m_inflater.Inflate(Data, ExpectedSize, false, Result);
}

void PictureBuilder::Reconstruct() {
    RowBits = m_fields.BitsPerPixel();
    if (m_fields.Interlacing == kAdam7) {
        Data = Deinterlace(m_fields, std::move(Data));
        RowBits = 8 * m_fields.BytesPerPixel();
    } else {
        UnfilterRows(m_fields, Data);
    }
    OutBits = m_fields.Bitdepht;
}

// Samples that no PNG file has stay as they are.
void PictureBuilder::Convert() {
    const int32_t depth = m_fields.Bitdepht;
    const bool whole = HasWholeBytes(m_fields);
    const bool partial = depth == 1 || depth == 2 || depth == 4;
    if (m_fields.ColorType == kGrey && (whole || partial))
        ConvertGrey();
    else if (m_fields.ColorType == kTrueColor && whole)
        ConvertTrueColor();
    else if (m_fields.ColorType == kIndexed && (depth == 8 || partial))
        ConvertIndexed();
    else if (m_fields.HaveAlpha)
        ConvertAlpha();
}

void PictureBuilder::ConvertGrey() {
    const bool laced = m_fields.Interlacing == kAdam7;
    const int32_t depth = m_fields.Bitdepht;
    if (depth == 16) {
        Reduce16To8(Data);
        RowBits = 8;
    }
    CBitmap::MakeGreyPalette(depth == 16 ? 8 : depth, laced && depth != 2 && depth != 16);
    ConvertIndexed();
}

// Indices, of colours or of greys: they keep their depth, but those of 2 bits become whole bytes,
// as interlaced ones and reduced ones are already.
void PictureBuilder::ConvertIndexed() {
    if (RowBits == 2) {
        Expand2BitTo8(m_fields.Width, m_fields.Height, Data, m_fields.LineBytes());
        RowBits = 8;
        m_fields.WorkDepth = 8;
    } else {
        m_fields.WorkDepth = RowBits;
        AlignRows(m_fields, RowBits, Data);
    }
    OutBits = RowBits;
}

void PictureBuilder::ConvertTrueColor() {
    OutBits = 24;
    if (m_fields.Bitdepht == 16 && IsKeyed())
        return; // the key is compared with both bytes of a sample
    if (m_fields.Bitdepht == 16)
        Reduce16To8(Data);
    SwapRedBlue24(Data);
    RowBits = 24;
    m_fields.WorkDepth = 8;
    AlignRows(m_fields, RowBits, Data);
}

void PictureBuilder::ConvertAlpha() {
    if (m_fields.Bitdepht == 16)
        Reduce16To8(Data);
    if (m_fields.ColorType == kGreyAlpha)
        GreyAlphaToRgba(Data);
    else
        SwapRedBlue32(Data);
    TurnRgba();
    if (m_fields.SetAlpha)
        Blend();
}

void PictureBuilder::ApplyTransparence() {
    const bool trueColor = m_fields.ColorType == kTrueColor;
    const bool fits = trueColor ? OutBits == 24 : OutBits <= 8;
    if (!fits || !HoldsRows()) {
        Data = Bytes(); // samples that no PNG file has: nothing will be painted
        return;
    }
    if (trueColor) {
        const std::optional<ColorKey> key = ReadColorKey(m_fields.TrnsData.View());
        if (RowBits == 48)
            RgbKey16ToRgba(key, Data);
        else
            RgbKeyToRgba(m_fields.Width, m_fields.Height, key, Data);
    } else {
        if (m_fields.ColorType == kGrey)
            MakeGreyKey();
        IndexedToRgba(m_fields.Width, m_fields.Height, RowBits, m_fields.PaletteData.View(),
                      m_fields.TrnsData.View(), Data);
    }
    TurnRgba();
    Blend();
}

// What just became blue, green, red, alpha goes on bottom-up.
void PictureBuilder::TurnRgba() {
    FlipRows(Data, 4 * static_cast<size_t>(m_fields.Width));
    TopDown = false;
    RowBits = 32;
    OutBits = 32;
}

// The palette becomes the greys and the tRNS chunk a table of their alphas. The key is the low byte
// of its 16-bit value.
void PictureBuilder::MakeGreyKey() {
    m_fields.PaletteData = CBitmap::MakeGreyPalette(m_fields.Bitdepht, false);
    Bytes alphas(m_fields.PaletteData.size() / 3);
    std::ranges::fill(alphas, uint8_t{255});
    if (m_fields.TrnsData.size() >= 2 && m_fields.TrnsData[1] < alphas.size())
        alphas[m_fields.TrnsData[1]] = 0;
    m_fields.TrnsData = std::move(alphas);
}

void PictureBuilder::Blend() {
    BlendOnBackground(m_fields, m_fields.BackgroundPicture, Data, m_fields.DrawX, m_fields.DrawY);
    RowBits = 24;
    OutBits = 24;
}

bool PictureBuilder::HoldsRows() const {
    switch (OutBits) {
    case 1:
    case 4:
    case 8:
    case 24:
    case 32: {
        const size_t stride =
            RowStride(static_cast<size_t>(m_fields.Width), static_cast<size_t>(OutBits));
        return Data.size() >= stride * static_cast<size_t>(m_fields.Height);
    }
    default:
        return false;
    }
}

void PictureBuilder::Paint() {
    const int32_t width = m_fields.Width;
    const int32_t height = m_fields.Height;
    if (!HoldsRows())
        return; // samples that no PNG file has don't fill a bitmap
    switch (OutBits) {
    case 1:
        if (m_fields.ColorType == kIndexed)
            CBitmap::SetPaletteFor1Bit(m_fields.PaletteData.View());
        else
            CBitmap::SetBlackWhitePalette();
        CBitmap::CreateBitmap1(Data, width, height, true);
        break;
    case 4:
        if (m_fields.ColorType != kGrey)
            CBitmap::SetPaletteFor4Bit(m_fields.PaletteData.View());
        CBitmap::CreateBitmap4(Data, width, height, true);
        break;
    case 8:
        if (m_fields.ColorType != kGrey && m_fields.ColorType != kGreyAlpha)
            CBitmap::SetPaletteFor8Bit(m_fields.PaletteData.View());
        CBitmap::CreateBitmap8(Data, width, height, true);
        break;
    default:
        CBitmap::CreateBitmapTrue(Data, width, height, TopDown, OutBits == 24 ? 1 : 0);
    }
    if (m_fields.PicBox != nullptr)
        CBitmap::DrawBitmap(width, height, *m_fields.PicBox, true, m_fields.DrawX, m_fields.DrawY,
                            m_fields.SetToBG);
    CBitmap::BitmapHandle.reset();
}

} // namespace png
