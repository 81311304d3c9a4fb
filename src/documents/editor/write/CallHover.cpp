// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/write/CallHover.h"

#include "documents/editor/engine/Layers.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/write/ContextAt.h"

#include <utility>

namespace documents {
namespace {

constexpr int kRestMilliseconds = 500;

} // namespace

CallHover::CallHover(ScriptEditor& editor, QObject* parent)
    : QObject(parent), m_editor(editor), m_tip(editor) {
    editor.Send(QsciScintillaBase::SCI_SETMOUSEDWELLTIME, kRestMilliseconds);
    connect(&editor, &QsciScintillaBase::SCN_DWELLSTART, this, &CallHover::Show);
    connect(&editor, &QsciScintillaBase::SCN_DWELLEND, this, &CallHover::Hide);
}

void CallHover::Show(int place) {
    const auto tells = [&](unsigned int message, int what = 0, int where = 0) {
        return m_editor.Send(message, what, where) != 0;
    };
    if (place < 0 || m_tip.IsShown() || tells(QsciScintillaBase::SCI_AUTOCACTIVE) ||
        tells(QsciScintillaBase::SCI_INDICATORVALUEAT, kFaultIndicator, place))
        return;
    const CallContext context = ContextOfName(m_editor, place);
    if (!context.named)
        return;
    m_tip.Show(place, *context.named, context.link == ':', {});
    m_shown = true;
}

void CallHover::Hide() {
    if (std::exchange(m_shown, false))
        m_tip.Hide();
}

} // namespace documents
