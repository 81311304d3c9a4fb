// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/find/SearchSwitches.h"

#include "documents/editor/find/BarParts.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QLabel>

namespace documents {

SearchSwitches::SearchSwitches(QWidget* bar)
    : QWidget(bar),
      m_case(MakeBarSwitch(bar, QStringLiteral("Aa"), QStringLiteral("Distinguir mayúsculas"),
                           Qt::Key_M)),
      m_word(MakeBarSwitch(bar, QStringLiteral("Palabra"), QStringLiteral("Solo palabras enteras"),
                           Qt::Key_P)),
      m_pattern(MakeBarSwitch(bar, QStringLiteral("Patrón"),
                              QStringLiteral("Patrón de Lua, como %d+; distingue mayúsculas"),
                              Qt::Key_R)) {
    QHBoxLayout* layout = MakeBarRow(this);
    for (QAbstractButton* one : {m_case, m_word, m_pattern}) {
        layout->addWidget(one);
        connect(one, &QAbstractButton::clicked, this, &SearchSwitches::Pressed);
    }
    connect(m_pattern, &QAbstractButton::toggled, m_case, &QWidget::setDisabled);
}

QWidget* SearchSwitches::MakeRowWith(QLabel* state) {
    auto* row = new QWidget(parentWidget());
    QHBoxLayout* layout = MakeBarRow(row);
    layout->addWidget(this, 0, Qt::AlignTop);
    layout->addWidget(state, 1);
    state->setWordWrap(true);
    return row;
}

SearchFor SearchSwitches::For(const QString& what) const {
    return {what, m_case->isChecked(), m_word->isChecked(), m_pattern->isChecked()};
}

void SearchSwitches::Show(const SearchFor& wanted) {
    m_case->setChecked(wanted.caseSensitive);
    m_word->setChecked(wanted.wholeWord);
    m_pattern->setChecked(wanted.luaPattern);
}

} // namespace documents
