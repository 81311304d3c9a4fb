// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <vector>

namespace documents {

/// The lines that a selection touches, and their neighbours, each with its line end. A line at
/// whose start a selection ends isn't one of them. Positions are those of the whole text.
struct SelectedLines {
    qsizetype start = 0; ///< of `lines`
    QByteArray above;    ///< empty if there is none
    QByteArray lines;    ///< empty in the empty line behind the last line end
    QByteArray below;
    qsizetype anchor = 0;
    qsizetype caret = 0;
    bool aboveFollowsCr = false; ///< the line before `above` ends in a CR only
};

/// Puts `added` in the place of as many bytes as `removed` says.
struct Patch {
    qsizetype at = 0;
    qsizetype removed = 0;
    QByteArray added;
    bool carries = false; ///< a caret that stands there goes behind what is added
};

/// Patches in ascending order, all for the text as it was, and the selection afterwards. No
/// patches: there is nothing to do.
///
/// Line ends stay at their places: a file that ends in one goes on to do so, and no lines are
/// joined. An LF that would come behind a CR becomes a CR LF. What isn't changed isn't touched
/// either, so that marks of lines stay with them.
struct LineEdit {
    std::vector<Patch> patches;
    qsizetype anchor = 0;
    qsizetype caret = 0;
};

/// Makes the lines comments at the indent that all have in common, or text again if all are
/// comments. Blank lines stay as they are.
LineEdit ToggleComment(const SelectedLines& selected);
/// One step further in, by `unit`, and one out, by as many columns. Blank lines stay.
LineEdit IndentLines(const SelectedLines& selected, const QByteArray& unit);
LineEdit UnindentLines(const SelectedLines& selected, int columns);
/// Writes the selection, or the line if nothing is selected, a second time behind it and selects
/// that; `lineEnd` is for a last line without one.
LineEdit Duplicate(const SelectedLines& selected, const QByteArray& lineEnd);
LineEdit MoveUp(const SelectedLines& selected);
LineEdit MoveDown(const SelectedLines& selected);
LineEdit DeleteLines(const SelectedLines& selected);

} // namespace documents
