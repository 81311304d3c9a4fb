// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ListControl.h"

#include <QStackedWidget>

class QAbstractItemView;
class QHeaderView;
class QListView;
class QTreeView;

namespace platform {

class ListModel;

/// The displays of a list view: names with small icons that run down and then across, or rows with
/// all columns below a header.
enum class ListDisplay { List = 2, Report = 3 };

/// A list of rows with an icon, a name and further columns. Many rows are cheap.
class ListView : public QStackedWidget, public ListControl {
    Q_OBJECT

public:
    explicit ListView(QWidget* parent = nullptr);

    ListDisplay View() const;
    void View(ListDisplay display);
    /// The header of the columns; on screen in the display with columns only.
    QHeaderView* Header() const;
    /// A text of a row, from 1: column 0 is its name.
    QString Text(int row, int column) const;
    int Count() const;
    const ImageList* Icons() const { return m_icons; }
    const ImageList* SmallIcons() const { return m_smallIcons; }

    void ClearColumnHeaders() override;
    void AddColumnHeader(const ColumnHeader& header) override;
    void ClearItems() override;
    void AddItem(ListItem item) override;
    int SelectedIndex() const override;
    void Icons(const ImageList* images) override { m_icons = images; }
    void SmallIcons(const ImageList* images) override;
    void Refresh() override;
    QColor BackColor() const override;
    void OnDblClick(std::function<void()> handler) override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void Prepare(QAbstractItemView* view);
    void ShowNewRows();
    void FitColumn();
    bool SelectByKey(const QKeyEvent& event);
    bool IsOnRow(const QMouseEvent& event) const;

    ListModel* m_model;
    QListView* m_list;
    QTreeView* m_report;
    const ImageList* m_icons = nullptr;
    const ImageList* m_smallIcons = nullptr;
    std::function<void()> m_dblClick;
    bool m_waiting = false;
};

} // namespace platform
