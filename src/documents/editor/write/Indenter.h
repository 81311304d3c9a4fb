// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QObject>

namespace documents {

class ScriptEditor;

/// Indents lines as they are typed: the Enter key begins one under the text of the line above, a
/// step further in behind what opens a block, and a line that begins with what closes a block
/// steps back under its opener. Off until SetOn.
class Indenter : public QObject {
    Q_OBJECT

public:
    explicit Indenter(ScriptEditor& editor);

    void SetOn(bool on) { m_on = on; }

    /// One undo step for the key and what follows it.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void OnTyped(int character);
    void BeginLine(qsizetype line);
    void StepBack(qsizetype line);
    bool SetIndent(qsizetype line, const QByteArray& indent);

    ScriptEditor& m_editor;
    bool m_on = false;
    bool m_inKey = false;
    // The line that stepped back at the end of a word, and its indent before, while that word may
    // still go on: "end" becomes "endpoint".
    qsizetype m_steppedLine = -1;
    QByteArray m_formerIndent;
};

} // namespace documents
