// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/find/LineMarkers.h"

#include "documents/editor/engine/ScriptEditor.h"

namespace documents {
namespace {

constexpr long kAll = -1;

} // namespace

LineMarkers::LineMarkers(ScriptEditor& editor, qsizetype first, qsizetype last)
    : m_editor(editor), m_first(first) {
    for (qsizetype line = first;; ++line) {
        line = editor.SendScintilla(QsciScintilla::SCI_MARKERNEXT, static_cast<unsigned long>(line),
                                    kAll);
        if (line < 0 || line > last)
            return;
        m_lines.push_back({line, editor.SendScintilla(QsciScintilla::SCI_MARKERGET,
                                                      static_cast<unsigned long>(line))});
    }
}

void LineMarkers::PutBack() const {
    m_editor.SendScintilla(QsciScintilla::SCI_MARKERDELETE, static_cast<unsigned long>(m_first),
                           kAll);
    for (const Line& line : m_lines)
        m_editor.SendScintilla(QsciScintilla::SCI_MARKERADDSET,
                               static_cast<unsigned long>(line.number), line.markers);
}

} // namespace documents
