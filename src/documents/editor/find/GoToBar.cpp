// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/find/GoToBar.h"

#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/find/BarParts.h"
#include "documents/editor/find/LinePlace.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>

namespace documents {
namespace {

constexpr int kFieldWidth = 90; // in pixels

} // namespace

GoToBar::GoToBar(ScriptEditor& editor, CommandSet& commands, QWidget* parent)
    : QWidget(parent), m_editor(editor), m_fault(new QLabel(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kBarMargin, kBarMargin, kBarMargin, kBarMargin);
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(QStringLiteral("Ir a la línea:"), this));
    row->addWidget(m_place = MakeBarField(this, QStringLiteral("Línea")), 1, Qt::AlignLeft);
    layout->addLayout(row);
    layout->addWidget(m_fault);
    m_fault->setWordWrap(true);
    m_place->setMaximumWidth(kFieldWidth);
    setFocusProxy(m_place);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(m_place, &QLineEdit::returnPressed, this, &GoToBar::Go);
    connect(m_place, &QLineEdit::textEdited, this, [this] { Say({}); });
    commands.Add(Menu::Go, {QStringLiteral("&Línea"), {Qt::CTRL | Qt::Key_G}, [this] { Open(); }});
    hide();
}

void GoToBar::Open() {
    Say({});
    m_place->setText(QString::number(m_editor.LineOf(m_editor.Caret()) + 1));
    show();
    m_place->setFocus();
    m_place->selectAll();
}

void GoToBar::Say(const QString& fault) {
    m_fault->setText(fault);
    m_fault->setVisible(!fault.isEmpty());
}

void GoToBar::Close() {
    m_editor.setFocus();
    hide();
}

void GoToBar::Go() {
    const auto [place, fault] =
        ReadLinePlace(m_place->text(), m_editor.LineOf(m_editor.Caret()), m_editor.lines());
    Say(fault);
    if (!fault.isEmpty())
        return;
    const qsizetype start = m_editor.LineStart(place.line);
    const qsizetype at = m_editor.Send(QsciScintilla::SCI_POSITIONRELATIVE, start, place.column);
    // Behind the end of the text there is no position, but 0.
    const qsizetype end = m_editor.LineEnd(place.line);
    m_editor.GoTo(place.column > 0 && at == 0 ? end : std::min(at, end));
    Close();
}

void GoToBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace documents
