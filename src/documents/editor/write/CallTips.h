// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/write/CallTip.h"

#include <QObject>

namespace documents {

class CommandSet;
class ScriptEditor;

/// Tells, from the opening parenthesis of a call to the closing one, how it's written, with the
/// parameter set off in which the caret is. By itself unless the user switched that off.
class CallTips : public QObject {
    Q_OBJECT

public:
    CallTips(ScriptEditor& editor, CommandSet& commands, QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Typed(int character);
    void Follow();
    void Stop();

    ScriptEditor& m_editor;
    CallTip m_tip;
    bool m_wanted = false; // also while a list hides it
    bool m_byItself = true;
};

} // namespace documents
