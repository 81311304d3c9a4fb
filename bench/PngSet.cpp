// SPDX-License-Identifier: GPL-3.0-or-later
#include "PngSet.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <png.h>
#include <random>

namespace bench {
namespace {

using Random = std::mt19937;

struct Canvas {
    int width;
    int height;
    std::vector<std::array<uint8_t, 4>> pixels;

    Canvas(int w, int h, std::array<uint8_t, 4> color)
        : width(w), height(h), pixels(size_t(w) * size_t(h), color) {}
    std::array<uint8_t, 4>& At(int x, int y) {
        return pixels[size_t(y) * size_t(width) + size_t(x)];
    }
};

// Soft shapes of several sizes and the noise of a sensor.
Canvas Photograph(int width, int height, Random& random) {
    Canvas canvas(width, height, {0, 0, 0, 255});
    constexpr int kGrid = 65;
    for (int channel = 0; channel < 3; ++channel) {
        std::array<std::vector<float>, 4> grids;
        for (auto& grid : grids) {
            grid.resize(size_t(kGrid) * kGrid);
            for (float& value : grid)
                value = float(random() % 256);
        }
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                float sum = 0;
                float weight = 0.5F;
                int cell = 512;
                for (const auto& grid : grids) {
                    const float u = float(x) / float(cell), v = float(y) / float(cell);
                    const int column = int(u), line = int(v);
                    const float a = u - float(column), b = v - float(line);
                    const auto at = [&](int i, int j) {
                        const int row = (line + j) % kGrid;
                        return grid[size_t(row) * kGrid + size_t((column + i) % kGrid)];
                    };
                    sum += weight * ((at(0, 0) * (1 - a) + at(1, 0) * a) * (1 - b) +
                                     (at(0, 1) * (1 - a) + at(1, 1) * a) * b);
                    weight /= 2;
                    cell /= 4;
                }
                const int noise = int(random() % 5) - 2;
                canvas.At(x, y)[size_t(channel)] = uint8_t(std::clamp(int(sum) + noise, 0, 255));
            }
        }
    }
    return canvas;
}

void Fill(Canvas& canvas, int left, int top, int width, int height, std::array<uint8_t, 4> color) {
    for (int y = std::max(0, top); y < std::min(canvas.height, top + height); ++y)
        for (int x = std::max(0, left); x < std::min(canvas.width, left + width); ++x)
            canvas.At(x, y) = color;
}

// Lines of letters, each a pattern of 7 x 11 with grey edges, of an alphabet of 60.
void Write(Canvas& canvas, int left, int top, int width, int height, Random& random) {
    std::vector<std::array<uint8_t, 77>> letters(60);
    Random shapes(3);
    for (auto& letter : letters)
        for (uint8_t& dot : letter)
            dot = shapes() % 3 == 0 ? uint8_t(shapes() % 160) : 255;
    for (int y = top; y + 16 < std::min(canvas.height, top + height); y += 16) {
        int length = int(random() % unsigned(width / 8));
        for (int x = left; length > 0 && x + 8 < std::min(canvas.width, left + width);
             x += 8, --length) {
            if (random() % 6 == 0)
                continue;
            const auto& letter = letters[random() % 60 * (random() % 60) / 60];
            for (int dot = 0; dot < 77; ++dot) {
                auto& pixel = canvas.At(x + dot % 7, y + dot / 7);
                for (size_t c = 0; c < 3; ++c)
                    pixel[c] = uint8_t(pixel[c] * letter[size_t(dot)] / 255);
            }
        }
    }
}

Canvas Screenshot(int width, int height, Random& random) {
    Canvas canvas(width, height, {58, 110, 165, 255});
    for (int window = 0; window < 12; ++window) {
        const int left = int(random() % unsigned(width)), top = int(random() % unsigned(height));
        const int w = 200 + int(random() % unsigned(width / 2)),
                  h = 100 + int(random() % unsigned(height / 2));
        Fill(canvas, left, top, w, h, {240, 240, 240, 255});
        for (int x = left; x < std::min(canvas.width, left + w); ++x)
            Fill(canvas, x, top, 1, 24, {uint8_t((x - left) * 120 / w), 90, 200, 255});
        Fill(canvas, left + 8, top + 32, w - 16, h - 40, {255, 255, 255, 255});
        Write(canvas, left + 12, top + 36, w - 24, h - 48, random);
    }
    return canvas;
}

Canvas Text(int width, int height, Random& random) {
    Canvas canvas(width, height, {255, 255, 255, 255});
    Write(canvas, width / 10, height / 12, width * 8 / 10, height * 10 / 12, random);
    return canvas;
}

// Shaded discs with soft edges on nothing.
Canvas Sprites(int width, int height, Random& random) {
    Canvas canvas(width, height, {0, 0, 0, 0});
    for (int disc = 0; disc < 30; ++disc) {
        const int cx = int(random() % unsigned(width)), cy = int(random() % unsigned(height));
        const int radius = 8 + int(random() % 24);
        const std::array<int, 3> color = {int(random() % 256), int(random() % 256),
                                          int(random() % 256)};
        for (int y = std::max(0, cy - radius); y < std::min(height, cy + radius); ++y) {
            for (int x = std::max(0, cx - radius); x < std::min(width, cx + radius); ++x) {
                const double far = std::hypot(x - cx, y - cy) / radius;
                if (far >= 1)
                    continue;
                for (size_t c = 0; c < 3; ++c)
                    canvas.At(x, y)[c] = uint8_t(color[c] * (1 - far * far / 2));
                canvas.At(x, y)[3] = uint8_t(std::min(1.0, (1 - far) * 4) * 255);
            }
        }
    }
    return canvas;
}

