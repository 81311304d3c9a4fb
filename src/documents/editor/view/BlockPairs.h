// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

namespace documents {

class CommandSet;
class ScriptEditor;
struct Span;

/// Shows which "end" belongs to the "if" at which the caret rests, and so on for all blocks, and
/// jumps between the two. In large texts it only jumps.
class BlockPairs : public QObject {
    Q_OBJECT

public:
    BlockPairs(ScriptEditor& editor, CommandSet& commands, QObject* parent);

private:
    void Jump();
    void Follow(int changes);
    void Mark();
    void Unmark();
    void Underlay(const Span& span);
    bool IsAtKeyword() const;

    ScriptEditor& m_editor;
    QTimer m_timer;
    bool m_marked = false;
};

} // namespace documents
