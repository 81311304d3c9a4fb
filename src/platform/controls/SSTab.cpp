// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/SSTab.h"

#include "platform/controls/TabButton.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace platform {
namespace {

constexpr int kGap = 2; // pixels
constexpr int kTabsPerRow = 6;

// 1 and -1 for the keys that go to the next and the last tab, 0 for any other.
int StepOf(const QKeyEvent& event, bool onTab) {
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    switch (event.key()) {
    case Qt::Key_Tab:
        return control ? 1 : 0;
    case Qt::Key_Backtab:
        return control ? -1 : 0;
    case Qt::Key_Right:
        return onTab ? 1 : 0;
    case Qt::Key_Left:
        return onTab ? -1 : 0;
    default:
        return 0;
    }
}

} // namespace

SSTab::SSTab(QWidget* parent)
    : QWidget(parent),
      m_list(new TabList(this)),
      m_tabs(new QButtonGroup(this)),
      m_rows(new QGridLayout(m_list)),
      m_body(new QHBoxLayout),
      m_pages(new QStackedLayout) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kGap);
    layout->addWidget(m_list);
    layout->addLayout(m_body, 1);
    m_body->addLayout(m_pages, 1);
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setSpacing(kGap);
    connect(m_tabs, &QButtonGroup::idToggled, this, [this](int index, bool chosen) {
        if (chosen)
            m_pages->setCurrentIndex(index);
    });
    SpeakAsTabs();
    QCoreApplication::instance()->installEventFilter(this);
}

void SSTab::AddTab(const QString& caption, QWidget* page) {
    const int index = m_pages->count();
    auto* tab = new TabButton(caption, m_list); // before its page in the order of the Tab key
    m_pages->addWidget(page);
    page->setAccessibleName(caption);
    m_tabs->addButton(tab, index);
    m_rows->addWidget(tab, index / kTabsPerRow, index % kTabsPerRow);
    tab->setChecked(index == 0);
}

void SSTab::Beside(QWidget* widget) {
    m_body->addWidget(widget);
}

int SSTab::Tab() const {
    return m_tabs->checkedId();
}

void SSTab::Tab(int index) {
    if (QAbstractButton* tab = m_tabs->button(index))
        tab->setChecked(true);
}

void SSTab::GoRound(int step) {
    const int count = m_pages->count();
    Tab((Tab() + step + count) % count);
    setFocus(Qt::TabFocusReason);
}

// Without a focus proxy, which would make this one more stop of the Tab key among tabs and pages.
void SSTab::focusInEvent(QFocusEvent* event) {
    if (QAbstractButton* tab = m_tabs->checkedButton())
        tab->setFocus(event->reason());
}

// Sees the events of the whole program: MDIFrame has a shortcut for Ctrl+Tab, and QMdiArea takes
// these keys from every widget.
bool SSTab::eventFilter(QObject* object, QEvent* event) {
    const bool press = event->type() == QEvent::KeyPress;
    if (!press && event->type() != QEvent::ShortcutOverride)
        return false;
    const auto* widget = qobject_cast<QWidget*>(object);
    if (!widget || !parentWidget() || !parentWidget()->isAncestorOf(widget))
        return false;
    const bool onTab = qobject_cast<const TabButton*>(widget) && isAncestorOf(widget);
    const int step = StepOf(*static_cast<QKeyEvent*>(event), onTab);
    if (step == 0)
        return false;
    event->accept();
    if (press)
        GoRound(step);
    return true;
}

} // namespace platform
