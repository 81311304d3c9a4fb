// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/write/LineCommands.h"

#include "core/LineEnds.h"
#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/EditStep.h"
#include "documents/editor/engine/LineMarkers.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/write/LineEdits.h"
#include "documents/editor/write/Surroundings.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <vector>

namespace documents {
namespace {

constexpr size_t kManyPatches = 32;

QByteArray LineEndOf(const ScriptEditor& editor) {
    return QByteArray::fromStdString(core::WithLineEnds("\n", editor.NewLineEnd()));
}

void ApplyEach(ScriptEditor& editor, const std::vector<Patch>& patches) {
    for (auto patch = patches.rbegin(); patch != patches.rend(); ++patch)
        editor.Replace(patch->at, patch->at + patch->removed, patch->added);
}

// As one change, since each is told and that takes its time. The marks of the lines, which come
// together then, go back to where they were.
void ApplyAtOnce(ScriptEditor& editor, const std::vector<Patch>& patches) {
    const qsizetype from = patches.front().at;
    qsizetype done = from;
    QByteArray bytes;
    for (const Patch& patch : patches) {
        bytes += editor.Range(done, patch.at) + patch.added;
        done = patch.at + patch.removed;
    }
    const LineMarkers markers(editor, editor.LineOf(from), editor.LineOf(done));
    editor.Replace(from, done, bytes);
    markers.PutBack();
}

} // namespace

LineCommands::LineCommands(ScriptEditor& editor, CommandSet& commands)
    : QObject(&editor), m_editor(editor) {
    struct Row {
        const char16_t* text;
        const char* key;
        LineEdit (*edit)(const SelectedLines&);
    };
    constexpr std::array kRows = {
        Row{u"Poner o quitar &comentario", "Ctrl+K", ToggleComment},
        Row{u"Mover hacia &arriba", "Alt+Up", MoveUp},
        Row{u"Mover hacia a&bajo", "Alt+Down", MoveDown},
        Row{u"Borrar la &línea", "Ctrl+Shift+K", DeleteLines},
    };
    for (const Row& row : kRows)
        commands.Add(Menu::Lines, {QString::fromUtf16(row.text),
                                   {QKeySequence(QLatin1StringView(row.key))},
                                   [this, edit = row.edit] { Apply(edit(Selected())); }});
    commands.Add(Menu::Lines, {QStringLiteral("&Duplicar la línea o lo seleccionado"),
                               {QKeySequence(Qt::CTRL | Qt::Key_D)},
                               [this] { Apply(Duplicate(Selected(), LineEndOf(m_editor))); }});
    m_editor.installEventFilter(this);
}

SelectedLines LineCommands::Selected() const {
    const qsizetype from = m_editor.SelectionStart();
    const qsizetype to = m_editor.SelectionEnd();
    const qsizetype first = m_editor.LineOf(from);
    qsizetype behind = m_editor.LineOf(to);
    if (from == to || to > m_editor.LineStart(behind))
        ++behind;
    const auto lines = [this](qsizetype begin, qsizetype end) {
        const qsizetype count = m_editor.lines();
        const auto start = [&](qsizetype line) {
            return line < count ? m_editor.LineStart(line) : m_editor.Length();
        };
        return m_editor.Range(start(begin), start(end));
    };
    const qsizetype caret = m_editor.Caret();
    const qsizetype above = m_editor.LineStart(std::max<qsizetype>(0, first - 1));
    return {m_editor.LineStart(first),
            first > 0 ? lines(first - 1, first) : QByteArray(),
            lines(first, behind),
            lines(behind, behind + 1),
            from + to - caret,
            caret,
            above > 0 && m_editor.Range(above - 1, above) == "\r"};
}

void LineCommands::Apply(const LineEdit& edit) {
    if (edit.patches.empty())
        return;
    const EditStep step(m_editor);
    if (edit.patches.size() > kManyPatches)
        ApplyAtOnce(m_editor, edit.patches);
    else
        ApplyEach(m_editor, edit.patches);
    PlaceCaret(m_editor, edit.anchor, edit.caret);
}

// All of one line's text, or of several lines some.
bool LineCommands::WholeLinesAreSelected() const {
    const qsizetype from = m_editor.SelectionStart();
    const qsizetype to = m_editor.SelectionEnd();
    const qsizetype line = m_editor.LineOf(from);
    return line != m_editor.LineOf(to) ||
           (from < to && to == m_editor.LineEnd(line) &&
            m_editor.Range(m_editor.LineStart(line), from).trimmed().isEmpty());
}

bool LineCommands::TakesTab(const QKeyEvent& key) {
    const Qt::KeyboardModifiers held = key.modifiers() & ~Qt::KeypadModifier;
    const bool out = key.key() == Qt::Key_Backtab && held == Qt::ShiftModifier;
    const bool in = key.key() == Qt::Key_Tab && held == Qt::NoModifier && WholeLinesAreSelected();
    if (!in && !out)
        return false;
    const QByteArray unit = IndentUnitAt(m_editor, m_editor.LineOf(m_editor.Caret()));
    Apply(in ? IndentLines(Selected(), unit) : UnindentLines(Selected(), Columns(m_editor, unit)));
    return true;
}

bool LineCommands::eventFilter(QObject*, QEvent* event) {
    return event->type() == QEvent::KeyPress && TakesTab(*static_cast<QKeyEvent*>(event));
}

} // namespace documents
