// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/rtf/RtfFormats.h"
#include "platform/rtf/RtfLook.h"

#include <QString>
#include <QTextCursor>

class QTextDocument;

namespace platform {

/// Writes the text of an RTF file to the end of a document. A paragraph's look is told at its end,
/// as RTF does.
class RtfFlow {
public:
    RtfFlow(QTextDocument& document, RtfFormats& formats);

    void Append(const QString& text, const RtfCharacters& look);
    void EndParagraph(const RtfParagraph& look, const RtfCharacters& mark);
    /// What comes next starts a page.
    void BreakPage(const RtfParagraph& look, const RtfCharacters& mark);
    /// A line end in a cell, unless nothing more comes into the cell.
    void BreakCellLine();
    /// A tab, unless nothing more comes into the row.
    void EndCell();
    /// To be called once, at the end.
    void Finish(const RtfParagraph& look, const RtfCharacters& mark, int defaultTabTwips);

private:
    void OpenBlock();
    void WriteRun();
    void CloseBlock(const RtfParagraph& look, const RtfCharacters& mark);

    RtfFormats& m_formats;
    QTextCursor m_cursor;
    QString m_run; ///< text of one look that isn't in the document yet
    RtfCharacters m_runLook;
    bool m_blockEnded = false; ///< the next block is made when something comes into it
    bool m_blockEmpty = true;
    bool m_pageBreak = false;
    int m_spaceAbove = 0; ///< twips that the paragraph above wants below itself
    QString m_pending;    ///< tabs and line ends of a table, written when more comes behind them
};

} // namespace platform
