// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/write/Surroundings.h"

#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/write/Indentation.h"

#include <algorithm>

namespace documents {
namespace {

constexpr qsizetype kLines = 1000;
constexpr qsizetype kBytes = 1 << 16;

} // namespace

QByteArray LinesAbove(const ScriptEditor& editor, qsizetype line) {
    const qsizetype end = editor.LineStart(line);
    qsizetype first = std::max<qsizetype>(0, line - kLines);
    if (end - editor.LineStart(first) > kBytes)
        first = editor.LineOf(end - kBytes) + 1;
    return editor.Range(editor.LineStart(first), end);
}

QByteArray IndentUnitAt(const ScriptEditor& editor, qsizetype line) {
    const qsizetype below = std::min<qsizetype>(editor.lines() - 1, line + kLines);
    const QByteArray tab =
        editor.indentationsUseTabs() ? QByteArray("\t") : QByteArray(editor.tabWidth(), ' ');
    const QByteArray lower = IndentUnit(LinesAbove(editor, below), tab);
    return IndentUnit(LinesAbove(editor, line), lower);
}

int Columns(const ScriptEditor& editor, const QByteArray& unit) {
    return unit.startsWith('\t') ? editor.tabWidth() : static_cast<int>(unit.size());
}

void PlaceCaret(ScriptEditor& editor, qsizetype anchor, qsizetype caret) {
    editor.Send(QsciScintilla::SCI_SETSEL, anchor, caret);
    editor.Send(QsciScintilla::SCI_CHOOSECARETX);
}

} // namespace documents
