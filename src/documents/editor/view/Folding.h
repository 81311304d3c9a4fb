// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace documents {

class CommandSet;
class ScriptEditor;

/// The commands that fold blocks and unfold them. What is changed or gone to unfolds by itself.
class Folding : public QObject {
    Q_OBJECT

public:
    Folding(ScriptEditor& editor, CommandSet& commands, QObject* parent);

private:
    void FoldBlock();
    void FoldAll();
    void ShowCaret();

    ScriptEditor& m_editor;
};

} // namespace documents
