// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/LoadPNG.h"

#include "DeflateStream.h"
#include "PngFile.h"
#include "png/CBitmap.h"

#include <functional>
#include <gtest/gtest.h>
#include <png.h>

namespace {

using namespace recipes;

// Where the last byte of the first chunk stands, which is the header.
constexpr size_t kInterlacing = 28;

// The file's pixels as red, green, blue, alpha, by libpng.
std::vector<uint8_t> Reference(const std::string& file, bool transparency) {
    png_structp reader = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(reader);
    std::pair<const std::string*, size_t> source(&file, 0);
    png_set_read_fn(reader, &source, [](png_structp self, png_bytep to, size_t count) {
        auto& [bytes, at] = *static_cast<decltype(source)*>(png_get_io_ptr(self));
        bytes->copy(reinterpret_cast<char*>(to), count, at);
        at += count;
    });
    png_read_info(reader, info);
    if (!transparency && (png_get_color_type(reader, info) & PNG_COLOR_MASK_ALPHA) == 0)
        png_free_data(reader, info, PNG_FREE_TRNS, 0), png_set_strip_alpha(reader);
    png_set_expand(reader);
    png_set_strip_16(reader);
    png_set_gray_to_rgb(reader);
    png_set_add_alpha(reader, 255, PNG_FILLER_AFTER);
    png_set_interlace_handling(reader);
    png_read_update_info(reader, info);
    const size_t stride = png_get_rowbytes(reader, info);
    std::vector<uint8_t> pixels(stride * png_get_image_height(reader, info));
    std::vector<png_bytep> rows;
    for (size_t at = 0; at < pixels.size(); at += stride)
        rows.push_back(&pixels[at]);
    png_read_image(reader, rows.data());
    png_destroy_read_struct(&reader, &info, nullptr);
    return pixels;
}

// Red, green, blue, alpha over blue, green, red.
std::vector<uint8_t> Blended(std::vector<uint8_t> rgba, const std::vector<uint8_t>& below) {
    for (size_t i = 0; i < rgba.size(); i += 4) {
        std::swap(rgba[i], rgba[i + 2]);
        const int alpha = rgba[i + 3];
        for (size_t c = i; c < i + 3 && alpha < 255; ++c)
            rgba[c] = alpha == 0
                          ? below[c]
                          : uint8_t((rgba[c] * alpha + below[c] * (255 - alpha) + 255) / 256);
        rgba[i + 3] = 255;
    }
    return rgba;
}

class LoadPNGTest : public testing::Test {
protected:
    void Open(const std::string& file) { decoder.OpenPNG(TemporaryFile(file).Name()); }
    LoadPNGTest() { decoder.PicBox(&box); }

