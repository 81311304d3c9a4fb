// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QKeyEvent;

namespace documents {

class CommandSet;
class ScriptEditor;
struct LineEdit;
struct SelectedLines;

/// The commands on whole lines, with their keys. Tab moves selected lines in and Mayús+Tab lines
/// out; a Tab elsewhere stays the engine's. Each is one undo step and one ScriptEditor::Edited.
class LineCommands : public QObject {
    Q_OBJECT

public:
    LineCommands(ScriptEditor& editor, CommandSet& commands);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    SelectedLines Selected() const;
    bool WholeLinesAreSelected() const;
    bool TakesTab(const QKeyEvent& key);
    void Apply(const LineEdit& edit);

    ScriptEditor& m_editor;
};

} // namespace documents
