// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/TabButton.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace platform {
namespace {

class AccessibleTab : public QAccessibleWidget {
public:
    explicit AccessibleTab(TabButton* tab) : QAccessibleWidget(tab, QAccessible::PageTab) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? Button()->text() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = true;
        state.selected = Button()->isChecked();
        return state;
    }
    QStringList actionNames() const override {
        return QAccessibleWidget::actionNames() << pressAction();
    }
    void doAction(const QString& action) override {
        if (action == pressAction())
            Button()->click();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    TabButton* Button() const { return static_cast<TabButton*>(widget()); }
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
    if (auto* tab = qobject_cast<TabButton*>(object))
        return new AccessibleTab(tab);
    if (auto* list = qobject_cast<TabList*>(object))
        return new QAccessibleWidget(list, QAccessible::PageTabList);
    return nullptr;
}

} // namespace

TabButton::TabButton(const QString& caption, QWidget* parent) : QToolButton(parent) {
    setText(caption);
    setCheckable(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QToolButton::toggled, this, &TabButton::Mark);
}

// The tab in front stands out more than a pressed button does.
void TabButton::Mark(bool inFront) {
    QPalette palette;
    if (inFront) {
        palette.setColor(QPalette::Button, palette.color(QPalette::Highlight));
        palette.setColor(QPalette::ButtonText, palette.color(QPalette::HighlightedText));
    }
    setPalette(palette);
    QAccessible::State changed;
    changed.selected = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void SpeakAsTabs() {
    QAccessible::installFactory(MakeAccessible); // a second time changes nothing
}

} // namespace platform
