// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/LoadPNG.h"

#include "png/PictureBuilder.h"
#include "png/draw/CBitmap.h"
#include "png/format/Header.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <limits>
#include <new>
#include <span>
#include <string_view>

namespace png {
namespace {

constexpr int32_t kNoPng = 1;
constexpr int32_t kTooShort = 3;
constexpr int32_t kNoImageData = 4;

constexpr size_t kHeaderBytes = 13;
constexpr size_t kTimeBytes = 7;
constexpr size_t kGamaBytes = 4;
constexpr int64_t kMost = std::numeric_limits<int32_t>::max();
// A text of 12 times its compressed size is as long as any gets.
constexpr int64_t kTextGrowth = 12;

void AppendText(std::string& text, std::span<const uint8_t> bytes) {
    text.append(bytes.begin(), bytes.end());
    text.push_back('\0');
}

// Samples above 255 run over into the next one.
int32_t ColorValue(int64_t red, int64_t green, int64_t blue) {
    return static_cast<int32_t>(red + 256 * green + 65536 * blue);
}

int32_t EntryOf(std::span<const uint8_t> palette, size_t index) {
    const std::span<const uint8_t> entry = palette.subspan(3 * index, 3);
    return ColorValue(entry[0], entry[1], entry[2]);
}

double Highest(int32_t bitDepth) {
    return std::pow(2.0, bitDepth) - 1;
}

// A sample of the given depth as one of 8 bits; more than the depth allows becomes more than 255.
int64_t To8Bits(const uint8_t* sample, int32_t bitDepth) {
    if (bitDepth == 0)
        return 0;
    return std::llrint(WordToLong(SwapWord(sample)) / Highest(bitDepth) * 255);
}

} // namespace

double LoadPNG::gama() const {
    return m_fields.GamaRaw / 100000.0;
}

void LoadPNG::SetOwnBkgndColor(bool OwnBkgndOn, int32_t BackColor) {
    m_fields.OwnBkgndOn = OwnBkgndOn;
    m_fields.OwnBackColor = BackColor;
}

void LoadPNG::SetToBkgrnd(bool SetToBG, int32_t X, int32_t Y) {
    m_fields.SetToBG = SetToBG;
    m_fields.DrawX = X;
    m_fields.DrawY = Y;
}

int32_t LoadPNG::OpenPNG(const std::string& filename) {
    m_fields.HasBKGDChunk = false;
    m_fields.HaveTransparence = false;
    m_fields.WorkDepth = 0;
    m_fields.IdatSize = 0;
    m_fields.IdatData = Bytes();
    try {
        if (ReadChunks(filename))
            PictureBuilder(m_fields, m_inflater).BuildPicture();
    } catch (const std::bad_alloc&) {
        CBitmap::BitmapHandle.reset(); // too large for this machine: nothing is painted
    } catch (...) {
        CBitmap::BitmapHandle.reset();
        throw; // by the box, which knows what to tell
    }
    return 0;
}

bool LoadPNG::ReadChunks(const std::string& filename) {
    ChunkReader reader(filename);
    if (!reader.IsPngSignature()) {
        m_fields.ErrorNumber = kNoPng;
        return false;
    }
    do {
        if (!ReadChunk(reader)) {
            m_fields.ErrorNumber = kTooShort;
            return false;
        }
    } while (reader.Type() != "IEND");
    if (m_fields.IdatSize == 0)
        m_fields.ErrorNumber = kNoImageData;
    return m_fields.IdatSize != 0;
}

bool LoadPNG::ReadChunk(ChunkReader& reader) {
    struct Action {
        std::string_view type;
        void (LoadPNG::*act)(Bytes& data);
    };
    static constexpr Action kActions[] = {
        {"IHDR", &LoadPNG::ReadHeaderChunk}, {"PLTE", &LoadPNG::ReadPaletteChunk},
        {"bKGD", &LoadPNG::ReadBkgdChunk},   {"gAMA", &LoadPNG::ReadGamaChunk},
        {"tEXt", &LoadPNG::ReadTextChunk},   {"zTXt", &LoadPNG::ReadZtxtChunk},
        {"tIME", &LoadPNG::ReadTimeChunk},   {"tRNS", &LoadPNG::ReadTrnsChunk}};
    if (!reader.NextChunk())
        return false;
    if (reader.Type() == "IDAT")
        return ReadImageData(reader);
    const auto* action = std::ranges::find(kActions, reader.Type(), &Action::type);
    if (action == std::end(kActions))
        return reader.SkipData();
    Bytes data;
    if (!reader.ReadData(data))
        return false;
    (this->*action->act)(data);
    return true;
}

bool LoadPNG::ReadImageData(ChunkReader& reader) {
    if (m_fields.IdatSize > kMost - reader.Length())
        return reader.SkipData(); // more than can be counted; the picture can't become whole
    if (m_fields.IdatSize == 0)
        m_fields.IdatData.Reserve(static_cast<size_t>(std::min(reader.FileLength(), kMost)));
    if (!reader.ReadData(m_fields.IdatData))
        return false;
    m_fields.IdatSize += reader.Length();
    return true;
}

// Bytes that a short header lacks count as 0.
void LoadPNG::ReadHeaderChunk(Bytes& data) {
    std::array<uint8_t, kHeaderBytes> bytes{};
    std::copy_n(data.begin(), std::min(data.size(), bytes.size()), bytes.begin());
    m_fields.Width = SwapLong(bytes.data());
    m_fields.Height = SwapLong(&bytes[4]);
    m_fields.Bitdepht = bytes[8];
    m_fields.ColorType = bytes[9];
    m_fields.Compression = bytes[10];
    m_fields.Filter = bytes[11];
    m_fields.Interlacing = bytes[12];
}

void LoadPNG::ReadBkgdChunk(Bytes& data) {
    m_fields.BkgdData = std::move(data);
    m_fields.BkgdColor = ColorOfBkgd();
    m_fields.HasBKGDChunk = true;
}

int32_t LoadPNG::ColorOfBkgd() const {
    const Bytes& bkgd = m_fields.BkgdData;
    const int32_t depth = m_fields.Bitdepht;
    switch (m_fields.ColorType) {
    case kGrey:
    case kGreyAlpha: {
        if (bkgd.size() != 2)
            return 0;
        const int32_t grey = WordToLong(SwapWord(bkgd.data()));
        if (grey > Highest(depth))
            return 0;
        const Bytes greys = CBitmap::MakeGreyPalette(depth, false);
        const auto index = static_cast<size_t>(grey);
        return 3 * index < greys.size() ? EntryOf(greys.View(), index) : m_fields.BkgdColor;
    }
    case kTrueColor:
    case kTrueColorAlpha:
        if (bkgd.size() != 6)
            return 0;
        return ColorValue(To8Bits(&bkgd[0], depth), To8Bits(&bkgd[2], depth),
                          To8Bits(&bkgd[4], depth));
    case kIndexed:
        if (bkgd.size() != 1 || 3 * bkgd[0] + 2U >= m_fields.PaletteData.size())
            return 0;
        return EntryOf(m_fields.PaletteData.View(), bkgd[0]);
    default:
        return m_fields.BkgdColor;
    }
}

void LoadPNG::ReadGamaChunk(Bytes& data) {
    if (data.size() >= kGamaBytes)
        m_fields.GamaRaw = SwapLong(data.data());
}

void LoadPNG::ReadTextChunk(Bytes& data) {
    AppendText(m_fields.Text, data.View());
}

void LoadPNG::ReadTrnsChunk(Bytes& data) {
    m_fields.HaveTransparence = true;
    m_fields.TrnsData = std::move(data);
}

void LoadPNG::ReadZtxtChunk(Bytes& data) {
    const auto keyword = static_cast<size_t>(FindNul(data.View(), 0) + 1);
    AppendText(m_fields.zText, data.View().first(keyword));
    // Behind the keyword stand its NUL, the method and the two bytes of the zlib header.
    Bytes text(data.View().subspan(std::min(keyword + 4, data.size())));
    const int64_t expected = kTextGrowth * (static_cast<int64_t>(text.size()) - 1);
    auto ExpectedSize = static_cast<int32_t>(std::min(expected, kMost / 2));
    int32_t Result = 0;
    m_inflater.Inflate(text, ExpectedSize, false, Result);
    AppendText(m_fields.zText, text.View());
}

void LoadPNG::ReadTimeChunk(Bytes& data) {
    if (data.size() < kTimeBytes)
        return;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%02d.%02d.%d %02d:%02d:%02d", data[3], data[2],
                  SwapWord(data.data()), data[4], data[5], data[6]);
    m_fields.ModiTime = text.data();
}

} // namespace png
