// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>
#include <QString>

class QPaintDevice;
class QPainter;

namespace platform {

/// A range of a text and where to render it. Rectangles are in twips (1/1440 inch) of the device.
struct FormatRange {
    QPainter* hdc = nullptr;           ///< draws it
    QPaintDevice* hdcTarget = nullptr; ///< the device that the text is laid out for
    QRectF rc;                         ///< where the text goes
    QRectF rcPage;                     ///< the whole page
    qsizetype cpMin = 0;               ///< first character
    qsizetype cpMax = -1;              ///< the end of what is rendered; -1: the end of the text
};

/// The interface for printing a rich text control. Characters are UTF-16 code units; the end of a
/// paragraph counts as one.
class RichText {
public:
    virtual ~RichText() = default;

    virtual QString Text() const = 0;
    /// Lays the text out for a device and a line width in twips.
    virtual void SetTargetDevice(QPaintDevice& device, int lineWidth) = 0;
    /// Renders whole lines from cpMin on and returns the first character that didn't fit, or the
    /// end. A page break in the text ends a page too.
    virtual qsizetype Format(const FormatRange& range) = 0;
    /// Frees the layout.
    virtual void ReleaseFormat() = 0;
};

} // namespace platform
