// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace documents {

class CommandSet;
class ScriptEditor;

/// Signs that the user sets at lines and goes on to. They move with their lines and go with the
/// document.
class Bookmarks : public QObject {
    Q_OBJECT

public:
    Bookmarks(ScriptEditor& editor, CommandSet& commands, QObject* parent);

private:
    void Toggle();
    void GoTo(qsizetype line);
    qsizetype Below() const;
    qsizetype Above() const;
    void RemoveAll();

    ScriptEditor& m_editor;
};

} // namespace documents
