// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/BlendOnBackground.h"

#include "png/format/Header.h"
#include "png/rows/Blending.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <span>

namespace png {
namespace {

constexpr double kMargin = 100; // twips by which a box that is too small gets too large

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

} // namespace

void BlendOnBackground(const Fields& fields, PictureBox* box, Bytes& Data, int32_t X, int32_t Y) {
    const size_t stride = RowStride(static_cast<size_t>(fields.Width), 24);
    const Background background =
        box != nullptr ? OfBox(fields, *box, X, Y, stride) : OfColor(fields, stride);
    BlendRows(background, fields.Width, fields.Height, Data);
}

} // namespace png