struct Format {
    int type = 0;
    int depth = 8;
    int filters = PNG_ALL_FILTERS;
    bool laced = false;
    int level = 6;
};

// A pixel's samples as the file's format has them.
void PutPixel(const std::array<uint8_t, 4>& pixel, const Format& format, int x, int y,
              Random& random, uint8_t* row) {
    const int grey = (pixel[0] + pixel[1] + pixel[2]) / 3;
    switch (format.type) {
    case PNG_COLOR_TYPE_GRAY:
        if (format.depth == 8)
            row[x] = uint8_t(grey);
        else
            row[x / 8] = uint8_t(row[x / 8] | (grey > 128) << (7 - x % 8));
        return;
    case PNG_COLOR_TYPE_PALETTE: { // ordered dither to 6 x 6 x 6 colours
        const int threshold = (x % 4 * 4 + y % 4 * 7) % 16 * 3;
        const auto step = [&](size_t c) { return std::min(5, (pixel[c] + threshold) / 51); };
        row[x] = uint8_t(36 * step(0) + 6 * step(1) + step(2));
        return;
    }
    default: {
        const int channels = format.type == PNG_COLOR_TYPE_RGB ? 3 : 4;
        for (int c = 0; c < channels; ++c) {
            uint8_t* sample = row + (x * channels + c) * format.depth / 8;
            sample[0] = pixel[size_t(c)];
            if (format.depth == 16)
                sample[1] = uint8_t(random() % 64);
        }
    }
    }
}

std::string Written(Canvas& canvas, const Format& format, Random& random) {
    std::string file;
    png_structp writer = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(writer);
    png_set_write_fn(
        writer, &file,
        [](png_structp self, png_bytep bytes, size_t count) {
            static_cast<std::string*>(png_get_io_ptr(self))
                ->append(reinterpret_cast<char*>(bytes), count);
        },
        nullptr);
    png_set_compression_level(writer, format.level);
    png_set_filter(writer, 0, format.filters);
    png_set_IHDR(writer, info, uint32_t(canvas.width), uint32_t(canvas.height), format.depth,
                 format.type, format.laced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (format.type == PNG_COLOR_TYPE_PALETTE) {
        std::array<png_color, 216> palette{};
        for (int i = 0; i < 216; ++i)
            palette[size_t(i)] = {png_byte(i / 36 * 51), png_byte(i / 6 % 6 * 51),
                                  png_byte(i % 6 * 51)};
        png_set_PLTE(writer, info, palette.data(), int(palette.size()));
    }
    png_write_info(writer, info);
    std::vector<std::vector<uint8_t>> lines(size_t(canvas.height));
    std::vector<png_bytep> rows;
    for (int y = 0; y < canvas.height; ++y) {
        auto& line = lines[size_t(y)];
        line.resize(png_get_rowbytes(writer, info));
        for (int x = 0; x < canvas.width; ++x)
            PutPixel(canvas.At(x, y), format, x, y, random, line.data());
        rows.push_back(line.data());
    }
    png_write_image(writer, rows.data());
    png_write_end(writer, info);
    png_destroy_write_struct(&writer, &info);
    return file;
}

} // namespace

std::vector<PngFile> MakePngSet() {
    Random random(20);
    Canvas sprites = Sprites(480, 272, random);
    Canvas photo = Photograph(1920, 1080, random);
    Canvas largePhoto = Photograph(4000, 3000, random);
    Canvas screen = Screenshot(1920, 1080, random);
    Canvas largeScreen = Screenshot(4000, 3000, random);
    Canvas text = Text(2480, 3508, random);
    const auto file = [&](const char* name, Canvas& canvas, const Format& format) {
        return PngFile{name, Written(canvas, format, random)};
    };
    constexpr int kPalette = PNG_COLOR_TYPE_PALETTE;
    return {
        file("sprites 480x272 RGBA", sprites, {PNG_COLOR_TYPE_RGBA}),
        file("photograph 1920x1080 RGB", photo, {PNG_COLOR_TYPE_RGB}),
        file("photograph 4000x3000 RGB", largePhoto, {PNG_COLOR_TYPE_RGB}),
        file("screenshot 1920x1080 RGB", screen, {PNG_COLOR_TYPE_RGB}),
        file("screenshot 4000x3000 RGBA", largeScreen, {PNG_COLOR_TYPE_RGBA}),
        file("text 2480x3508 grey", text, {PNG_COLOR_TYPE_GRAY}),
        file("dithered 1920x1080 palette", photo, {kPalette, 8, PNG_FILTER_NONE}),
        file("photograph 1920x1080 RGB 16 bits", photo, {PNG_COLOR_TYPE_RGB, 16}),
        file("screenshot 1920x1080 RGBA Adam7", screen,
             {PNG_COLOR_TYPE_RGBA, 8, PNG_ALL_FILTERS, true}),
        file("photograph 1920x1080 RGBA Paeth", photo, {PNG_COLOR_TYPE_RGBA, 8, PNG_FILTER_PAETH}),
        file("text 2480x3508 grey 1 bit", text, {PNG_COLOR_TYPE_GRAY, 1, PNG_FILTER_NONE}),
        file("photograph 1920x1080 RGB stored", photo,
             {PNG_COLOR_TYPE_RGB, 8, PNG_FILTER_NONE, false, 0})};
}

} // namespace bench
