// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/write/CallTip.h"

#include <QObject>

namespace documents {

class ScriptEditor;

/// Tells what a call does while the mouse rests on its name. What is marked as faulty tells that.
class CallHover : public QObject {
    Q_OBJECT

public:
    CallHover(ScriptEditor& editor, QObject* parent);

private:
    void Show(int place);
    void Hide();

    ScriptEditor& m_editor;
    CallTip m_tip;
    bool m_shown = false;
};

} // namespace documents
