// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/find/FindBar.h"

#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/find/BarParts.h"
#include "documents/editor/find/Search.h"
#include "documents/editor/find/SearchSwitches.h"
#include "platform/forms/Keys.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace documents {
namespace {

// What the bars of all documents share.
struct Kept {
    SearchFor wanted;
    QString replacement;
};
Kept& Last() {
    static Kept kept;
    return kept;
}

// The selection if it lies in one line, else the word at the caret if that will do.
Hit PieceAtCaret(const ScriptEditor& editor, bool orWord) {
    Hit piece{editor.SelectionStart(), editor.SelectionEnd()};
    const qsizetype at = piece.from;
    if (piece.from == piece.to && orWord)
        piece = {editor.Send(QsciScintilla::SCI_WORDSTARTPOSITION, at, 1),
                 editor.Send(QsciScintilla::SCI_WORDENDPOSITION, at, 1)};
    if (editor.LineOf(piece.from) != editor.LineOf(piece.to) ||
        piece.to - piece.from > kLongestField)
        return {};
    return piece;
}

QString InWords(Finder::Way way) {
    if (way == Finder::Way::AroundTheEnd)
        return QStringLiteral("Se llegó al final; sigue desde el principio");
    if (way == Finder::Way::AroundTheStart)
        return QStringLiteral("Se llegó al principio; sigue desde el final");
    return {};
}

} // namespace

FindBar::FindBar(ScriptEditor& editor, CommandSet& commands, QWidget* parent)
    : QWidget(parent),
      m_editor(editor),
      m_finder(editor, this),
      m_what(MakeBarField(this, QStringLiteral("Buscar"))),
      m_replacement(MakeBarField(this, QStringLiteral("Reemplazar por"))),
      m_switches(new SearchSwitches(this)),
      m_state(new QLabel(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kBarMargin, kBarMargin, kBarMargin, kBarMargin);
    layout->setSpacing(kBarMargin);
    layout->addWidget(MakeFindRow());
    layout->addWidget(m_replaceRow = MakeReplaceRow());
    layout->addWidget(m_switches->MakeRowWith(m_state));
    setFocusProxy(m_what);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_what->installEventFilter(this);
    m_replacement->installEventFilter(this);
    connect(m_what, &QLineEdit::textEdited, this, &FindBar::Look);
    connect(m_switches, &SearchSwitches::Pressed, this, &FindBar::Look);
    connect(&m_finder, &Finder::Renewed, this, [this] { ShowState(); });
    AddCommands(commands);
    hide();
}

void FindBar::AddCommands(CommandSet& commands) {
    using enum Finder::Direction;
    commands.Add(Menu::Find,
                 {QStringLiteral("&Buscar"), {Qt::CTRL | Qt::Key_F}, [this] { Find(); }});
    commands.Add(Menu::Find, {QStringLiteral("&Reemplazar"), {Qt::CTRL | Qt::Key_H}, [this] {
                                  FindToReplace();
                              }});
    commands.Add(Menu::Find, {QStringLiteral("&Siguiente igual"), {Qt::CTRL | Qt::Key_F3}, [this] {
                                  FindSelected(On);
                              }});
    commands.Add(Menu::Find, {QStringLiteral("&Anterior igual"),
                              {Qt::CTRL | Qt::SHIFT | Qt::Key_F3},
                              [this] { FindSelected(Back); }});
}

QWidget* FindBar::MakeFindRow() {
    auto* row = new QWidget(this);
    QHBoxLayout* layout = MakeBarRow(row);
    layout->addWidget(m_what, 1);
    const auto add = [&](const QString& text, const QString& tip, void (FindBar::*clicked)()) {
        QAbstractButton* button = MakeBarButton(this, text, tip);
        connect(button, &QAbstractButton::clicked, this, clicked);
        layout->addWidget(button);
    };
    add(QStringLiteral("▲"), QStringLiteral("Anterior (Mayús+Intro)"), &FindBar::Previous);
    add(QStringLiteral("▼"), QStringLiteral("Siguiente (Intro)"), &FindBar::Next);
    add(QStringLiteral("✕"), QStringLiteral("Cerrar (Esc)"), &FindBar::Close);
    return row;
}

QWidget* FindBar::MakeReplaceRow() {
    auto* row = new QWidget(this);
    QHBoxLayout* layout = MakeBarRow(row);
    layout->addWidget(m_replacement, 1);
    QAbstractButton* one = MakeBarButton(this, QStringLiteral("Reemplazar"),
                                         QStringLiteral("Reemplazar y seguir"), Qt::Key_Z);
    QAbstractButton* all = MakeBarButton(this, QStringLiteral("Todo"),
                                         QStringLiteral("Reemplazar en todo el texto"), Qt::Key_T);
    connect(one, &QAbstractButton::clicked, this, &FindBar::Replace);
    connect(all, &QAbstractButton::clicked, this, &FindBar::ReplaceAll);
    layout->addWidget(one);
    layout->addWidget(all);
    return row;
}

