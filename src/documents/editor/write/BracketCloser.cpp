// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/write/BracketCloser.h"

#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/EditStep.h"
#include "documents/editor/engine/EditorSettings.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/write/Indentation.h"
#include "documents/editor/write/Surroundings.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>

namespace documents {
namespace {

constexpr qsizetype kLongestHead = 1 << 12; // of a line in which to look for the start of a string

QString Setting() {
    return QStringLiteral("cerrar_parejas");
}

} // namespace

BracketCloser::BracketCloser(ScriptEditor& editor, CommandSet& commands)
    : QObject(&editor), m_editor(editor), m_on(EditorSettings::IsOn(Setting(), true)) {
    commands.Add(Menu::Lines, {QStringLiteral("Cerrar &paréntesis y comillas al escribir"),
                               {},
                               [this] { SharedSettings().Keep(Setting(), !m_on); },
                               [this] { return m_on; }});
    connect(&SharedSettings(), &EditorSettings::Changed, this,
            [this] { m_on = EditorSettings::IsOn(Setting(), true); });
    editor.installEventFilter(this);
}

bool BracketCloser::eventFilter(QObject*, QEvent* event) {
    return m_on && !m_inKey && event->type() == QEvent::KeyPress &&
           Takes(*static_cast<QKeyEvent*>(event));
}

bool BracketCloser::Takes(QKeyEvent& key) {
    const bool back = key.key() == Qt::Key_Backspace && key.modifiers() == Qt::NoModifier;
    const QString text = key.text();
    const char typed = text.size() == 1 ? text.front().toLatin1() : '\0';
    if (!back && !SelfClosing::IsPart(typed))
        return false;
    if (m_editor.SelectionStart() != m_editor.SelectionEnd())
        return !back && Surround(typed);
    const qsizetype caret = m_editor.Caret();
    const qsizetype line = m_editor.LineOf(caret);
    const QByteArray before = m_editor.Range(m_editor.LineStart(line), caret);
    const QByteArray after = m_editor.Range(caret, m_editor.LineEnd(line));
    const SelfClosing::Place place{line, before, after};
    return back ? TakesBackspace(place) : TakesTyped(typed, place, key);
}

bool BracketCloser::TakesBackspace(const SelfClosing::Place& place) {
    if (!m_closing.IsEmptyPair(place))
        return false;
    const qsizetype caret = m_editor.Caret();
    m_editor.Replace(caret - 1, caret + 1, {});
    return true;
}

bool BracketCloser::TakesTyped(char typed, const SelfClosing::Place& place, QKeyEvent& key) {
    const qsizetype caret = m_editor.Caret();
    if (m_closing.SkipsOver(typed, place)) {
        PlaceCaret(m_editor, caret + 1, caret + 1);
        Q_EMIT m_editor.SCN_CHARADDED(typed); // who follows the typing sees no difference
        return true;
    }
    const char closer = SelfClosing::CloserOf(typed);
    if (closer == '\0' || !SelfClosing::HasRoom(typed, place) || IsInQuote(place))
        return false;
    const QScopedValueRollback inKey(m_inKey, true);
    const EditStep step(m_editor);
    QCoreApplication::sendEvent(&m_editor, &key);
    if (m_editor.Caret() != caret + 1)
        return true;
    m_editor.Replace(caret + 1, caret + 1, QByteArrayView(&closer, 1));
    m_closing.Closed(closer, place);
    return true;
}

// The text stays selected, so that more can be put around it.
bool BracketCloser::Surround(char opener) {
    const char closer = SelfClosing::CloserOf(opener);
    if (closer == '\0' || m_editor.Send(QsciScintilla::SCI_GETSELECTIONS) != 1)
        return false;
    const qsizetype from = m_editor.SelectionStart();
    const qsizetype to = m_editor.SelectionEnd();
    const qsizetype caret = m_editor.Caret();
    const EditStep step(m_editor);
    m_editor.Replace(to, to, QByteArrayView(&closer, 1));
    m_editor.Replace(from, from, QByteArrayView(&opener, 1));
    PlaceCaret(m_editor, from + to - caret + 1, caret + 1);
    return true;
}

bool BracketCloser::IsInQuote(const SelfClosing::Place& place) const {
    if (place.before.size() > kLongestHead)
        return true;
    return EndsInQuote(LinesAbove(m_editor, place.line).append(place.before));
}

} // namespace documents
