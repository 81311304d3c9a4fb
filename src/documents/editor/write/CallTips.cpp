// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/write/CallTips.h"

#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/write/ContextAt.h"
#include "documents/editor/write/Suggestions.h"

#include <QKeyEvent>
#include <algorithm>
#include <utility>

namespace documents {

CallTips::CallTips(ScriptEditor& editor, CommandSet& commands, QObject* parent)
    : QObject(parent), m_editor(editor), m_tip(editor) {
    FollowSuggestions(*this, m_byItself);
    editor.installEventFilter(this);
    connect(&editor, &QsciScintillaBase::SCN_CHARADDED, this, &CallTips::Typed);
    connect(&editor, &QsciScintillaBase::SCN_UPDATEUI, this, [this] {
        if (m_wanted)
            Follow();
    });
    commands.Add(Menu::Help, {QStringLiteral("&Argumentos de la llamada"),
                              {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Space)},
                              [this] { Follow(); }});
}

bool CallTips::eventFilter(QObject* watched, QEvent* event) {
    const bool press = event->type() == QEvent::KeyPress;
    const bool escape = press && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    const bool shown = m_wanted && m_tip.IsShown();
    if (shown && (escape || event->type() == QEvent::FocusOut)) {
        Stop();
        return escape;
    }
    return QObject::eventFilter(watched, event);
}

void CallTips::Typed(int character) {
    if (m_byItself && (character == '(' || character == ','))
        Follow();
}

void CallTips::Follow() {
    if (m_editor.Send(QsciScintillaBase::SCI_AUTOCACTIVE) != 0)
        return;
    const qsizetype caret = m_editor.Caret();
    const CallContext context = ContextAt(m_editor, caret);
    if (!context.call) {
        Stop();
        return;
    }
    m_wanted = true;
    const qsizetype line = m_editor.LineStart(m_editor.LineOf(caret));
    m_tip.Show(std::max(line, static_cast<qsizetype>(context.open)), *context.call,
               context.callIsMethod, context.parameter);
}

void CallTips::Stop() {
    if (std::exchange(m_wanted, false))
        m_tip.Hide();
}

} // namespace documents
