// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/PictureBox.h"

#include "platform/base/Failure.h"
#include "platform/forms/Keys.h"
#include "png/draw/Bitmap.h"
#include "png/format/Header.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <span>
#include <utility>
#include <vector>

namespace platform {
namespace {

constexpr qint64 kLargestSurface = qint64{1} << 30; // bytes
constexpr int kLargeStep = 10;                      // pixels

struct Range {
    qint64 begin;
    qint64 end;
};

// What of `length` pixels from `from` on is among the first `limit` ones.
Range Clip(int from, int length, int limit) {
    return {std::max(0, from), std::min<qint64>(limit, qint64{from} + length)};
}

const QRgb* Row(const QImage& image, qint64 y) {
    return reinterpret_cast<const QRgb*>(image.constScanLine(static_cast<int>(y)));
}

QRgb* Row(QImage& image, qint64 y) {
    return reinterpret_cast<QRgb*>(image.scanLine(static_cast<int>(y)));
}

QImage NewSurface(QSize size) {
    const bool fits =
        qint64{size.width()} * size.height() <= kLargestSurface / qint64{sizeof(QRgb)};
    QImage surface = fits ? QImage(size, QImage::Format_RGB32) : QImage();
    if (surface.isNull() && !size.isEmpty())
        throw Failure(
            FailureCode::InvalidPicture, QStringLiteral("Imágenes"),
            QStringLiteral("La imagen es demasiado grande para mostrarla: %1 x %2 píxeles.")
                .arg(size.width())
                .arg(size.height()));
    return surface;
}

} // namespace

int PictureBox::Scale::ToPixels(double length) const {
    return static_cast<int>(std::clamp<double>(std::round(length / Unit()), 0, QWIDGETSIZE_MAX));
}

PictureBox::PictureBox(QWidget* parent) : QFrame(parent), m_focusFrame(new QFocusFrame(this)) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

platform::BorderStyle PictureBox::BorderStyle() const {
    return frameShape() == QFrame::NoFrame ? BorderStyle::None : BorderStyle::Single;
}

void PictureBox::BorderStyle(platform::BorderStyle style) {
    setFrameShadow(QFrame::Plain);
    setFrameShape(style == BorderStyle::None ? QFrame::NoFrame : QFrame::Box);
}

void PictureBox::Picture(const QImage& picture) {
    QImage opaque = picture;
    if (picture.hasAlphaChannel()) {
        opaque = NewSurface(picture.size());
        opaque.fill(Background());
        QPainter(&opaque).drawImage(0, 0, picture);
    }
    m_picture = opaque.convertToFormat(QImage::Format_RGB32);
    m_picture.setDevicePixelRatio(1);
    Cls();
    update();
}

void PictureBox::PointAt(float x, float y) {
    m_pointX = x;
    m_pointY = y;
}

void PictureBox::Cls() {
    m_drawn = QImage();
    update();
}

QImage& PictureBox::Surface() {
    if (m_drawn.size() == Inner())
        return m_drawn;
    QImage surface = NewSurface(Inner());
    surface.fill(Background());
    const QImage& shown = Shown();
    const QSize kept = shown.size().boundedTo(surface.size());
    for (int y = 0; y < kept.height(); ++y)
        std::copy_n(Row(shown, y), kept.width(), Row(surface, y));
    m_drawn = std::move(surface);
    return m_drawn;
}

void PictureBox::StretchBlt(int x, int y, int width, int height, const png::Bitmap& source,
                            int sourceWidth, int sourceHeight) {
    QImage& surface = Surface();
    const Range columns = Clip(x, width, surface.width());
    const Range rows = Clip(y, height, surface.height());
    const bool plain = sourceWidth == width;
    // A copy that isn't stretched takes the pixels from `first` to `last` of each row.
    const qint64 last = std::clamp<qint64>(columns.end - x, 0, source.Width());
    const qint64 first = std::min(columns.begin - x, last);
    std::vector<QRgb> pixels(static_cast<size_t>(source.Width()));
    for (qint64 to = rows.begin; to < rows.end; ++to) {
        const qint64 from = (to - y) * sourceHeight / height;
        if (from >= source.Height())
            break;
        source.CopyRow(static_cast<int>(from), reinterpret_cast<uint8_t*>(pixels.data()));
        QRgb* line = Row(surface, to);
        if (plain) {
            std::copy(pixels.begin() + first, pixels.begin() + last, line + columns.begin);
            continue;
        }
        for (qint64 column = columns.begin; column < columns.end; ++column) {
            const qint64 taken = (column - x) * sourceWidth / width;
            if (taken < source.Width())
                line[column] = pixels[static_cast<size_t>(taken)];
        }
    }
    update();
}

bool PictureBox::GetDIBits(int x, int y, int width, int height, std::span<uint8_t> bits) const {
    if (Inner().isEmpty())
        return false;
    std::fill(bits.begin(), bits.end(), uint8_t{0});
    const size_t stride = png::RowStride(static_cast<size_t>(width), 24);
    const Range columns = Clip(x, width, Inner().width());
    const Range rows = Clip(y, height, Inner().height());
    const QImage& shown = Shown();
    for (qint64 row = rows.begin; row < rows.end; ++row) {
        const QRgb* line = row < shown.height() ? Row(shown, row) : nullptr;
        uint8_t* out = bits.data() + stride * static_cast<size_t>(height - 1 - (row - y)) +
                       3 * (columns.begin - x);
        for (qint64 column = columns.begin; column < columns.end; ++column) {
            const QRgb color = line && column < shown.width() ? line[column] : Background();
            *out++ = static_cast<uint8_t>(qBlue(color));
            *out++ = static_cast<uint8_t>(qGreen(color));
            *out++ = static_cast<uint8_t>(qRed(color));
        }
    }
    return true;
}

void PictureBox::PictureFromImage() {
    if (m_drawn.isNull())
        return;
    m_picture = std::move(m_drawn);
    m_drawn = QImage();
}

void PictureBox::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    // Each pixel of the picture is a block of equal size if the screen's scale is a whole number.
    painter.setRenderHint(QPainter::SmoothPixmapTransform,
                          devicePixelRatioF() != std::floor(devicePixelRatioF()));
    const QPoint corner = contentsRect().topLeft();
    for (const QRect& exposed : event->region()) {
        const QRect inner = exposed & contentsRect();
        painter.fillRect(inner, QColor(Background()));
        const QRect part = inner.translated(-corner) & Shown().rect();
        if (!part.isEmpty())
            painter.drawImage(part.translated(corner), Shown(), part);
    }
    drawFrame(&painter);
}

