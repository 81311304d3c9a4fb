// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/rtf/RtfFlow.h"

#include <QChar>
#include <QTextDocument>
#include <QTextOption>
#include <utility>

#include "platform/rtf/RtfLook.h"

namespace platform {
namespace {

// Without what QTextDocument takes for a frame, an object or a block, and without half characters.
QString Cleaned(const QString& text) {
    QString clean;
    clean.reserve(text.size());
    for (const QChar c : text) {
        const char16_t value = c.unicode();
        const bool control = value < 0x20 && value != '\t';
        const bool marker = (value >= 0xFDD0 && value <= 0xFDEF) || value >= 0xFFFC;
        if (value == QChar::ParagraphSeparator)
            clean.append(QChar(QChar::LineSeparator));
        else if (!control && !marker)
            clean.append(c);
    }
    return clean.isValidUtf16() ? clean : QString::fromUtf8(clean.toUtf8());
}

} // namespace

RtfFlow::RtfFlow(QTextDocument& document, RtfFormats& formats)
    : m_formats(formats), m_cursor(&document) {
    m_cursor.movePosition(QTextCursor::End);
}

void RtfFlow::OpenBlock() {
    if (!m_blockEnded)
        return;
    m_cursor.insertBlock();
    m_blockEnded = false;
    m_blockEmpty = true;
}

void RtfFlow::WriteRun() {
    if (!m_run.isEmpty())
        m_cursor.insertText(Cleaned(m_run), m_formats.Of(m_runLook));
    m_run.clear();
}

void RtfFlow::Append(const QString& text, const RtfCharacters& look) {
    if (text.isEmpty() || look.hidden)
        return;
    OpenBlock();
    m_blockEmpty = false;
    if (look != m_runLook)
        WriteRun();
    m_runLook = look;
    m_run.append(m_pending).append(text);
    m_pending.clear();
}

void RtfFlow::CloseBlock(const RtfParagraph& look, const RtfCharacters& mark) {
    WriteRun();
    m_pending.clear();
    RtfParagraph placed = look;
    placed.before += std::exchange(m_spaceAbove, look.after);
    placed.pageBreakBefore |= std::exchange(m_pageBreak, false);
    m_cursor.setBlockFormat(m_formats.Of(placed));
    m_cursor.setBlockCharFormat(m_formats.Of(mark));
}

void RtfFlow::EndParagraph(const RtfParagraph& look, const RtfCharacters& mark) {
    OpenBlock();
    CloseBlock(look, mark);
    m_blockEnded = true;
}

void RtfFlow::BreakPage(const RtfParagraph& look, const RtfCharacters& mark) {
    const bool started = !m_blockEnded && !m_blockEmpty;
    if (started || m_pageBreak) // an empty page counts, too
        EndParagraph(look, mark);
    m_pageBreak = true;
}

void RtfFlow::BreakCellLine() {
    m_pending.append(QChar(QChar::LineSeparator));
}

void RtfFlow::EndCell() {
    OpenBlock();
    m_blockEmpty = false;
    while (m_pending.endsWith(QChar(QChar::LineSeparator)))
        m_pending.chop(1);
    m_pending.append(u'\t');
}

void RtfFlow::Finish(const RtfParagraph& look, const RtfCharacters& mark, int defaultTabTwips) {
    if (!m_blockEnded)
        CloseBlock(look, mark);
    QTextOption option = m_cursor.document()->defaultTextOption();
    option.setTabStopDistance(RtfFormats::PixelsOf(defaultTabTwips));
    m_cursor.document()->setDefaultTextOption(option);
}

} // namespace platform
