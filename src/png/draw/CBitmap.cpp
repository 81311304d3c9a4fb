// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/draw/CBitmap.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace png::CBitmap {

BitmapInfo<2> Info1;
BitmapInfo<16> Info4;
BitmapInfo<256> Info8;
BitmapInfo<0> Info24;
BitmapInfo<0> Info32;
std::unique_ptr<Bitmap> BitmapHandle;

namespace {

void SetPalette(std::span<RgbQuad> colors, std::span<const uint8_t> palette) {
    std::ranges::fill(colors, RgbQuad{});
    for (size_t i = 0; i < colors.size() && 3 * i + 3 <= palette.size(); ++i)
        colors[i] = {palette[3 * i + 2], palette[3 * i + 1], palette[3 * i], 0};
}

// Entries that the palette lacks stay.
void SetFirst(std::span<RgbQuad> colors, const Bytes& palette) {
    SetPalette(colors.first(palette.size() / 3), palette.View());
}

template<size_t colors>
void CreateBitmap(BitmapInfo<colors>& info, uint16_t bits, Bytes& buffer, int32_t width,
                  int32_t height, bool TopDown) {
    info.Header = BitmapInfoHeader();
    info.Header.Width = width;
    info.Header.Height = TopDown ? -height : height;
    info.Header.BitCount = bits;
    BitmapHandle = std::make_unique<Bitmap>(info.Header, info.Colors, std::move(buffer));
}

int ToInt(double length) {
    constexpr double kMost = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::nearbyint(length), 0.0, kMost));
}

// Puts a window's unit back at its end.
class Unit {
public:
    Unit(ScaleOwner* owner, ScaleMode unit) : m_owner(owner) {
        if (m_owner == nullptr)
            return;
        m_before = m_owner->ScaleMode();
        m_owner->ScaleMode(unit);
    }
    ~Unit() {
        if (m_owner != nullptr)
            m_owner->ScaleMode(m_before);
    }
    Unit(const Unit&) = delete;
    Unit& operator=(const Unit&) = delete;

private:
    ScaleOwner* m_owner;
    ScaleMode m_before = ScaleMode::Twips;
};

// The part of the box that is painted, in pixels; the box grows by its border.
Extent FitToBox(PictureBox& box) {
    if (box.ScaleHeight() != box.Height()) {
        const Extent painted = TwipsToPixels(box, {box.Width(), box.Height()});
        box.Height(box.Height() + (box.Height() - box.ScaleHeight()));
        box.Width(box.Width() + (box.Width() - box.ScaleWidth()));
        return painted;
    }
    box.ScaleMode(ScaleMode::Pixels);
    return {box.ScaleWidth(), box.ScaleHeight()};
}

} // namespace

Bytes MakeGreyPalette(int32_t bits, bool ForceTo8) {
    if (bits != 1 && bits != 2 && bits != 4 && bits != 8 && bits != 16)
        return {};
    const size_t entries = bits == 16 ? 256 : size_t{1} << bits;
    const size_t step = 255 / (entries - 1);
    Bytes palette(3 * entries);
    for (size_t i = 0; i < palette.size(); ++i)
        palette[i] = static_cast<uint8_t>(i / 3 * step);
    if (bits == 4 && !ForceTo8)
        SetFirst(Info4.Colors, palette);
    else if (bits == 2 || bits == 4 || bits == 8 || (bits == 1 && ForceTo8))
        SetFirst(Info8.Colors, palette);
    return palette;
}

void SetBlackWhitePalette() {
    Info1.Colors = {RgbQuad{}, RgbQuad{255, 255, 255, 0}};
}

void SetPaletteFor1Bit(std::span<const uint8_t> palette) {
    if (palette.size() == 3 * Info1.Colors.size())
        SetPalette(Info1.Colors, palette);
    else
        SetBlackWhitePalette();
}

void SetPaletteFor4Bit(std::span<const uint8_t> palette) {
    SetPalette(Info4.Colors, palette);
}

void SetPaletteFor8Bit(std::span<const uint8_t> palette) {
    SetPalette(Info8.Colors, palette);
}

void CreateBitmap1(Bytes& buffer, int32_t width, int32_t height, bool TopDown) {
    CreateBitmap(Info1, 1, buffer, width, height, TopDown);
}

void CreateBitmap4(Bytes& buffer, int32_t width, int32_t height, bool TopDown) {
    CreateBitmap(Info4, 4, buffer, width, height, TopDown);
}

void CreateBitmap8(Bytes& buffer, int32_t width, int32_t height, bool TopDown) {
    CreateBitmap(Info8, 8, buffer, width, height, TopDown);
}

void CreateBitmapTrue(Bytes& buffer, int32_t width, int32_t height, bool TopDown, int32_t mode) {
    if (mode == 0)
        CreateBitmap(Info32, 32, buffer, width, height, TopDown);
    else
        CreateBitmap(Info24, 24, buffer, width, height, TopDown);
}

Extent PixelsToTwips(const PictureBox& screen, Extent pixels) {
    return {pixels.x * screen.TwipsPerPixelX(), pixels.y * screen.TwipsPerPixelY()};
}

Extent TwipsToPixels(const PictureBox& screen, Extent twips) {
    return {std::nearbyint(twips.x / screen.TwipsPerPixelX()),
            std::nearbyint(twips.y / screen.TwipsPerPixelY())};
}

void DrawBitmap(int32_t width, int32_t height, PictureBox& box, bool FitBox, int32_t X, int32_t Y,
                bool SetToBG) {
    box.Cls();
    {
        const Unit parentUnit(box.Parent(), ScaleMode::Twips);
        const Unit boxUnit(&box, ScaleMode::Twips);
        const Extent size = PixelsToTwips(box, {double(width), double(height)});
        Extent source = {double(width), double(height)};
        Extent painted = size;
        if (SetToBG) {
            source = size; // larger than the bitmap: one to one, what isn't there isn't copied
        } else if (FitBox) {
            box.Height(size.y);
            box.Width(size.x);
            painted = FitToBox(box);
        }
        if (const std::unique_ptr<Bitmap> bitmap = std::exchange(BitmapHandle, nullptr))
            box.StretchBlt(X, Y, ToInt(painted.x), ToInt(painted.y), *bitmap, ToInt(source.x),
                           ToInt(source.y));
    }
    box.PictureFromImage();
}

} // namespace png::CBitmap
