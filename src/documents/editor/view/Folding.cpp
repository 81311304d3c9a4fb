// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/Folding.h"

#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/ScriptEditor.h"

namespace documents {
namespace {

using Engine = QsciScintilla;

bool IsOpener(const ScriptEditor& editor, qsizetype line) {
    return (editor.Send(Engine::SCI_GETFOLDLEVEL, line) & Engine::SC_FOLDLEVELHEADERFLAG) != 0;
}

// The line that opens the block around this one; -1 if there is none.
qsizetype OpenerOf(const ScriptEditor& editor, qsizetype line) {
    return editor.Send(Engine::SCI_GETFOLDPARENT, line);
}

} // namespace

Folding::Folding(ScriptEditor& editor, CommandSet& commands, QObject* parent)
    : QObject(parent), m_editor(editor) {
    editor.Send(Engine::SCI_SETAUTOMATICFOLD, Engine::SC_AUTOMATICFOLD_SHOW);
    commands.Add(Menu::View, {QStringLiteral("Plegar o desplegar el &bloque"),
                              {QKeySequence(Qt::CTRL | Qt::Key_M)},
                              [this] { FoldBlock(); }});
    commands.Add(Menu::View, {QStringLiteral("Plegar o desplegar &todo"),
                              {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_M)},
                              [this] { FoldAll(); }});
}

void Folding::FoldBlock() {
    const qsizetype line = m_editor.LineOf(m_editor.Caret());
    const qsizetype length = m_editor.Send(Engine::SCI_LINELENGTH, line);
    m_editor.Send(Engine::SCI_COLOURISE, 0, // finds the openers
                  m_editor.LineStart(line) + length);
    const qsizetype opener = IsOpener(m_editor, line) ? line : OpenerOf(m_editor, line);
    if (opener < 0)
        return;
    m_editor.Send(Engine::SCI_FOLDLINE, opener, Engine::SC_FOLDACTION_TOGGLE);
    ShowCaret();
}

void Folding::FoldAll() {
    m_editor.Send(Engine::SCI_FOLDALL, Engine::SC_FOLDACTION_TOGGLE);
    ShowCaret();
}

// A caret in lines that were folded goes to the end of the line that stands for them.
void Folding::ShowCaret() {
    const qsizetype caretLine = m_editor.LineOf(m_editor.Caret());
    qsizetype line = caretLine;
    while (line >= 0 && m_editor.Send(Engine::SCI_GETLINEVISIBLE, line) == 0)
        line = OpenerOf(m_editor, line);
    if (line >= 0 && line != caretLine)
        m_editor.GoTo(m_editor.LineEnd(line));
    m_editor.ensureCursorVisible();
}

} // namespace documents
