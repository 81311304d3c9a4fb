// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/write/Indenter.h"

#include "documents/editor/engine/EditStep.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/write/Indentation.h"
#include "documents/editor/write/Surroundings.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <cctype>
#include <utility>

namespace documents {
namespace {

constexpr qsizetype kLongestHead = 1 << 10; // of a line that may step back

qsizetype IndentLength(const QByteArray& line) {
    qsizetype length = 0;
    while (length < line.size() && (line[length] == ' ' || line[length] == '\t'))
        ++length;
    return length;
}

bool IsNamePart(char byte) {
    return std::isalnum(static_cast<unsigned char>(byte)) != 0 || byte == '_';
}

// Whether a name continues behind the caret.
bool GoesOn(const ScriptEditor& editor, qsizetype caret) {
    return caret < editor.Length() && IsNamePart(editor.Range(caret, caret + 1).front());
}

bool IsNewLine(const QKeyEvent& key) {
    const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    return enter && (key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == 0;
}

} // namespace

Indenter::Indenter(ScriptEditor& editor) : QObject(&editor), m_editor(editor) {
    connect(&editor, &QsciScintilla::SCN_CHARADDED, this, &Indenter::OnTyped);
    editor.installEventFilter(this);
}

bool Indenter::eventFilter(QObject*, QEvent* event) {
    if (!m_on || m_inKey || event->type() != QEvent::KeyPress ||
        !IsNewLine(*static_cast<QKeyEvent*>(event)))
        return false;
    const QScopedValueRollback inKey(m_inKey, true);
    const EditStep step(m_editor);
    QCoreApplication::sendEvent(&m_editor, event);
    return true;
}

void Indenter::OnTyped(int character) {
    if (!m_on)
        return;
    const qsizetype line = m_editor.LineOf(m_editor.Caret());
    if (character != '\n' && character != '\r')
        StepBack(line);
    // CR LF is told as two characters when both are there.
    else if (m_editor.Range(m_editor.Caret() - 1, m_editor.Caret()).front() == character)
        BeginLine(line);
}

// True if the line had another one.
bool Indenter::SetIndent(qsizetype line, const QByteArray& indent) {
    const qsizetype start = m_editor.LineStart(line);
    const QByteArray head = m_editor.Range(start, m_editor.LineEnd(line));
    const qsizetype length = IndentLength(head);
    if (head.first(length) == indent)
        return false;
    const qsizetype behind = m_editor.Caret() - start - length;
    m_editor.Replace(start, start + length, indent);
    const qsizetype caret = start + indent.size() + std::max<qsizetype>(0, behind);
    PlaceCaret(m_editor, caret, caret);
    return true;
}

void Indenter::BeginLine(qsizetype line) {
    m_steppedLine = -1;
    const QByteArray above = LinesAbove(m_editor, line);
    const qsizetype start = m_editor.LineStart(line);
    if (above.isEmpty())
        return;
    const QByteArray rest = m_editor.Range(start, m_editor.LineEnd(line));
    const NewLine begun = documents::BeginLine(above, rest, IndentUnitAt(m_editor, line));
    SetIndent(line, begun.indent);
    const qsizetype caret = start + begun.indent.size();
    if (begun.closer)
        m_editor.Replace(caret, caret,
                         m_editor.Range(m_editor.LineEnd(line - 1), start) + *begun.closer);
    PlaceCaret(m_editor, caret, caret);
}

void Indenter::StepBack(qsizetype line) {
    const qsizetype steppedLine = std::exchange(m_steppedLine, -1);
    const qsizetype start = m_editor.LineStart(line);
    const qsizetype caret = m_editor.Caret();
    if (caret - start > kLongestHead)
        return;
    const QByteArray head = m_editor.Range(start, caret);
    const QByteArray indent = head.first(IndentLength(head));
    const QByteArray word = head.sliced(indent.size());
    if (std::all_of(word.begin(), word.end(), IsNamePart) && steppedLine == line)
        SetIndent(line, m_formerIndent);
    if (!IsCloser(word) || GoesOn(m_editor, caret))
        return;
    const auto opener = CloserIndent(LinesAbove(m_editor, line), word);
    if (opener && SetIndent(line, *opener)) {
        m_steppedLine = line;
        m_formerIndent = steppedLine == line ? m_formerIndent : indent;
    }
}

} // namespace documents