void FindBar::Find() {
    Open(false);
}

void FindBar::FindToReplace() {
    Open(true);
}

void FindBar::Open(bool replace) {
    SearchFor wanted = Last().wanted;
    const Hit piece = PieceAtCaret(m_editor, false);
    if (piece.from < piece.to && !wanted.luaPattern)
        wanted.what = QString::fromUtf8(m_editor.Range(piece.from, piece.to));
    m_replaceRow->setVisible(replace);
    if (isHidden())
        m_replacement->setText(Last().replacement);
    Ask(wanted);
    m_what->setFocus();
    m_what->selectAll();
}

void FindBar::Close() {
    m_editor.setFocus();
    m_finder.Stop();
    hide();
}

// Shows the bar with the hits marked and none chosen.
void FindBar::Ask(const SearchFor& wanted) {
    if (m_what->text() != wanted.what) // which is being typed, perhaps in its midst
        m_what->setText(wanted.what);
    m_switches->Show(wanted);
    m_start = m_editor.SelectionStart();
    Last().wanted = wanted;
    show();
    m_finder.LookFor(wanted);
}

// From where the caret was when the typing began, so that deleting goes back there.
void FindBar::Look() {
    const SearchFor wanted = m_switches->For(m_what->text());
    const qsizetype start = m_start;
    Ask(wanted);
    m_start = start;
    if (!m_finder.Fault().isEmpty())
        return;
    const Finder::Way way = m_finder.SelectFrom(start, Finder::Direction::On);
    if (way == Finder::Way::Nothing)
        m_editor.GoTo(start);
    ShowState(InWords(way));
}

void FindBar::Step(Finder::Direction direction) {
    const Finder::Way way = m_finder.SelectNext(direction);
    m_start = m_editor.SelectionStart();
    ShowState(InWords(way));
}

// A selected hit leads to the next one; else what is selected, or the word at the caret, is looked
// for.
void FindBar::FindSelected(Finder::Direction direction) {
    if (isHidden())
        m_replaceRow->hide();
    if (isHidden() || !m_finder.Selected()) {
        const Hit piece = PieceAtCaret(m_editor, true);
        if (piece.from == piece.to)
            return;
        m_editor.Select(piece.from, piece.to);
        SearchFor wanted = Last().wanted;
        wanted.what = QString::fromUtf8(m_editor.Range(piece.from, piece.to));
        wanted.luaPattern = false;
        Ask(wanted);
    }
    Step(direction);
}

void FindBar::Replace() {
    Last().replacement = m_replacement->text();
    const Finder::Outcome outcome = m_finder.ReplaceSelected(m_replacement->text());
    if (outcome.fault.isEmpty())
        Step(Finder::Direction::On);
    else
        ShowState(outcome.fault);
}

void FindBar::ReplaceAll() {
    Last().replacement = m_replacement->text();
    const Finder::Outcome outcome = m_finder.ReplaceAll(m_replacement->text());
    if (!outcome.fault.isEmpty() || outcome.count == 0)
        return ShowState(outcome.fault);
    m_state->setText(outcome.count == 1 ? QStringLiteral("1 cambio")
                                        : QStringLiteral("%1 cambios").arg(outcome.count));
    ShowAsVain(*m_what, false); // what is no longer there has been found
}

QString FindBar::CountInWords() const {
    const size_t count = m_finder.Count();
    if (const auto selected = m_finder.Selected())
        return QStringLiteral("%1 de %2").arg(*selected + 1).arg(count);
    if (count == 0)
        return QStringLiteral("No se encuentra");
    return count == 1 ? QStringLiteral("1 encontrado")
                      : QStringLiteral("%1 encontrados").arg(count);
}

void FindBar::ShowState(const QString& event) {
    const bool asked = !m_finder.Wanted().what.isEmpty();
    QStringList parts = {m_finder.Fault()};
    if (asked && m_finder.Fault().isEmpty())
        parts = {CountInWords()};
    parts.append(event);
    parts.removeAll(QString());
    m_state->setText(parts.join(QStringLiteral(" · ")));
    ShowAsVain(*m_what, asked && m_finder.Count() == 0);
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn && watched == m_what)
        m_start = m_editor.SelectionStart();
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (!platform::IsEnter(key))
        return false;
    if (watched == m_replacement)
        Replace();
    else
        Step(key.modifiers() & Qt::ShiftModifier ? Finder::Direction::Back : Finder::Direction::On);
    return true;
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace documents
