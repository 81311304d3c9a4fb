// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/base/Twips.h"
#include "png/draw/Bitmap.h"
#include "png/draw/PictureBox.h"

#include <QFocusFrame>
#include <QFrame>
#include <QImage>
#include <QPointer>
#include <span>

namespace platform {

enum class BorderStyle { None = 0, Single = 1 };

/// A box that shows a picture at its upper left corner, pixel by pixel. What is drawn into it lies
/// over the picture until it becomes the picture itself or is taken away. Arrow keys move the point
/// that the mouse moves, with Shift in larger steps; Space and Enter click there.
class PictureBox : public QFrame, public png::PictureBox {
    Q_OBJECT

public:
    explicit PictureBox(QWidget* parent = nullptr);

    platform::BorderStyle BorderStyle() const;
    void BorderStyle(platform::BorderStyle style);

    /// A null picture shows the background colour. What was drawn goes, the size stays.
    const QImage& Picture() const { return m_picture; }
    void Picture(const QImage& picture);

    /// Where the arrow keys go on from, in twips; the mouse sets it, too.
    void PointAt(float x, float y);

    png::ScaleOwner* Parent() override { return &m_window; }
    png::ScaleMode ScaleMode() const override { return m_scale.ScaleMode(); }
    void ScaleMode(png::ScaleMode unit) override { m_scale.ScaleMode(unit); }
    double Width() const override { return m_window.FromPixels(width()); }
    void Width(double width) override { resize(m_window.ToPixels(width), height()); }
    double Height() const override { return m_window.FromPixels(height()); }
    void Height(double height) override { resize(width(), m_window.ToPixels(height)); }
    double ScaleWidth() const override { return m_scale.FromPixels(Inner().width()); }
    double ScaleHeight() const override { return m_scale.FromPixels(Inner().height()); }
    double TwipsPerPixelX() const override { return kTwipsPerPixel; }
    double TwipsPerPixelY() const override { return kTwipsPerPixel; }
    void Cls() override;
    /// Fails if there is no memory for a surface of the inner area.
    void StretchBlt(int x, int y, int width, int height, const png::Bitmap& source, int sourceWidth,
                    int sourceHeight) override;
    bool GetDIBits(int x, int y, int width, int height, std::span<uint8_t> bits) const override;
    void PictureFromImage() override;

Q_SIGNALS:
    /// In twips from the upper left corner of the inner area.
    void MouseMove(float x, float y);
    void Click(float x, float y);

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    class Scale : public png::ScaleOwner {
    public:
        png::ScaleMode ScaleMode() const override { return m_unit; }
        void ScaleMode(png::ScaleMode unit) override { m_unit = unit; }
        double FromPixels(int pixels) const { return pixels * Unit(); }
        /// As many as a widget can have.
        int ToPixels(double length) const;

    private:
        double Unit() const { return m_unit == png::ScaleMode::Twips ? kTwipsPerPixel : 1; }
        png::ScaleMode m_unit = png::ScaleMode::Twips;
    };

    QSize Inner() const { return contentsRect().size(); }
    QRgb Background() const { return palette().color(backgroundRole()).rgb(); }
    const QImage& Shown() const { return m_drawn.isNull() ? m_picture : m_drawn; }
    QImage& Surface();
    void Walk(int columns, int rows);

    QPointer<QFocusFrame> m_focusFrame; // around the box, so that it hides nothing of the picture
    Scale m_window;                     // the unit of the window around
    Scale m_scale;
    QImage m_picture;   // this and the next without transparency
    QImage m_drawn;     // with the picture beneath; null while nothing is drawn
    float m_pointX = 0; // twips
    float m_pointY = 0;
};

} // namespace platform
