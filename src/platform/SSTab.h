// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QButtonGroup;
class QGridLayout;
class QStackedLayout;

namespace platform {

/// A tab control whose tabs stand in several rows, all in sight. Arrows move among the tabs when
/// one has the focus; Ctrl+Tab and Ctrl+Shift+Tab go round from anywhere inside.
class SSTab : public QWidget {
    Q_OBJECT

public:
    explicit SSTab(QWidget* parent = nullptr);

    void TabsPerRow(int count) { m_perRow = count; }
    /// Adds a page behind the others; it becomes the tab control's own.
    void AddTab(const QString& caption, QWidget* page);
    /// The index of the tab in front, from 0; -1 without tabs.
    int Tab() const;
    /// Brings a tab to the front; an index without a tab changes nothing.
    void Tab(int index);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QButtonGroup* m_tabs;
    QGridLayout* m_rows;
    QStackedLayout* m_pages;
    int m_perRow = 6;
};

} // namespace platform
