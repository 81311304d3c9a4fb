// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/base/Seam.h"

#include <QString>
#include <functional>
#include <memory>

class QPaintDevice;
class QPainter;

namespace platform {

/// A printer and its current job, which begins with the first Print and ends with EndDoc; without
/// EndDoc it is cancelled. Lengths are in twips (1/1440 inch) unless said otherwise, positions are
/// relative to the top left corner of the printable area. Whatever the printer refuses is a
/// Failure.
class Printer {
public:
    virtual ~Printer() = default;

    /// Of the whole paper.
    virtual int Width() const = 0;
    virtual int Height() const = 0;
    /// Of the printable area.
    virtual int ScaleWidth() const = 0;
    virtual int ScaleHeight() const = 0;
    /// From the edge of the paper to the printable area, in pixels of the device.
    virtual int PhysicalOffsetX() const = 0;
    virtual int PhysicalOffsetY() const = 0;
    /// Pixels of the device in twips.
    virtual double ScaleX(int pixels) const = 0;
    virtual double ScaleY(int pixels) const = 0;

    virtual void Font(const QString& name, double points) = 0;
    virtual float TextWidth(const QString& text) const = 0;
    /// The height of a line: the same for every text.
    virtual float TextHeight(const QString& text) const = 0;

    virtual float CurrentX() const = 0;
    virtual float CurrentY() const = 0;
    virtual void CurrentX(float x) = 0;
    virtual void CurrentY(float y) = 0;
    /// Prints one line at the current place and goes to the start of the next one.
    virtual void Print(const QString& text) = 0;
    virtual void NewPage() = 0;
    virtual void EndDoc() = 0;

    /// The painter of the page, in pixels of the device; null outside a job.
    virtual QPainter* hDC() = 0;
    /// A device like the printer's, only to measure for.
    virtual std::unique_ptr<QPaintDevice> CreateDC() const = 0;
};

using PrinterFactory = std::function<std::unique_ptr<Printer>()>;

/// The printer that is current. Fails if there is none.
std::unique_ptr<Printer> CurrentPrinter();
/// The factory that CurrentPrinter calls.
Seam<PrinterFactory>& PrinterSeam();

} // namespace platform