void PictureBox::focusInEvent(QFocusEvent* event) {
    QFrame::focusInEvent(event);
    if (m_focusFrame)
        m_focusFrame->setWidget(this);
}

void PictureBox::focusOutEvent(QFocusEvent* event) {
    QFrame::focusOutEvent(event);
    if (m_focusFrame)
        m_focusFrame->setWidget(nullptr);
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    // position() has lost its fraction on the way from the window, scenePosition() hasn't.
    const QPoint corner = mapTo(window(), contentsRect().topLeft());
    const QPointF inner = event->scenePosition() - corner;
    PointAt(static_cast<float>(inner.x() * kTwipsPerPixel),
            static_cast<float>(inner.y() * kTwipsPerPixel));
    Q_EMIT MouseMove(m_pointX, m_pointY);
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    mouseMoveEvent(event); // a box that appears under the mouse gets no move first
    event->accept();       // the release comes here, too
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && contentsRect().contains(event->position().toPoint()))
        Q_EMIT Click(m_pointX, m_pointY);
}

void PictureBox::Walk(int columns, int rows) {
    const auto walked = [](float at, int by, int size) {
        const int pixel = static_cast<int>(std::floor(at / kTwipsPerPixel)) + by;
        return static_cast<float>(ToTwips(std::clamp(pixel, 0, std::max(0, size - 1))));
    };
    PointAt(walked(m_pointX, columns, Inner().width()), walked(m_pointY, rows, Inner().height()));
    Q_EMIT MouseMove(m_pointX, m_pointY);
}

void PictureBox::keyPressEvent(QKeyEvent* event) {
    if (IsEnter(*event) || event->key() == Qt::Key_Space) {
        Walk(0, 0);
        Q_EMIT Click(m_pointX, m_pointY);
        return;
    }
    const int step = event->modifiers() & Qt::ShiftModifier ? kLargeStep : 1;
    switch (event->key()) {
    case Qt::Key_Left:
        return Walk(-step, 0);
    case Qt::Key_Right:
        return Walk(step, 0);
    case Qt::Key_Up:
        return Walk(0, -step);
    case Qt::Key_Down:
        return Walk(0, step);
    default:
        QFrame::keyPressEvent(event);
    }
}

} // namespace platform
