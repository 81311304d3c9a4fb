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
    QHBoxLayout* layout = MakeBarRow(this);
    layout->setContentsMargins(kBarMargin, kBarMargin, kBarMargin, kBarMargin);
    layout->addWidget(new QLabel(QStringLiteral("Ir a la línea:"), this));
    layout->addWidget(m_place = MakeBarField(this, QStringLiteral("Línea")));
    layout->addWidget(m_fault, 1);
    m_place->setMaximumWidth(kFieldWidth);
    setFocusProxy(m_place);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(m_place, &QLineEdit::returnPressed, this, &GoToBar::Go);
    connect(m_place, &QLineEdit::textEdited, m_fault, &QLabel::clear);
    commands.Add(Menu::Go, {QStringLiteral("&Línea"), {Qt::CTRL | Qt::Key_G}, [this] { Open(); }});
    hide();
}

void GoToBar::Open() {
    m_fault->clear();
    m_place->setText(QString::number(m_editor.LineOf(m_editor.Caret()) + 1));
    show();
    m_place->setFocus();
    m_place->selectAll();
}

void GoToBar::Close() {
    m_editor.setFocus();
    hide();
}

void GoToBar::Go() {
    const auto [place, fault] =
        ReadLinePlace(m_place->text(), m_editor.LineOf(m_editor.Caret()), m_editor.lines());
    m_fault->setText(fault);
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
