// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/DocumentFormatter.h"

#include "platform/base/Twips.h"
#include "platform/rtf/TargetDevice.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <algorithm>

namespace platform {
namespace {

constexpr double kWidest = 10'000'000; // pixels; QFixed, in which lines are laid out, ends at 2^25
constexpr int kBlocks = 256;           // most paragraphs of a piece at first
constexpr qsizetype kCharactersOfABlock = 256;

QSize ResolutionOf(const QPaintDevice& device) {
    return {device.logicalDpiX(), device.logicalDpiY()};
}

QRectF ToDevice(const QRectF& twips, const QPaintDevice& device) {
    const double x = device.logicalDpiX() / kTwipsPerInch;
    const double y = device.logicalDpiY() / kTwipsPerInch;
    return {twips.left() * x, twips.top() * y, twips.width() * x, twips.height() * y};
}

bool BreaksPage(const QTextBlock& block) {
    return block.blockFormat().pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore;
}

// Copies a paragraph to the end, without the table or list that it belongs to.
void Append(const QTextBlock& block, QTextCursor& end, bool first) {
    QTextBlockFormat format = block.blockFormat();
    format.clearProperty(QTextFormat::ObjectIndex);
    if (!first)
        end.insertBlock();
    end.setBlockFormat(format);
    end.setBlockCharFormat(block.charFormat());
    for (auto it = block.begin(); !it.atEnd(); ++it)
        end.insertText(it.fragment().text(), it.fragment().charFormat());
}

} // namespace

// Iterates over the lines of a document, from that of a character on.
class DocumentFormatter::Lines {
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

void DocumentFormatter::LayOut(const QTextDocument& document, QPaintDevice& device,
                               double lineWidth) {
    const double pixels = ToDevice({0, 0, lineWidth, 0}, device).width();
    const int width = static_cast<int>(std::clamp(pixels, 1.0, kWidest));
    const bool same = m_document == &document && m_revision == document.revision() &&
                      m_width == width && m_resolution == ResolutionOf(device);
    m_document = &document;
    m_device = &device;
    m_revision = document.revision();
    m_width = width;
    m_resolution = ResolutionOf(device);
    if (!same)
        m_piece.reset();
    if (m_piece)
        m_piece->documentLayout()->setPaintDevice(&device);
}

// Copies the paragraph of that character and the following ones, at most `blocks`, into the piece.
void DocumentFormatter::TakePiece(qsizetype first, int blocks) {
    QTextBlock block = m_document->findBlock(static_cast<int>(first));
    m_start = block.position();
    const qsizetype most = block.position() + block.length() + blocks * kCharactersOfABlock;
    m_piece = std::make_unique<QTextDocument>();
    m_piece->setUndoRedoEnabled(false);
    m_piece->setDefaultFont(m_document->defaultFont());
    m_piece->setDefaultTextOption(m_document->defaultTextOption());
    m_piece->setDocumentMargin(0);
    QTextCursor cursor(m_piece.get());
    cursor.beginEditBlock();
    Append(block, cursor, true);
    for (block = block.next(); block.isValid() && --blocks > 0 && block.position() < most;
         block = block.next())
        Append(block, cursor, false);
    cursor.endEditBlock();
    m_end = block.isValid() ? block.position() : m_document->characterCount();
    SetTargetDevice(*m_piece, *m_device);
    m_piece->setTextWidth(m_width);
}

qsizetype DocumentFormatter::Render(const FormatRange& range) {
    QPainter& painter = *range.hdc;
    const QRectF rectangle = ToDevice(range.rc, *painter.device());
    const qsizetype length = m_document->characterCount() - 1;
    const qsizetype end = range.cpMax < 0 ? length : std::min(range.cpMax, length);
    if (range.cpMin >= end)
        return end;
    if (rectangle.width() <= 0)
        return range.cpMin;
    if (!m_piece || range.cpMin < m_start || range.cpMin >= m_end)
        TakePiece(range.cpMin, kBlocks);
    std::vector<Lines> page;
    std::optional<qsizetype> next = PageFrom(range.cpMin, end, rectangle.height(), page);
    for (int blocks = kBlocks; !next; blocks *= 2) {
        TakePiece(range.cpMin, blocks);
        next = PageFrom(range.cpMin, end, rectangle.height(), page);
    }
    painter.setPen(Qt::black);
    for (const Lines& line : page)
        line.Draw(painter, rectangle.topLeft() - QPointF(0, page.front().Top()));
    return *next;
}

// Fills the page and returns the first character that doesn't fit; nullopt if the piece is too
// short.
std::optional<qsizetype> DocumentFormatter::PageFrom(qsizetype first, qsizetype end, double height,
                                                     std::vector<Lines>& page) const {
    page.clear();
    Lines line(*m_piece, first - m_start);
    const double top = line.AtEnd() ? 0 : line.Top();
    for (; !line.AtEnd(); line.Next()) {
        const qsizetype position = m_start + line.Position();
        const bool started = position > first;
        if (started && position >= end)
            return end;
        if (line.Bottom() - top > height)
            return position;
        if (started && line.StartsBlock() && BreaksPage(line.Block()))
            return position;
        page.push_back(line);
    }
    return m_end >= end ? std::optional(end) : std::nullopt;
}

void DocumentFormatter::Release() {
    m_piece.reset();
    m_document = nullptr;
}

} // namespace platform
