// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/Bookmarks.h"

#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/Layers.h"
#include "documents/editor/engine/ScriptEditor.h"

#include <array>
#include <functional>

namespace documents {
namespace {

using Engine = QsciScintilla;

constexpr long kMask = 1L << kBookmarkMarker;

} // namespace

Bookmarks::Bookmarks(ScriptEditor& editor, CommandSet& commands, QObject* parent)
    : QObject(parent), m_editor(editor) {
    editor.Send(Engine::SCI_MARKERDEFINE, kBookmarkMarker, Engine::SC_MARK_LEFTRECT);
    editor.Send(Engine::SCI_MARKERSETALPHA, kBookmarkMarker); // without a margin: no line
    const auto shown = [&](int margin) { return editor.Send(Engine::SCI_GETMARGINMASKN, margin); };
    editor.Send(Engine::SCI_SETMARGINMASKN, kLineNumberMargin, shown(kLineNumberMargin) | kMask);
    editor.Send(Engine::SCI_SETMARGINMASKN, kLeftMargin, shown(kLeftMargin) & ~kMask);
    connect(&editor, &ScriptEditor::Loaded, this, &Bookmarks::RemoveAll);
    struct Row {
        const char16_t* text;
        QList<QKeySequence> keys;
        std::function<void()> run;
    };
    const std::array rows = {
        Row{u"Poner o quitar una &señal", {Qt::CTRL | Qt::Key_F2}, [this] { Toggle(); }},
        Row{u"Señal si&guiente", {Qt::ALT | Qt::Key_PageDown}, [this] { GoTo(Below()); }},
        Row{u"Señal an&terior", {Qt::ALT | Qt::Key_PageUp}, [this] { GoTo(Above()); }},
        Row{u"&Quitar todas las señales", {}, [this] { RemoveAll(); }},
    };
    for (const Row& row : rows)
        commands.Add(Menu::Go, {QString::fromUtf16(row.text), row.keys, row.run});
}

void Bookmarks::Toggle() {
    const qsizetype line = m_editor.LineOf(m_editor.Caret());
    const bool isSet = (m_editor.Send(Engine::SCI_MARKERGET, line) & kMask) != 0;
    m_editor.Send(isSet ? Engine::SCI_MARKERDELETE : Engine::SCI_MARKERADD, line, kBookmarkMarker);
}

// Both go on from the other end of the text.
qsizetype Bookmarks::Below() const {
    const qsizetype line = m_editor.LineOf(m_editor.Caret());
    const qsizetype below = m_editor.Send(Engine::SCI_MARKERNEXT, line + 1, kMask);
    return below < 0 ? m_editor.Send(Engine::SCI_MARKERNEXT, 0, kMask) : below;
}

qsizetype Bookmarks::Above() const {
    const qsizetype line = m_editor.LineOf(m_editor.Caret());
    const qsizetype above =
        line == 0 ? -1 : m_editor.Send(Engine::SCI_MARKERPREVIOUS, line - 1, kMask);
    return above < 0 ? m_editor.Send(Engine::SCI_MARKERPREVIOUS, m_editor.lines() - 1, kMask)
                     : above;
}

void Bookmarks::GoTo(qsizetype line) {
    if (line >= 0)
        m_editor.GoTo(m_editor.LineStart(line));
}

void Bookmarks::RemoveAll() {
    m_editor.Send(Engine::SCI_MARKERDELETEALL, kBookmarkMarker);
}

} // namespace documents