    png::LoadPNG decoder;
    MemoryBox box{40, 20};
    std::mt19937 random{1};
};

// The picture over what lies below it, for every kind of file, must be the one of libpng.
TEST_F(LoadPNGTest, EveryKindOfFileHasThePixelsOfTheReference) {
    int compared = 0;
    const auto compare = [&](Kind kind, int filter, bool transparency, bool overBox) {
        const std::string stream = Deflated(Rows(kind, filter, random), int(random() % 10));
        const size_t split = random() % stream.size();
        std::string file = kSignature + Ihdr(kind);
        if (kind.type == 3)
            file += Palette(kind.depth, random);
        if (transparency && kind.type <= 3)
            file += Trns(kind, random);
        file += Chunk("IDAT", stream.substr(0, split)) + Chunk("IDAT", "") +
                Chunk("IDAT", stream.substr(split)) + kEnd;
        decoder.SetAlpha(transparency);
        decoder.SetTrans(transparency);
        decoder.BackgroundPicture(overBox ? &box : nullptr);
        decoder.SetOwnBkgndColor(random() % 2 == 0, 0x332211); // the first value plays no part
        std::vector<uint8_t> below;
        for (size_t i = 0; i < size_t(kind.width) * kind.height; ++i)
            below.insert(below.end(), {0x33, 0x22, 0x11, 255});
        if (overBox) {
            box.Width(15.0 * kind.width), box.Height(15.0 * kind.height);
            for (size_t i = 0; i < below.size(); ++i)
                below[i] = box.pixels[i] = uint8_t(i % 4 == 3 ? 255 : random());
        }
        box.painted = box.kept = false;
        Open(file);
        std::vector<uint8_t> expected = Reference(file, transparency);
        for (size_t i = 3; i < expected.size() && !transparency; i += 4)
            expected[i] = 255;
        ASSERT_EQ(std::tuple(true, true, 0),
                  std::tuple(box.painted, box.kept, decoder.ErrorNumber()));
        ASSERT_EQ(std::pair(int(kind.width), int(kind.height)),
                  std::pair(box.Columns(), box.Lines()));
        ASSERT_EQ(Blended(expected, below), box.pixels)
            << "type " << kind.type << " depth " << kind.depth << " laced " << kind.laced << " "
            << kind.width << "x" << kind.height << " filter " << filter;
        ASSERT_EQ(kind.type == 4 || kind.type == 6, decoder.HaveAlpha());
        ++compared;
    };
    for (const auto& [type, depth] : kKinds) {
        for (int variant = 0; variant < 6 * 2 * 2; ++variant) {
            const bool transparency = variant % 4 >= 2 && !(type == 0 && depth == 16);
            for (const auto& [width, height] : {std::pair{1U, 1U},
                                                {2U, 9U},
                                                {4U, 5U},
                                                {5U, 3U},
                                                {6U, 4U},
                                                {7U, 6U},
                                                {8U, 8U},
                                                {9U, 1U},
                                                {33U, 20U},
                                                {67U, 17U}})
                compare({type, depth, variant % 2 == 1, width, height}, variant / 4, transparency,
                        random() % 2 == 0);
        }
        compare({type, depth, true, 5, 400}, 5, false, false); // more filter bytes than pixels
    }
    EXPECT_EQ(3615, compared);
}

TEST_F(LoadPNGTest, ColoursThatThePaletteLacksAreBlackAndKeysPastItAreIgnored) {
    const auto file = [&](Kind kind, const std::string& chunks, const std::string& rows) {
        return kSignature + Ihdr(kind) + chunks + Chunk("IDAT", Deflated(rows)) + kEnd;
    };
    const std::string rgb = "\x0A\x14\x1E";
    decoder.SetTrans(true);
    decoder.SetOwnBkgndColor(true, 0xFFFFFF);
    // Index 1 isn't there: black, though a table of alphas names it.
    Open(file({3, 8, false, 2, 1}, Chunk("PLTE", rgb) + Chunk("tRNS", std::string("\xFF\0", 2)),
              std::string("\0\0\1", 3)));
    EXPECT_EQ((std::vector<uint8_t>{30, 20, 10, 255, 0, 0, 0, 255}), box.pixels);
    // One and three entries of a palette for one bit are none.
    for (const std::string& palette : {rgb, rgb + rgb + rgb}) {
        png::LoadPNG other;
        other.PicBox(&box);
        other.OpenPNG(TemporaryFile(file({3, 1, false, 2, 1}, Chunk("PLTE", palette),
                                         std::string("\0\x40", 2)))
                          .Name());
        EXPECT_EQ((std::vector<uint8_t>{0, 0, 0, 255, 255, 255, 255, 255}), box.pixels);
    }
    // More entries than 4 bits can name, and a grey key of which the low byte is past the table.
    Open(file({3, 4, false, 1, 1}, Chunk("PLTE", std::string(63, '\x07')),
              std::string("\0\xF0", 2)));
    EXPECT_EQ((std::vector<uint8_t>{7, 7, 7, 255}), box.pixels);
    Open(
        file({0, 4, false, 1, 1}, Chunk("tRNS", std::string("\0\x10", 2)), std::string("\0\0", 2)));
    EXPECT_EQ((std::vector<uint8_t>{0, 0, 0, 255}), box.pixels);
    // A grey of 16 bits is matched by the low byte of its key.
    Open(file({0, 16, false, 1, 1}, Chunk("tRNS", "\x01\x20"), std::string("\0\x20\x77", 3)));
    EXPECT_EQ((std::vector<uint8_t>{255, 255, 255, 255}), box.pixels);
    // Only the low bytes of the key count for 8 bits; less than three samples are no key.
    const std::string key = "\1\x20\1\x21\1\x22";
    const struct {
        int depth;
        std::string key, pixel;
        bool clear;
    } keys[] = {{8, key, " !\"", true},
                {8, key, "!!\"", false},
                {8, key, "  \"", false},
                {8, key, " !!", false},
                {8, key.substr(0, 5), " !\"", false},
                {16, key, key, true},
                {16, key, "\2 \1!\1\"", false},
                {16, key, "\1 \1 \1\"", false},
                {16, key, "\1 \1!\1!", false},
                {16, key.substr(0, 5), key, false}};
    for (const auto& c : keys) {
        Open(file({2, c.depth, false, 1, 1}, Chunk("tRNS", c.key), '\0' + c.pixel));
        EXPECT_EQ(c.clear, box.pixels == std::vector<uint8_t>(4, 255)) << c.depth << c.pixel;
    }
    // What isn't deflated is taken as it is, behind its first two bytes.
    std::string plain =
        kSignature + Ihdr({0, 8, false, 1, 1}) + Chunk("IDAT", std::string("xx\0\x55", 4)) + kEnd;
    plain[kSignature.size() + 18] = 1; // the compression method
    Open(plain);
    EXPECT_EQ(0x55, box.pixels[0]);
    Open(file({0, 8, false, 1000, 300}, "", std::string(300300, '\0'))); // grows a thousandfold
    EXPECT_EQ(4 * 1000 * 300U, box.pixels.size());
    // Filters that don't exist leave the row, and the next one builds on it.
    Open(file({0, 8, false, 1, 2}, "", "\x09\x40\x02\x01"));
    EXPECT_EQ(0x40, box.pixels[0]);
    EXPECT_EQ(0x41, box.pixels[4]);
}

TEST_F(LoadPNGTest, SettingsDecideWhereThePictureGoes) {
    const Kind kind{6, 8, false, 2, 1};
    const std::string file = kSignature + Ihdr(kind) +
                             Chunk("IDAT", Deflated(std::string("\0\xFF\0\0\x80\0\0\xFF\0", 9))) +
                             kEnd;
    std::ranges::fill(box.pixels, uint8_t{9});
    decoder.SetToBkgrnd(true, 38, 3); // the box keeps its size and is cleared
    Open(file);
    EXPECT_TRUE(box.painted); // with both sizes in twips
    EXPECT_EQ(std::pair(2 * 15, 1 * 15), box.drawn);
    EXPECT_EQ(std::pair(40, 20), std::pair(box.Columns(), box.Lines()));
    EXPECT_EQ(32, box.bits);
    EXPECT_EQ(0xFF, *(box.At(38, 3) + 2));
    EXPECT_EQ(0xFF, *box.At(39, 3));
    EXPECT_EQ(0, *(box.At(37, 3) + 2));

    decoder.SetAlpha(true); // half red over black, and black where nothing else was ever told
    decoder.SetToBkgrnd(false);
    Open(file);
    EXPECT_EQ((std::vector<uint8_t>{0, 0, 128, 255, 0, 0, 0, 255}), box.pixels);
    EXPECT_EQ(24, box.bits);

    MemoryBox framed(7, 7, 2); // the inner area gets the picture's size
    framed.parent.unit = png::ScaleMode::Pixels;
    decoder.PicBox(&framed);
    Open(kSignature + Ihdr({0, 8, false, 9, 6}) + Chunk("IDAT", Deflated(std::string(60, '\0'))) +
         kEnd);
    EXPECT_EQ(std::pair(9, 6), std::pair(framed.Columns(), framed.Lines()));
    EXPECT_EQ(png::ScaleMode::Pixels, framed.unit);
    EXPECT_EQ(png::ScaleMode::Pixels, framed.parent.unit);
    framed.topLevel = true;
    framed.parent.unit = png::ScaleMode::Twips;
    Open(kSignature + Ihdr({0, 8, false, 8, 5}) + Chunk("IDAT", Deflated(std::string(45, '\0'))) +
         kEnd);
    EXPECT_EQ(std::pair(8, 5), std::pair(framed.Columns(), framed.Lines()));

    decoder.PicBox(nullptr);
    Open(file);
    EXPECT_EQ(nullptr, png::CBitmap::BitmapHandle);
}

// A box that allows nothing.
struct StubbornBox : MemoryBox {
    using MemoryBox::MemoryBox;
    void Width(double) override { throw std::runtime_error("width"); }
    void Cls() override { fail(); }
    bool GetDIBits(int, int, int, int, std::span<uint8_t>) const override { return false; }
    std::function<void()> fail = [] {};
};

TEST_F(LoadPNGTest, WhatLiesBelowComesFromABoxOrIsAColour) {
    const auto clear = [](uint32_t width, uint32_t height) {
        return kSignature + Ihdr({6, 8, false, width, height}) +
               Chunk("bKGD", std::string("\0\1\0\2\0\3", 6)) +
               Chunk("IDAT", Deflated(std::string((4 * width + 1) * height, '\0'))) + kEnd;
    };
    decoder.SetAlpha(true);
    MemoryBox small(1, 1); // it grows by 100 twips more than it lacks
    decoder.BackgroundPicture(&small);
    Open(clear(2, 3));
    EXPECT_EQ(std::pair(2 + 100 / 15, 3 + 100 / 15), std::pair(small.Columns(), small.Lines()));

    MemoryBox below(9, 8); // a larger one keeps its size, and what stands at X and Y counts
    for (const auto& [x, y] : {std::pair(4, 5), {5, 5}, {4, 6}, {5, 6}})
        *below.At(x, y) = uint8_t(10 * x + y);
    decoder.BackgroundPicture(&below);
    MemoryBox target(9, 9);
    decoder.PicBox(&target);
    decoder.SetToBkgrnd(true, 4, 5);
    Open(clear(2, 2));
    EXPECT_EQ(std::pair(9, 8), std::pair(below.Columns(), below.Lines()));
    EXPECT_EQ((std::vector{45, 55, 46, 56, 0}),
              (std::vector<int>{*target.At(4, 5), *target.At(5, 5), *target.At(4, 6),
                                *target.At(5, 6), *target.At(6, 6)}));

    decoder.PicBox(&box);
    decoder.SetToBkgrnd(false);
    StubbornBox stubborn; // the height grows though the width can't; no pixels are black ones
    decoder.BackgroundPicture(&stubborn);
    Open(clear(1, 1));
    EXPECT_EQ(15 + 100 / 15 * 15, stubborn.Height());
    EXPECT_EQ((std::vector<uint8_t>{0, 0, 0, 255}), box.pixels);
    decoder.BackgroundPicture(nullptr);
    Open(clear(1, 1));
    EXPECT_EQ((std::vector<uint8_t>{3, 2, 1, 255}), box.pixels);

    decoder.PicBox(&stubborn); // no bitmap outlives a failure; only that of the memory is kept back
    stubborn.fail = [] { throw std::bad_alloc(); };
    EXPECT_NO_THROW(Open(clear(1, 1)));
    EXPECT_EQ(nullptr, png::CBitmap::BitmapHandle);
    stubborn.fail = [] { throw std::runtime_error("box"); };
    EXPECT_THROW(Open(clear(1, 1)), std::runtime_error);
    EXPECT_EQ(nullptr, png::CBitmap::BitmapHandle);
}

TEST_F(LoadPNGTest, ChunksTellWhatTheyTell) {
    const auto file = [](const std::string& chunks, int type = 0, int depth = 8) {
        return kSignature + Ihdr({type, depth, false, 1, 1}) + chunks +
               Chunk("IDAT", Deflated(std::string(9, '\0'))) + kEnd;
    };
    std::string wrong = Chunk("tEXt", std::string("K1\0V1", 5));
    wrong.back() ^= 1; // no checksum is looked at
    Open(file(wrong + Chunk("tEXt", std::string("K2\0V2", 5)) + Chunk("gAMA", Long(45455)) +
              Chunk("zTXt", std::string("Key\0\0", 5) + Deflated(std::string(500, 'x'))) +
              Chunk("tIME", std::string("\x07\xCF\x0C\x1F\x17\x3B\x07", 7)) + Chunk("qqqq", "?")));
    const std::string both("K1\0V1\0K2\0V2\0", 12);
    EXPECT_EQ(both, decoder.Text());
    EXPECT_DOUBLE_EQ(0.45455, decoder.gama());
    EXPECT_EQ("31.12.1999 23:59:07", decoder.ModiTime());
    // The text is cut at what its compressed size allows.
    const size_t packed = Deflated(std::string(500, 'x')).size() - 2;
    EXPECT_EQ(std::string("Key\0", 4) + std::string(12 * (packed - 1) + 100, 'x') + '\0',
              decoder.zText());
    const size_t before = decoder.zText().size();
    Open(file(Chunk("tEXt", "K3") + Chunk("gAMA", "ab") + Chunk("tIME", "abc") +
              Chunk("zTXt", std::string("\0\0", 2) + Deflated("x")) + Chunk("zTXt", "Key")));
    EXPECT_EQ(both + std::string("K3\0", 3), decoder.Text());
    EXPECT_EQ(std::string("\0x\0Key\0\0", 8), decoder.zText().substr(before));
    EXPECT_EQ("31.12.1999 23:59:07", decoder.ModiTime());

    const std::string palette = Chunk("PLTE", "\x01\x02\x03\x04\x05\x06");
    struct {
        int type, depth;
        std::string chunks;
        int32_t color;
    } const backgrounds[] = {
        {0, 4, Chunk("bKGD", std::string("\0\x02", 2)), 0x222222},
        {4, 8, Chunk("bKGD", std::string("\0\x80", 2)), 0x808080},
        {0, 2, Chunk("bKGD", std::string("\0\x04", 2)), 0},
        {2, 16, Chunk("bKGD", std::string("\xFF\xFF\x80\0\0\x40", 6)), 0x0080FF},
        {0, 16, Chunk("bKGD", std::string("\x02\0", 2)), 0x0080FF}, // past the table: stays
        {3, 8, palette + Chunk("bKGD", "\x01"), 0x060504},
        {3, 8, palette + Chunk("bKGD", "\x02"), 0},
        {2, 8, Chunk("bKGD", "\x01"), 0},
        {0, 4, Chunk("bKGD", std::string("\0\x0F", 2)), 0xFFFFFF},
        {2, 8, Chunk("bKGD", std::string("\x01\x80\0\x02\0\x03", 6)), 0x030380}, // runs over
        {6, 1, Chunk("bKGD", "\xFF\xFF\xFF\xFF\xFF\xFF"), int32_t(0xFEFF0001)},
        {2, 0, Chunk("bKGD", std::string(6, '\1')), 0}, // no depth at all
    };
    for (const auto& background : backgrounds) {
        Open(file(background.chunks, background.type, background.depth));
        EXPECT_EQ(background.color, decoder.BkgdColor()) << background.type << background.depth;
        EXPECT_TRUE(decoder.HasBKGDChunk());
    }
    EXPECT_EQ(0, decoder.ErrorNumber());
    Open(kSignature + Chunk("IHDR", Long(11) + Long(12) + "\x0D\x0E\x0F\x10\x11") +
         Chunk("unKn", std::string(99999, 'x')) + Chunk("IDAT", "xxx") + kEnd);
    const auto told = [](const png::LoadPNG& of) {
        return std::vector<int>{of.Width(),        of.Height(),          of.Bitdepht(),
                                of.ColorType(),    of.Compression(),     of.Filter(),
                                of.Interlacing(),  of.ErrorNumber(),     of.HaveAlpha(),
                                of.HasBKGDChunk(), of.HaveTransparence()};
    };
    EXPECT_EQ((std::vector{11, 12, 13, 14, 15, 16, 17, 0, 0, 0, 0}), told(decoder));
    EXPECT_EQ(std::vector<int>(11), told(png::LoadPNG()));
    Open(file(Chunk("tRNS", "ab")));
    EXPECT_TRUE(decoder.HaveTransparence());
    Open(file(Chunk("tIME", "\xFF\xFF\1\1\1\1\1")));
    EXPECT_FALSE(decoder.HaveTransparence());
    EXPECT_FALSE(decoder.HasBKGDChunk());
    EXPECT_EQ("01.01.-1 01:01:01", decoder.ModiTime()); // a year has a sign
}

TEST_F(LoadPNGTest, DamagedFilesPaintNothing) {
    const Kind kind{2, 8, false, 3, 2};
    const std::string good =
        kSignature + Ihdr(kind) + Chunk("IDAT", Deflated(Rows(kind, 5, random))) + kEnd;
    const auto ihdr = [](const Kind& wanted, const std::string& rest) {
        return kSignature + Ihdr(wanted) + Chunk("IDAT", rest) + kEnd;
    };
    struct {
        const char* name;
        std::string file;
        int error;
    } const cases[] = {
        {"empty", "", 1},
        {"seven bytes", kSignature.substr(0, 7), 1},
        {"wrong signature", "x" + good.substr(1), 1},
        {"signature alone", kSignature, 3},
        {"no end", good.substr(0, good.size() - 12), 3},
        {"end without a byte behind it", good.substr(0, good.size() - 4), 3},
        {"negative length", kSignature + Long(0x80000000) + "IDATabc", 3},
        {"length past the end", kSignature + Long(0x7FFFFFFF) + "IDATabc", 3},
        {"no image data", kSignature + Ihdr(kind) + Chunk("IDAT", "") + kEnd, 4},
        {"no header", kSignature + Chunk("IDAT", Deflated("abc")) + kEnd, 0},
        {"short header", kSignature + Chunk("IHDR", "ab") + Chunk("IDAT", Deflated("abc")) + kEnd,
         0},
        {"no width", ihdr({2, 8, false, 0, 5}, Deflated("abc")), 0},
        {"negative height", ihdr({2, 8, false, 5, 0xFFFFFFFF}, Deflated("abc")), 0},
        {"larger than can be counted",
         ihdr({6, 16, false, 0x7FFFFFFF, 0x7FFFFFFF}, Deflated("abc")), 0},
        {"larger than the data can make", ihdr({6, 8, true, 20000, 20000}, Deflated("abc")), 0},
        {"a row too few", ihdr({2, 8, false, 3, 3}, Deflated(Rows(kind, 0, random))), 0},
        {"an interlaced row too few", ihdr({2, 8, true, 3, 3}, Deflated(Rows(kind, 0, random))), 0},
        {"one byte of image data", ihdr(kind, "x"), 0},
        {"reserved block", ihdr(kind, "xx\x07"), 0},
        {"palette of 16 bits", ihdr({3, 16, false, 3, 2}, Deflated(std::string(99, '\0'))), 0},
        {"no such colour type", ihdr({5, 8, false, 3, 2}, Deflated(std::string(99, '\0'))), 0},
        {"one-bit true colour", ihdr({2, 3, true, 9, 9}, Deflated(std::string(999, '\0'))), 0},
    };
    for (const auto& damaged : cases) {
        png::LoadPNG fresh;
        fresh.PicBox(&box);
        EXPECT_EQ(0, fresh.OpenPNG(TemporaryFile(damaged.file).Name()));
        EXPECT_EQ(damaged.error, fresh.ErrorNumber()) << damaged.name;
        EXPECT_FALSE(box.painted) << damaged.name;
        EXPECT_EQ(fresh.ColorType() == 6, fresh.HaveAlpha()) << damaged.name;
    }
    // Whatever the header says, codes that can't be built give their message, unless they lie
    // behind the bytes for which there is room.
    const std::string codes(50, '\x05');
    for (const Kind& header : {kind, Kind{6, 8, true, 20000, 20000}, Kind{5, 8, false, 1, 1},
                               Kind{6, 255, true, 0x7FFFFFFF, 0x7FFFFFFF}, Kind{2, 8, false, 0, 1},
                               Kind{0, 8, true, 0x80000000, 3}, Kind{0, 8, false, 3, 0x80000000}}) {
        std::string file = ihdr(header, codes);
        for (const char interlacing : {file[kInterlacing], '\2'}) {
            file[kInterlacing] = interlacing;
            std::string told;
            decoder.MessageBox([&](const std::string& text) { told = text; });
            Open(file);
            EXPECT_EQ("Error in tree creation (Static)", told);
            EXPECT_EQ(interlacing, decoder.Interlacing());
        }
    }
    decoder.MessageBox([](const std::string&) { FAIL(); });
    const std::string full = Stream().Stored(false, std::string(102, 'x')).Take();
    std::string laced = ihdr({0, 8, true, 9, 9}, "xx" + full + codes);
    laced[kInterlacing] = 2;
    box.painted = false;
    Open(laced);
    EXPECT_FALSE(box.painted);
    decoder.OpenPNG("/nowhere");
    decoder.OpenPNG("/dev/zero");
    EXPECT_EQ(1, decoder.ErrorNumber());
    Open(good.substr(0, good.size() - 14)); // its image data is none of the next file
    Open(good.substr(0, good.size() - 1));  // the last checksum needn't be whole
    EXPECT_TRUE(box.painted);
    EXPECT_EQ(3, decoder.ErrorNumber()); // and the earlier failure stays
    box.painted = false;
    Open(kSignature + Ihdr(kind) + kEnd);
    EXPECT_EQ(4, decoder.ErrorNumber());
    EXPECT_FALSE(box.painted);
}

// Cut anywhere and with any byte changed: no crash, and nothing read that isn't there.
TEST_F(LoadPNGTest, EveryCutAndEveryChangedByteIsSurvived) {
    decoder.SetAlpha(true);
    decoder.SetTrans(true);
    for (const Kind& kind :
         {Kind{3, 4, true, 13, 9}, Kind{2, 16, false, 6, 5}, Kind{6, 8, true, 5, 5}}) {
        std::string file = kSignature + Ihdr(kind) + Chunk("bKGD", "\x01");
        if (kind.type == 3)
            file += Palette(kind.depth, random);
        if (kind.type < 4)
            file += Trns(kind, random);
        file += Chunk("zTXt", std::string("K\0\0", 3) + Deflated("text")) +
                Chunk("IDAT", Deflated(Rows(kind, 5, random))) + kEnd;
        for (size_t at = 0; at < file.size(); ++at) {
            box.painted = false;
            Open(file.substr(0, at));
            ASSERT_EQ(at > file.size() - 4, box.painted) << at; // only its last checksum
            for (const int bit : {0, 7, int(random() % 8)}) {
                std::string changed = file;
                changed[at] = char(changed[at] ^ 1 << bit);
                Open(changed);
            }
        }
    }
}

} // namespace
