// SPDX-License-Identifier: GPL-3.0-or-later
// Recipes for PNG files, good and bad, and a box that takes their pictures.
#pragma once

#include "png/LoadPNG.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <png.h>
#include <random>
#include <string>
#include <sys/mman.h>
#include <utility>
#include <vector>
#include <zlib.h>

namespace recipes {

inline const std::string kSignature = "\x89PNG\r\n\x1A\n";
inline const std::string kEnd = std::string("\0\0\0\0IEND\xAE\x42\x60\x82", 12);

inline std::string Long(uint32_t value) {
    return {char(value >> 24), char(value >> 16), char(value >> 8), char(value)};
}

inline std::string Chunk(const std::string& type, const std::string& data) {
    const std::string body = type + data;
    const uLong crc = crc32(0, reinterpret_cast<const Bytef*>(body.data()), uInt(body.size()));
    return Long(uint32_t(data.size())) + body + Long(uint32_t(crc));
}

inline std::string Deflated(const std::string& bytes, int level = 6) {
    uLong size = compressBound(uLong(bytes.size()));
    std::string packed(size, '\0');
    compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
              reinterpret_cast<const Bytef*>(bytes.data()), uLong(bytes.size()), level);
    packed.resize(size);
    return packed;
}

/// Bytes below a number; of four so many repeat what stands before them.
inline std::string Bytes(size_t size, uint32_t below, std::mt19937& random, uint32_t repeats = 0) {
    std::string made(size, '\0');
    for (size_t i = 0; i < size; ++i)
        made[i] = char(i > 40 && random() % 4 < repeats ? made[i - 1 - random() % 2 * 37]
                                                        : random() % below);
    return made;
}

/// Colour type and depth of every kind of picture.
inline constexpr std::pair<int, int> kKinds[] = {{0, 1}, {0, 2},  {0, 4},  {0, 8}, {0, 16},
                                                 {2, 8}, {2, 16}, {3, 1},  {3, 2}, {3, 4},
                                                 {3, 8}, {4, 8},  {4, 16}, {6, 8}, {6, 16}};

struct Kind {
    int type = 6;
    int depth = 8;
    bool laced = false;
    uint32_t width = 1;
    uint32_t height = 1;

    int Channels() const { return type == 2 ? 3 : type == 4 ? 2 : type == 6 ? 4 : 1; }
};

/// A file with these chunks behind the header, and its image data in several.
inline std::string File(const Kind& kind, const std::string& chunks, const std::string& data) {
    const size_t half = data.size() / 2;
    const std::string header = Long(kind.width) + Long(kind.height) +
                               std::string{char(kind.depth), char(kind.type), 0, 0, kind.laced};
    return kSignature + Chunk("IHDR", header) + chunks + Chunk("IDAT", data.substr(0, half)) +
           Chunk("IDAT", "") + Chunk("IDAT", data.substr(half)) + kEnd;
}

/// Stored rows of any content: whatever their bytes are, they are the filtered rows of a picture.
/// A filter of 5 stands for a mixture.
inline std::string Rows(const Kind& kind, int filter, std::mt19937& random) {
    std::string rows;
    for (int pass = kind.laced ? 0 : 6; pass < 7; ++pass) {
        const uint32_t columns = kind.laced ? PNG_PASS_COLS(kind.width, pass) : kind.width;
        const uint32_t lines = kind.laced ? PNG_PASS_ROWS(kind.height, pass) : kind.height;
        const size_t length = (size_t(columns) * size_t(kind.Channels() * kind.depth) + 7) / 8;
        for (uint32_t y = 0; y < lines && columns > 0; ++y) {
            rows += char(filter < 5 ? uint32_t(filter) : random() % 5);
            for (size_t i = 0; i < length; ++i)
                rows += char(random() % 3 == 0 ? random() : 255);
        }
    }
    return rows;
}

