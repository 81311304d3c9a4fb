// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/print/Printer.h"

#include <QFont>
#include <QPainter>
#include <QPrinter>
#include <functional>
#include <memory>

namespace platform {

/// Makes a QPrinter, each time with the same settings.
using DeviceFactory = std::function<std::unique_ptr<QPrinter>()>;

/// Prints through a QPrinter, whose margins become the smallest that it can print with.
class SystemPrinter : public Printer {
public:
    explicit SystemPrinter(DeviceFactory factory);
    ~SystemPrinter() override;

    int Width() const override;
    int Height() const override;
    int ScaleWidth() const override;
    int ScaleHeight() const override;
    int PhysicalOffsetX() const override;
    int PhysicalOffsetY() const override;
    double ScaleX(int pixels) const override;
    double ScaleY(int pixels) const override;
    void Font(const QString& name, double points) override;
    float TextWidth(const QString& text) const override;
    float TextHeight(const QString& text) const override;
    float CurrentX() const override { return m_x; }
    float CurrentY() const override { return m_y; }
    void CurrentX(float x) override { m_x = x; }
    void CurrentY(float y) override { m_y = y; }
    void Print(const QString& text) override;
    void NewPage() override;
    void EndDoc() override;
    QPainter* hDC() override { return m_painter.isActive() ? &m_painter : nullptr; }
    std::unique_ptr<QPaintDevice> CreateDC() const override;

private:
    QRect Paper() const;
    QRect PrintableArea() const;

    DeviceFactory m_factory;
    std::unique_ptr<QPrinter> m_device;
    QPainter m_painter;
    QFont m_font;
    float m_x = 0;
    float m_y = 0;
};

} // namespace platform
