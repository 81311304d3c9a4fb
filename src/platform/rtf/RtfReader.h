// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>

class QTextDocument;

namespace platform {

enum class RtfResult {
    Complete,
    Truncated, ///< the file ends inside a group; the document holds what comes before
    TooDeep,   ///< groups in groups beyond any use; the document holds what comes before
    NotRtf,    ///< doesn't begin as RTF does; the document is as it was
};

/// Replaces the document's content by that of an RTF file; its undo history is emptied. Any bytes
/// will do: unknown words, pictures, notes, headers and footers are passed over, a table row
/// becomes one paragraph with a tab between cells.
///
/// Font sizes are in points; lengths (indents, spacing, tabs) in the pixels of DocumentDotsPerInch,
/// fractions kept. To print the document, call SetTargetDevice. Its own margin is left as it is,
/// its default text option gets the file's distance of tabs.
///
/// A \par at the very end opens no further paragraph. Tab positions count from where the first line
/// starts. The space before a block includes the space after the one above, which RTF adds up.
RtfResult ReadRtf(QByteArrayView bytes, QTextDocument& document);

} // namespace platform
