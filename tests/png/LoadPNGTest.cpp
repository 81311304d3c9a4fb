// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeflateStream.h"
#include "PngFile.h"
#include "png/draw/CBitmap.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

using namespace recipes;
using namespace std::string_literals;
using Pixels = std::vector<uint8_t>;

constexpr size_t kInterlacing = 28; // the last byte of the first chunk, which is the header

std::string WithByte(std::string file, size_t at, int value) {
    file[at] = char(value);
    return file;
}

// The file's pixels as red, green, blue, alpha, by libpng.
Pixels Reference(const std::string& file) {
    png_structp reader = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(reader);
    const TemporaryFile source(file);
    std::rewind(source.file.get());
    png_init_io(reader, source.file.get());
    png_set_add_alpha(reader, 255, PNG_FILLER_AFTER);
    png_read_png(reader, info,
                 PNG_TRANSFORM_EXPAND | PNG_TRANSFORM_STRIP_16 | PNG_TRANSFORM_GRAY_TO_RGB,
                 nullptr);
    Pixels pixels;
    for (uint32_t y = 0; y < png_get_image_height(reader, info); ++y) {
        const png_bytep row = png_get_rows(reader, info)[y];
        pixels.insert(pixels.end(), row, row + png_get_rowbytes(reader, info));
    }
    png_destroy_read_struct(&reader, &info, nullptr);
    return pixels;
}

