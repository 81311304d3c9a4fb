// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DocumentFormatter.h"

#include "platform/TargetDevice.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextBlock>
#include <QTextLayout>

namespace platform {
namespace {

constexpr double kTwipsPerInch = 1440;

QSize ResolutionOf(const QPaintDevice& device) {
    return {device.logicalDpiX(), device.logicalDpiY()};
}

QRectF ToPixels(const QRectF& twips, const QPaintDevice& device) {
    const double x = device.logicalDpiX() / kTwipsPerInch;
    const double y = device.logicalDpiY() / kTwipsPerInch;
    return {twips.left() * x, twips.top() * y, twips.width() * x, twips.height() * y};
}

bool BreaksPage(const QTextBlock& block) {
    return block.blockFormat().pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore;
}

// Goes through the lines of a document from a character on.
class Lines {
public:
    Lines(const QTextDocument& document, qsizetype first)
        : m_layout(document.documentLayout()),
          m_block(document.findBlock(static_cast<int>(first))) {
        m_layout->blockBoundingRect(m_block); // lays it out if need be
        m_line =
            m_block.layout()->lineForTextPosition(static_cast<int>(first) - m_block.position());
        if (!m_line.isValid())
            Next();
    }

    bool AtEnd() const { return !m_line.isValid(); }
    bool StartsBlock() const { return m_line.lineNumber() == 0; }
    const QTextBlock& Block() const { return m_block; }
    int Position() const { return m_block.position() + m_line.textStart(); }
    double Top() const { return m_block.layout()->position().y() + m_line.y(); }
    double Bottom() const { return Top() + m_line.height(); }

    void Draw(QPainter& painter, QPointF origin) const {
        m_line.draw(&painter, m_block.layout()->position() + origin);
    }

    void Next() {
        const int following = m_line.isValid() ? m_line.lineNumber() + 1 : 0;
        m_line = LineAt(following);
        while (!m_line.isValid() && m_block.isValid()) {
            m_block = m_block.next();
            if (m_block.isValid())
                m_layout->blockBoundingRect(m_block);
            m_line = LineAt(0);
        }
    }

private:
    QTextLine LineAt(int number) const {
        if (!m_block.isValid() || number >= m_block.layout()->lineCount())
            return {};
        return m_block.layout()->lineAt(number);
    }

    QAbstractTextDocumentLayout* m_layout;
    QTextBlock m_block;
    QTextLine m_line;
};

} // namespace

void DocumentFormatter::LayOut(const QTextDocument& document, QPaintDevice& device,
                               double lineWidth) {
    const int width = static_cast<int>(ToPixels({0, 0, lineWidth, 0}, device).width());
    if (m_copy && m_revision == document.revision() && m_width == width &&
        m_resolution == ResolutionOf(device)) {
        m_copy->documentLayout()->setPaintDevice(&device);
        return;
    }
    m_copy.reset(document.clone());
    m_revision = document.revision();
    m_width = width;
    m_resolution = ResolutionOf(device);
    m_copy->setDocumentMargin(0);
    m_copy->setDefaultTextOption(document.defaultTextOption());
    SetTargetDevice(*m_copy, device);
    m_copy->setTextWidth(std::max(width, 1));
}

qsizetype DocumentFormatter::Render(const FormatRange& range) const {
    QPainter& painter = *range.hdc;
    const QRectF rectangle = ToPixels(range.rc, *painter.device());
    const qsizetype length = m_copy->characterCount() - 1;
    const qsizetype end = range.cpMax < 0 ? length : std::min(range.cpMax, length);
    if (range.cpMin >= end)
        return end;
    painter.setPen(Qt::black);
    Lines line(*m_copy, range.cpMin);
    const double top = line.AtEnd() ? 0 : line.Top();
    for (; !line.AtEnd(); line.Next()) {
        const qsizetype position = line.Position();
        const bool started = position > range.cpMin;
        if (started && position >= end)
            return end;
        if (line.Bottom() - top > rectangle.height())
            return position;
        if (started && line.StartsBlock() && BreaksPage(line.Block()))
            return position;
        line.Draw(painter, rectangle.topLeft() - QPointF(0, top));
    }
    return end;
}

void DocumentFormatter::Release() {
    m_copy.reset();
}

} // namespace platform
