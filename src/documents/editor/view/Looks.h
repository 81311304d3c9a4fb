// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace documents {

class CommandSet;
class ScriptEditor;

/// The user's own font and the light or dark colours, the same in all documents and in the next
/// run. Without a choice: the document's font, light.
class Looks : public QObject {
    Q_OBJECT

public:
    Looks(ScriptEditor& editor, CommandSet& commands, QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void AddFonts(CommandSet& commands);
    void AddColors(CommandSet& commands);
    void Use();

    ScriptEditor& m_editor;
};

} // namespace documents
