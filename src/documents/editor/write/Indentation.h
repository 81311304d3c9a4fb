// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <optional>

namespace documents {

/// The step by which the lines go further in most often, a tab or some blanks; `fallback` if none
/// does.
QByteArray IndentUnit(QByteArrayView lines, const QByteArray& fallback);

/// How a line begins that was just cut from the one above it.
struct NewLine {
    QByteArray indent;
    /// Set if the block that the line above opens is closed behind the new line: there belongs one
    /// more line end then, and this indent.
    std::optional<QByteArray> closer = {};
};

/// `above` ends with the line end just typed, `rest` is the text of the new line.
NewLine BeginLine(QByteArrayView above, QByteArrayView rest, const QByteArray& unit);

/// The indent of the line in which the block was opened that the first word of `line` closes.
/// Nothing if it closes none.
std::optional<QByteArray> CloserIndent(QByteArrayView above, QByteArrayView line);

/// Whether `word` is one of those with which a line steps back.
bool IsCloser(QByteArrayView word);

/// Whether what is typed behind `text` falls in a string or a comment.
bool EndsInQuote(QByteArrayView text);

} // namespace documents