// Red, green, blue, alpha over blue, green, red.
Pixels Blended(Pixels rgba, const Pixels& below) {
    for (size_t i = 0; i < rgba.size(); i += 4) {
        std::swap(rgba[i], rgba[i + 2]);
        const int alpha = rgba[i + 3];
        for (size_t c = i; c < i + 3 && alpha < 255; ++c)
            rgba[c] = uint8_t((rgba[c] * alpha + below[c] * (255 - alpha) + 255) / 256);
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
    const auto compare = [&](const Kind& kind, int filter, bool transparency) {
        const std::string stream = Deflated(Rows(kind, filter, random), int(random() % 10));
        const std::string file = File(kind, Colors(kind, random), stream);
        decoder.SetAlpha(transparency);
        decoder.SetTrans(transparency);
        Pixels below(size_t(4) * kind.width * kind.height, 0x33);
        const bool overBox = random() % 2 == 0;
        decoder.BackgroundPicture(overBox ? &box : nullptr);
        decoder.SetOwnBkgndColor(random() % 2 == 0, 0x333333); // the first value plays no part
        if (overBox) {
            std::ranges::generate(below, [&] { return uint8_t(random()); });
            box.Width(15.0 * kind.width), box.Height(15.0 * kind.height);
            box.pixels = below;
        }
        box.painted = false;
        Open(file);
        Pixels expected = Reference(file);
        for (size_t i = 3; i < expected.size() && !transparency; i += 4)
            expected[i] = 255;
        ASSERT_EQ(Blended(expected, below), box.pixels)
            << kind.type << ' ' << kind.depth << ' ' << kind.laced << ' ' << filter;
        ASSERT_EQ(std::tuple(kind.type == 4 || kind.type == 6, true, int(kind.width), 0),
                  std::tuple(decoder.HaveAlpha(), box.painted, box.columns, decoder.ErrorNumber()));
    };
    const std::pair<uint32_t, uint32_t> sizes[] = {{1, 1}, {2, 9}, {4, 5}, {5, 3},   {6, 4},
                                                   {7, 6}, {8, 8}, {9, 1}, {33, 20}, {67, 17}};
    for (const auto& [type, depth] : kKinds) {
        for (int variant = 0; variant < 6 * 2 * 2; ++variant) {
            const bool transparency = variant % 4 >= 2 && !(type == 0 && depth == 16);
            for (const auto& [width, height] : sizes)
                compare({type, depth, variant % 2 == 1, width, height}, variant / 4, transparency);
        }
        compare({type, depth, true, 5, 400}, 5, false); // more filter bytes than pixels
    }
}

TEST_F(LoadPNGTest, PixelsOfUnusualFiles) {
    const std::string rgb = "\x0A\x14\x1E", key = "\1\x20\1\x21\1\x22";
    const Pixels black = {0, 0, 0, 255}, white(4, 255);
    decoder.SetTrans(true);
    decoder.SetOwnBkgndColor(true, 0xFFFFFF);
    const auto expect = [&](const Kind& kind, const std::string& chunks, const std::string& rows,
                            const Pixels& first, const Pixels& second = {}) {
        Open(File(kind, chunks, Deflated(rows)));
        Pixels expected = first;
        expected.insert(expected.end(), second.begin(), second.end());
        EXPECT_EQ(expected, box.pixels) << rows;
    };
    // Index 1 isn't there: black, though a table of alphas names it.
    const std::string alphas = Chunk("tRNS", "\xFF\0"s);
    expect({3, 8, false, 2, 1}, Chunk("PLTE", rgb) + alphas, "\0\0\1"s, {30, 20, 10, 255}, black);
    const std::string threefold = rgb + rgb + rgb;
    for (const std::string& wrong : {rgb, threefold}) // for one bit these are none
        expect({3, 1, false, 2, 1}, Chunk("PLTE", wrong), "\0\x40"s, black, white);
    // More entries than 4 bits can name, and a grey key of which the low byte is past the table.
    expect({3, 4}, Chunk("PLTE", std::string(63, '\7')), "\0\xF0"s, {7, 7, 7, 255});
    expect({0, 4}, Chunk("tRNS", "\0\x10"s), "\0\0"s, black);
    // A grey of 16 bits is matched by the low byte of its key, as colours of 8 bits are by theirs;
    // less than three samples are no key.
    expect({0, 16}, Chunk("tRNS", "\1\x20"), "\0\x20\x77"s, white);
    expect({2, 8}, Chunk("tRNS", key), "\0\x20\x21\x22"s, white);
    expect({2, 8}, Chunk("tRNS", key.substr(0, 5)), "\0\x20\x21\x22"s, {34, 33, 32, 255});
    expect({2, 16}, Chunk("tRNS", key.substr(0, 5)), '\0' + key, {1, 1, 1, 255});
    // Filters that don't exist leave the row, and the next one builds on it.
    expect({0, 8, false, 1, 2}, "", "\x09\x40\2\1", {64, 64, 64, 255}, {65, 65, 65, 255});
    Open(File({0, 8, false, 1000, 300}, "", Deflated(std::string(300300, '\0'))));
    EXPECT_EQ(4 * 1000 * 300U, box.pixels.size()); // it grew a thousandfold
    // What isn't deflated is taken as it is, behind its first two bytes.
    Open(WithByte(File({0, 8}, "", "xx\0\x55"s), kInterlacing - 2, 1)); // the compression method
    EXPECT_EQ(0x55, box.pixels[0]);
}

TEST_F(LoadPNGTest, SettingsDecideWhereThePictureGoes) {
    const std::string file = File({6, 8, false, 2, 1}, "", Deflated("\0\xFF\0\0\x80\0\0\xFF\0"s));
    std::ranges::fill(box.pixels, uint8_t{9});
    decoder.SetToBkgrnd(true, 38, 3); // the box keeps its size and is cleared
    Open(file);
    EXPECT_TRUE(box.painted); // with both sizes in twips
    EXPECT_EQ(std::pair(2 * 15, 1 * 15), box.drawn);
    EXPECT_EQ(std::pair(40, 20), box.Size());
    EXPECT_EQ((Pixels{0, 0, 0, 0, 0, 0, 255, 255, 255, 0, 0, 255}),
              Pixels(box.At(37, 3), box.At(40, 3)));
    decoder.SetAlpha(true); // half red over black, and black where nothing else was ever told
    decoder.SetToBkgrnd(false);
    Open(file);
    EXPECT_EQ((Pixels{0, 0, 128, 255, 0, 0, 0, 255}), box.pixels);
    for (const auto unit : {png::ScaleMode::Pixels, png::ScaleMode::Twips}) {
        MemoryBox framed(7, 7, 2); // the inner area gets the picture's size
        framed.parent.unit = unit;
        framed.topLevel = unit == png::ScaleMode::Twips;
        decoder.PicBox(&framed);
        Open(File({0, 8, false, 9, 6}, "", Deflated(std::string(60, '\0'))));
        EXPECT_EQ(std::pair(9, 6), framed.Size());
        EXPECT_EQ(std::pair(png::ScaleMode::Pixels, unit),
                  std::pair(framed.unit, framed.parent.unit));
    }
    decoder.PicBox(nullptr);
    Open(file);
    EXPECT_EQ(nullptr, png::CBitmap::BitmapHandle);
}

// A box that allows nothing.
struct StubbornBox : MemoryBox {
    void Width(double) override { throw std::runtime_error("width"); }
    void Cls() override { fail(); }
    bool GetDIBits(int, int, int, int, std::span<uint8_t>) const override { return false; }
    std::function<void()> fail = [] {};
};

TEST_F(LoadPNGTest, WhatLiesBelowComesFromABoxOrIsAColour) {
    const auto clear = [](uint32_t width, uint32_t height) {
        return File({6, 8, false, width, height}, Chunk("bKGD", "\0\1\0\2\0\3"s),
                    Deflated(std::string((size_t{4} * width + 1) * height, '\0')));
    };
    decoder.SetAlpha(true);
    MemoryBox small(1, 1); // it grows by 100 twips more than it lacks
    decoder.BackgroundPicture(&small);
    Open(clear(2, 3));
    EXPECT_EQ(std::pair(2 + 100 / 15, 3 + 100 / 15), small.Size());
    MemoryBox large(9, 8); // it keeps its size, and what stands at X and Y counts
    for (size_t i = 0; i < large.pixels.size(); ++i)
        large.pixels[i] = uint8_t(i % 4 == 3 ? 255 : i);
    const MemoryBox before = large;
    decoder.BackgroundPicture(&large);
    decoder.PicBox(&large);
    decoder.SetToBkgrnd(true, 4, 5);
    Open(clear(2, 2));
    EXPECT_EQ(before.Size(), large.Size());
    for (const int y : {5, 6})
        EXPECT_EQ(Pixels(before.At(4, y), before.At(6, y)), Pixels(large.At(4, y), large.At(6, y)));

    decoder.PicBox(&box);
    decoder.SetToBkgrnd(false);
    StubbornBox stubborn; // the height grows though the width can't; no pixels are black ones
    decoder.BackgroundPicture(&stubborn);
    Open(clear(1, 1));
    EXPECT_EQ(15 + 100 / 15 * 15, stubborn.Height());
    EXPECT_EQ((Pixels{0, 0, 0, 255}), box.pixels);
    decoder.BackgroundPicture(nullptr);
    Open(clear(1, 1));
    EXPECT_EQ((Pixels{3, 2, 1, 255}), box.pixels);
    decoder.PicBox(&stubborn); // no bitmap outlives a failure; only that of the memory is kept back
    stubborn.fail = [] { throw std::bad_alloc(); };
    EXPECT_NO_THROW(Open(clear(1, 1)));
    EXPECT_EQ(nullptr, png::CBitmap::BitmapHandle);
    stubborn.fail = [] { throw std::runtime_error("box"); };
    EXPECT_THROW(Open(clear(1, 1)), std::runtime_error);
    EXPECT_EQ(nullptr, png::CBitmap::BitmapHandle);
}

TEST_F(LoadPNGTest, ChunksTellWhatTheyTell) {
    const auto open = [&](const std::string& chunks, int type = 0, int depth = 8) {
        Open(File({type, depth}, chunks, Deflated(std::string(9, '\0'))));
    };
    std::string wrong = Chunk("tEXt", "K1\0V1"s);
    wrong.back() ^= 1; // no checksum is looked at
    const std::string packed = Deflated(std::string(500, 'x'));
    open(wrong + Chunk("tEXt", "K2\0V2"s) + Chunk("gAMA", Long(45455)) +
         Chunk("zTXt", "Key\0\0"s + packed) + Chunk("tIME", "\x07\xCF\x0C\x1F\x17\x3B\x07") +
         Chunk("qqqq", "?"));
    open(Chunk("tEXt", "K3") + Chunk("gAMA", "ab") + Chunk("tIME", "abc") +
         Chunk("zTXt", "\0\0"s + Deflated("x")) + Chunk("zTXt", "Key"));
    EXPECT_EQ("K1\0V1\0K2\0V2\0K3\0"s, decoder.Text());
    // The text is cut at what its compressed size allows.
    EXPECT_EQ("Key\0"s + std::string(12 * (packed.size() - 3) + 100, 'x') + "\0\0x\0Key\0\0"s,
              decoder.zText());
    EXPECT_DOUBLE_EQ(0.45455, decoder.gama());
    EXPECT_EQ("31.12.1999 23:59:07", decoder.ModiTime());

    const auto expect = [&](int32_t color, int type, int depth, const std::string& data) {
        open(Chunk("PLTE", "\1\2\3\4\5\6") + Chunk("bKGD", data), type, depth);
        EXPECT_EQ(color, decoder.BkgdColor()) << type << depth;
        EXPECT_TRUE(decoder.HasBKGDChunk());
    };
    expect(0x222222, 0, 4, "\0\2"s);
    expect(0x808080, 4, 8, "\0\x80"s);
    expect(0, 0, 2, "\0\4"s);
    expect(0x0080FF, 2, 16, "\xFF\xFF\x80\0\0\x40"s);
    expect(0x0080FF, 0, 16, "\2\0"s); // past the table: stays
    expect(0x060504, 3, 8, "\1");
    expect(0, 3, 8, "\2");
    expect(0xFFFFFF, 0, 4, "\0\xF"s);
    expect(0, 2, 8, "\1");
    expect(0x030380, 2, 8, "\1\x80\0\2\0\3"s); // runs over
    expect(int32_t(0xFEFF0001), 6, 1, std::string(6, '\xFF'));
    expect(0, 2, 0, std::string(6, '\1')); // no depth at all
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
    open(Chunk("tRNS", "ab"));
    EXPECT_TRUE(decoder.HaveTransparence());
    open(Chunk("tIME", "\xFF\xFF\1\1\1\1\1"));
    EXPECT_FALSE(decoder.HaveTransparence() || decoder.HasBKGDChunk());
    EXPECT_EQ("01.01.-1 01:01:01", decoder.ModiTime()); // a year has a sign
}

TEST_F(LoadPNGTest, DamagedFilesPaintNothing) {
    const Kind kind{2, 8, false, 3, 2};
    const std::string good = File(kind, "", Deflated(Rows(kind, 5, random)));
    const std::string nulls = Deflated(std::string(999, '\0'));
    const std::string codes(50, '\5'); // can't be built, which gives a message
    const auto expect = [&](int error, const std::string& message,
                            const std::vector<std::string>& files) {
        for (const std::string& file : files) {
            png::LoadPNG fresh;
            fresh.PicBox(&box);
            std::string told;
            fresh.MessageBox([&](const std::string& text) { told = text; });
            EXPECT_EQ(0, fresh.OpenPNG(TemporaryFile(file).Name()));
            EXPECT_EQ(std::tuple(false, error, message),
                      std::tuple(box.painted, fresh.ErrorNumber(), told));
        }
    };
    expect(1, "", {"", kSignature.substr(0, 7), "x" + good.substr(1)});
    expect(3, "",
           {kSignature, good.substr(0, good.size() - 12), good.substr(0, good.size() - 4),
            kSignature + Long(0x80000000) + "IDATabc", kSignature + Long(0x7FFFFFFF) + "IDATabc"});
    expect(4, "", {File(kind, "", "")});
    const std::string rest = Chunk("IDAT", nulls) + kEnd;
    expect(0, "",
           {kSignature + rest, kSignature + Chunk("IHDR", "ab") + rest, File(kind, "", "x"),
            File(kind, "", "xx\7")});
    for (const bool laced : {false, true}) { // a byte too few
        const Kind whole{2, 8, laced, 7, 60};
        expect(0, "", {File(whole, "", Deflated(Rows(whole, 0, random).substr(1)))});
    }
    // No picture, but codes are read whatever the header says.
    for (const Kind& header :
         {Kind{6, 8, true, 20000, 20000}, Kind{6, 255, true, 0x7FFFFFFF, 0x7FFFFFFF},
          Kind{6, 16, false, 0x7FFFFFFF, 0x7FFFFFFF}, Kind{2, 8, false, 0, 5},
          Kind{2, 8, false, 5, 0xFFFFFFFF}, Kind{0, 8, true, 0x80000000, 3},
          Kind{0, 8, false, 3, 0x80000000}, Kind{3, 16, false, 3, 2}, Kind{5, 8, false, 3, 2},
          Kind{2, 3, true, 9, 9}}) {
        const std::string file = File(header, "", codes);
        expect(0, "", {File(header, "", nulls)});
        expect(0, "Error in tree creation (Static)", {file, WithByte(file, kInterlacing, 2)});
    }
    // Codes behind the bytes for which there is room aren't.
    const std::string full = Stream().Stored(false, std::string(102, 'x')).Take();
    const std::string laced = File({0, 8, true, 9, 9}, "", "xx" + full + codes);
    expect(0, "", {WithByte(laced, kInterlacing, 2)});
    // Image data is none of the next file, the last checksum needn't be whole, and a failure stays
    // until the next one.
    for (const char* name : {"/nowhere", "/dev/zero"})
        decoder.OpenPNG(name);
    EXPECT_EQ(1, decoder.ErrorNumber());
    Open(good.substr(0, good.size() - 14));
    Open(good.substr(0, good.size() - 1));
    EXPECT_EQ(std::pair(true, 3), std::pair(box.painted, decoder.ErrorNumber()));
    box.painted = false;
    Open(File(kind, "", ""));
    EXPECT_EQ(std::pair(false, 4), std::pair(box.painted, decoder.ErrorNumber()));
}

// Whatever the header says, only what is there is read. Of a cut file nothing is painted.
TEST_F(LoadPNGTest, EveryCutAndEveryChangedByteIsSurvived) {
    decoder.SetAlpha(true);
    decoder.SetTrans(true);
    for (const Kind& kind : {Kind{3, 4, true, 13, 9}, Kind{2, 16, false, 6, 5}}) {
        const std::string chunks =
            Colors(kind, random) + Chunk("zTXt", "K\0\0"s + Deflated("text"));
        const std::string file = File(kind, chunks, Deflated(Rows(kind, 5, random)));
        for (size_t at = 0; at < file.size(); ++at) {
            box.painted = false;
            Open(file.substr(0, at));
            ASSERT_EQ(at > file.size() - 4, box.painted) << at; // only its last checksum
            for (const int bit : {0, 7, int(random() % 8)})
                Open(WithByte(file, at, file[at] ^ 1 << bit));
        }
    }
}

} // namespace
