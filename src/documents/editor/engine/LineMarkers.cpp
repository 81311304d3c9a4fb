// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/engine/LineMarkers.h"

#include "documents/editor/engine/ScriptEditor.h"

namespace documents {
namespace {

constexpr long kAll = -1;

} // namespace

LineMarkers::LineMarkers(ScriptEditor& editor, qsizetype first, qsizetype last)
    : m_editor(editor), m_first(first) {
    for (qsizetype line = first;; ++line) {
        line = editor.Send(QsciScintilla::SCI_MARKERNEXT, line, kAll);
        if (line < 0 || line > last)
            return;
        m_lines.push_back({line, editor.Send(QsciScintilla::SCI_MARKERGET, line)});
    }
}

void LineMarkers::PutBack() const {
    m_editor.Send(QsciScintilla::SCI_MARKERDELETE, m_first, kAll);
    for (const Line& line : m_lines)
        m_editor.Send(QsciScintilla::SCI_MARKERADDSET, line.number, line.markers);
}

} // namespace documents
