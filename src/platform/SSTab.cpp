// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/SSTab.h"

#include "platform/TabButton.h"

#include <QButtonGroup>
#include <QCoreApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace platform {
namespace {

constexpr int kGap = 2; // pixels

// 1 and -1 for the keys that go round, 0 for any other.
int StepOf(const QKeyEvent& event) {
    if (!event.modifiers().testFlag(Qt::ControlModifier))
        return 0;
    if (event.key() == Qt::Key_Backtab)
        return -1;
    return event.key() == Qt::Key_Tab ? 1 : 0;
}

} // namespace

SSTab::SSTab(QWidget* parent)
    : QWidget(parent),
      m_tabs(new QButtonGroup(this)),
      m_rows(new QGridLayout),
      m_pages(new QStackedLayout) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kGap);
    layout->addLayout(m_rows);
    layout->addLayout(m_pages, 1);
    m_rows->setSpacing(kGap);
    connect(m_tabs, &QButtonGroup::idToggled, this, [this](int index, bool chosen) {
        if (!chosen)
            return;
        m_pages->setCurrentIndex(index);
        setFocusProxy(m_tabs->button(index));
    });
    TabButton::SpeakAsTab();
    QCoreApplication::instance()->installEventFilter(this);
}

void SSTab::AddTab(const QString& caption, QWidget* page) {
    const int index = m_pages->count();
    auto* tab = new TabButton(caption, this); // before its page, as the tab key goes
    m_pages->addWidget(page);
    page->setAccessibleName(caption);
    m_tabs->addButton(tab, index);
    m_rows->addWidget(tab, index / m_perRow, index % m_perRow);
    tab->setChecked(index == 0);
}

int SSTab::Tab() const {
    return m_tabs->checkedId();
}

void SSTab::Tab(int index) {
    if (QAbstractButton* tab = m_tabs->button(index))
        tab->setChecked(true);
}

// The frame has a shortcut for these keys, and the toolkit's child area takes them from everybody.
bool SSTab::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && StepOf(*static_cast<QKeyEvent*>(event)) != 0) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

bool SSTab::eventFilter(QObject* object, QEvent* event) {
    const auto* widget = qobject_cast<QWidget*>(object);
    if (event->type() != QEvent::KeyPress || !widget || !isAncestorOf(widget))
        return QWidget::eventFilter(object, event);
    const int step = StepOf(*static_cast<QKeyEvent*>(event));
    if (step == 0)
        return false;
    const int count = m_pages->count();
    Tab((Tab() + step + count) % count);
    setFocus(Qt::TabFocusReason);
    return true;
}

} // namespace platform
