// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/draw/Bitmap.h"

#include <cstdint>
#include <span>

namespace png {

/// Units in which a window counts. A twip is 1/1440 of an inch.
enum class ScaleMode { Twips = 1, Pixels = 3 };

/// What owns a picture box; the box's outer size is counted in its unit.
class ScaleOwner {
public:
    virtual ~ScaleOwner() = default;
    // Neither fails.
    virtual png::ScaleMode ScaleMode() const = 0;
    virtual void ScaleMode(png::ScaleMode unit) = 0;
};

/// All that the decoder asks of the control that shows a picture.
class PictureBox : public ScaleOwner {
public:
    /// The window around the box; null if the box is a top-level form itself.
    virtual ScaleOwner* Parent() = 0;
    /// The outer size, with the border, in the unit of the parent (in twips without one). A size
    /// that the system doesn't allow becomes the nearest one that it does.
    virtual double Width() const = 0;
    virtual void Width(double width) = 0;
    virtual double Height() const = 0;
    virtual void Height(double height) = 0;
    /// The inner size, in the unit of the box.
    virtual double ScaleWidth() const = 0;
    virtual double ScaleHeight() const = 0;
    /// The screen's twips to a pixel.
    virtual double TwipsPerPixelX() const = 0;
    virtual double TwipsPerPixelY() const = 0;

    /// Takes away what was drawn since a picture was last set; that picture shows again.
    virtual void Cls() = 0;
    /// Draws the source's upper left part of sourceWidth x sourceHeight pixels into the rectangle
    /// at x, y of the inner area, in pixels, scaled if the sizes differ. A part of the rectangle
    /// for which the source has no pixels stays as it was. May throw if the
    /// box is too large to be drawn on.
    virtual void StretchBlt(int x, int y, int width, int height, const Bitmap& source,
                            int sourceWidth, int sourceHeight) = 0;
    /// Reads what is drawn now, in pixels of the inner area: `bits` receives `height` rows of
    /// RowStride(width, 24) bytes, blue, green, red, the bottom row first. What lies outside the
    /// inner area is black. Answers false if the box has no surface; then `bits` is as it was.
    virtual bool GetDIBits(int x, int y, int width, int height, std::span<uint8_t> bits) const = 0;
    /// Makes what is drawn now the picture of the box, so that it persists.
    virtual void PictureFromImage() = 0;
};

} // namespace png
