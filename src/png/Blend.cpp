// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/Blend.h"

#include <algorithm>
#include <cstring>
#include <exception>

namespace png {
namespace {

constexpr double kMargin = 100; // twips by which a box that is too small gets too large

// Rows of blue, green, red under the picture, the bottom one first. A step of 0 repeats the one
// row.
struct Background {
    Bytes rows;
    size_t step = 0;
};

template<class Statement>
void Skipping(Statement statement) {
    try {
        statement();
    } catch (const std::exception&) {
        // The statement counts as not written.
    }
}

Background OfBox(const Fields& fields, PictureBox& box, int32_t X, int32_t Y, size_t stride) {
    const double width = box.TwipsPerPixelX() * fields.Width;
    const double height = box.TwipsPerPixelY() * fields.Height;
    Skipping([&] {
        if (box.Width() < width)
            box.Width(width + kMargin);
    });
    Skipping([&] {
        if (box.Height() < height)
            box.Height(height + kMargin);
    });
    Background background{Bytes(static_cast<size_t>(fields.Height) * stride), stride};
    std::fill(background.rows.begin(), background.rows.end(), uint8_t{0});
    Skipping([&] {
        static_cast<void>(box.GetDIBits(X, Y, fields.Width, fields.Height,
                                        std::span(background.rows.data(), background.rows.size())));
    });
    return background;
}

Background OfColor(const Fields& fields, size_t stride) {
    Background background{Bytes(stride), 0};
    const int32_t color = fields.OwnBackColor != 0 ? fields.OwnBackColor : fields.BkgdColor;
    FillBackground(background.rows, color, stride);
    return background;
}

uint8_t Mix(int source, int background, int alpha) {
    return static_cast<uint8_t>((source * alpha + background * (255 - alpha) + 255) >> 8);
}

void BlendRow(const uint8_t* from, const uint8_t* background, uint8_t* to, int32_t width) {
    for (int32_t x = 0; x < width; ++x, from += 4, background += 3, to += 3) {
        const int alpha = from[3];
        if (alpha == 255)
            std::memmove(to, from, 3);
        else if (alpha == 0)
            std::memcpy(to, background, 3);
        else {
            for (int c = 0; c < 3; ++c)
                to[c] = Mix(from[c], background[c], alpha);
        }
    }
}

} // namespace

void FillBackground(Bytes& buffer, int32_t color, size_t rowBytes) {
    for (size_t row = 0; row + rowBytes <= buffer.size(); row += rowBytes) {
        uint8_t* to = buffer.data() + row;
        for (size_t i = 0; i < rowBytes; ++i)
            to[i] = static_cast<uint8_t>(color >> (16 - 8 * (i % 3)));
    }
}

void BlendOnBackground(const Fields& fields, PictureBox* box, Bytes& Data, int32_t X, int32_t Y) {
    const auto width = static_cast<size_t>(fields.Width);
    const auto height = static_cast<size_t>(fields.Height);
    const size_t stride = RowStride(width, 24);
    const Background background =
        box != nullptr ? OfBox(fields, *box, X, Y, stride) : OfColor(fields, stride);
    // A row of the result is never longer than its source, so it can take the place of it.
    for (size_t y = 0; y < height; ++y) {
        uint8_t* to = Data.data() + y * stride;
        BlendRow(Data.data() + y * 4 * width, background.rows.data() + y * background.step, to,
                 fields.Width);
        std::fill(to + 3 * width, to + stride, uint8_t{0});
    }
    Data.Resize(height * stride);
}

} // namespace png
