// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QButtonGroup;
class QGridLayout;
class QHBoxLayout;
class QStackedLayout;

namespace platform {

/// A tab control with six tabs to a row, all rows in sight. Arrows move among the tabs when one has
/// the focus; Ctrl+Tab and Ctrl+Shift+Tab go round from anywhere in the window that holds it.
class SSTab : public QWidget {
    Q_OBJECT

public:
    explicit SSTab(QWidget* parent = nullptr);

    /// Adds a page behind the others; it becomes the tab control's own.
    void AddTab(const QString& caption, QWidget* page);
    /// Puts a widget to the right of the pages, under the tabs.
    void Beside(QWidget* widget);
    /// The index of the tab in front, from 0; -1 without tabs.
    int Tab() const;
    /// Brings a tab to the front; an index without a tab changes nothing.
    void Tab(int index);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void GoRound(int step);

    QWidget* m_list;
    QButtonGroup* m_tabs;
    QGridLayout* m_rows;
    QHBoxLayout* m_body;
    QStackedLayout* m_pages;
};

} // namespace platform
