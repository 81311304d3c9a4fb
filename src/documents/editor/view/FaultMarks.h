// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

class QPoint;

namespace documents {

struct Fault;
class ScriptEditor;

/// How the fault of a script is seen in the editor: an underline, and bars beside its line and
/// beside the other one that it names. They move with the text, which they don't change.
class FaultMarks {
public:
    explicit FaultMarks(ScriptEditor& editor);

    void Set(const Fault& fault);
    void Clear();

    /// Where the line's underline begins, or its text if it has none.
    qsizetype PlaceIn(qsizetype line) const;
    /// The line with a bar below or above the caret's, or on from the other end; -1 if there is
    /// none.
    qsizetype LineBelow() const;
    qsizetype LineAbove() const;
    /// Whether a place of the viewport is at the underline, or beside a bar, in the margins before
    /// that of the folding.
    bool IsAt(const QPoint& place) const;
    bool IsBeside(const QPoint& place) const;

private:
    qsizetype Search(unsigned int message, qsizetype from) const;
    bool IsUnderlined(qsizetype position) const;

    ScriptEditor& m_editor;
};

} // namespace documents
