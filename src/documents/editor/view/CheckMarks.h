// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/lua/ScriptCheck.h"
#include "documents/editor/view/FaultMarks.h"

#include <QObject>
#include <QTimer>
#include <optional>

namespace documents {

class CommandSet;
class ScriptEditor;

/// Reads the script as Lua will, a moment after the last change, marks its fault and tells it where
/// the mouse or F8 asks. A word that is just being typed at the start of a line is no fault yet.
class CheckMarks : public QObject {
    Q_OBJECT

public:
    CheckMarks(ScriptEditor& editor, CommandSet& commands, QObject* parent);

    /// Goes to the fault, if there is one, and tells it there.
    void GoToFault();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The fault in one line, "línea 3: ..."; empty if there is none, or if the script is too large
    /// to be read at each change.
    void FaultChanged(const QString& text);

private:
    void CheckNow();
    void CheckIfIdle();
    bool IsBeingTyped(const Fault& fault) const;
    void Show(std::optional<Fault> fault);
    void GoTo(qsizetype line);
    void TellAt(const QPoint& place);

    ScriptEditor& m_editor;
    FaultMarks m_marks;
    QTimer m_timer;
    std::optional<Fault> m_fault;
    bool m_waiting = false; // for the caret to leave the word that is being typed
};

} // namespace documents