/// The palette of a picture that needs one, and what makes some pixels transparent without a
/// channel for that.
inline std::string Colors(const Kind& kind, std::mt19937& random) {
    if (kind.type > 3)
        return "";
    if (kind.type < 3) {
        const int key = kind.depth == 16 ? 0xFFFF : (1 << kind.depth) - 1;
        const std::string sample{char(key >> 8), char(key)};
        return Chunk("tRNS", kind.type == 0 ? sample : sample + sample + sample);
    }
    return Chunk("PLTE", Bytes(size_t(3) << kind.depth, 256, random)) +
           Chunk("tRNS", std::string(size_t(1) << (kind.depth - 1), char(random())));
}

/// A file in memory that has a name as long as the object lives.
struct TemporaryFile {
    explicit TemporaryFile(const std::string& bytes) {
        std::fwrite(bytes.data(), 1, bytes.size(), file.get());
        std::fflush(file.get());
    }
    std::string Name() const { return "/proc/self/fd/" + std::to_string(fileno(file.get())); }
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file{fdopen(memfd_create("png", 0), "w+"),
                                                         std::fclose};
};

template<class Window>
struct Scaled : Window {
    png::ScaleMode ScaleMode() const override { return unit; }
    void ScaleMode(png::ScaleMode value) override { unit = value; }
    png::ScaleMode unit = png::ScaleMode::Pixels;
};

/// A box on a plain buffer of blue, green, red, 255; 15 twips are a pixel.
class MemoryBox : public Scaled<png::PictureBox> {
public:
    explicit MemoryBox(int width = 0, int height = 0, int frame = 0)
        : columns(width), lines(height), border(frame) {
        parent.unit = png::ScaleMode::Twips;
        Fit();
    }
    png::ScaleOwner* Parent() override { return topLevel ? nullptr : &parent; }
    double Width() const override { return (columns + 2 * border) * In(parent.unit); }
    void Width(double value) override { columns = Inner(value), Fit(); }
    double Height() const override { return (lines + 2 * border) * In(parent.unit); }
    void Height(double value) override { lines = Inner(value), Fit(); }
    double ScaleWidth() const override { return columns * In(unit); }
    double ScaleHeight() const override { return lines * In(unit); }
    double TwipsPerPixelX() const override { return 15; }
    double TwipsPerPixelY() const override { return 15; }
    void Cls() override { std::fill(pixels.begin(), pixels.end(), uint8_t{0}); }
    void StretchBlt(int x, int y, int width, int height, const png::Bitmap& source, int sourceWidth,
                    int sourceHeight) override {
        m_unscaled = width == sourceWidth && height == sourceHeight; // as always
        drawn = {width, height};
        std::vector<uint8_t> row(4 * size_t(source.Width()));
        for (int line = 0; line < std::min(source.Height(), lines - y); ++line) {
            source.CopyRow(line, row.data());
            const int shown = std::min(source.Width(), columns - x);
            std::copy_n(row.begin(), 4 * std::max(0, shown), At(x, y + line));
        }
    }
    bool GetDIBits(int x, int y, int width, int height, std::span<uint8_t> to) const override {
        for (int i = 0; i < width * height; ++i) {
            const size_t row = size_t(height - 1 - i / width);
            std::copy_n(At(x + i % width, y + i / width), 3,
                        &to[row * png::RowStride(size_t(width), 24) + size_t(3 * (i % width))]);
        }
        return true;
    }
    void PictureFromImage() override { painted = m_unscaled; }

    std::pair<int, int> Size() const { return {columns, lines}; }
    uint8_t* At(int x, int y) const { return pixels.data() + 4 * (ptrdiff_t(y) * columns + x); }

    int columns, lines, border;
    Scaled<png::ScaleOwner> parent;
    mutable std::vector<uint8_t> pixels;
    bool topLevel = false;
    bool painted = false;
    std::pair<int, int> drawn;

private:
    static double In(png::ScaleMode unit) { return unit == png::ScaleMode::Twips ? 15 : 1; }
    int Inner(double size) const { return std::max(0, int(size / In(parent.unit)) - 2 * border); }
    void Fit() { pixels.resize(size_t(4) * size_t(columns) * size_t(lines)); }

    bool m_unscaled = false;
};

} // namespace recipes
