// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/controls/ImageList.h"
#include "platform/controls/ListControl.h"

#include <QColor>
#include <QIcon>
#include <QSize>
#include <QStackedWidget>
#include <QString>
#include <functional>
#include <optional>

class QAbstractItemView;
class QHeaderView;
class QKeyEvent;
class QListView;
class QMouseEvent;
class QTreeView;

namespace platform {

class ListModel;

/// The displays of a list view: names with small icons that run down and then across, or rows with
/// all columns below a header.
enum class ListDisplay { List = 2, Report = 3 };

/// Bits of HDITEM::fmt; a text stands at the left without one of the first two.
inline constexpr int HDF_RIGHT = 1;
inline constexpr int HDF_CENTER = 2;
inline constexpr int HDF_IMAGE = 2048;
inline constexpr int HDF_STRING = 16384;

/// A column as its header has it.
struct HDITEM {
    QString text;
    int fmt = 0;
    QIcon image; ///< null unless `fmt` has HDF_IMAGE
};

/// A list of rows with an icon, a name and further columns. Many rows are cheap.
class ListView : public QStackedWidget, public ListControl {
    Q_OBJECT

public:
    explicit ListView(QWidget* parent = nullptr);

    ListDisplay View() const;
    void View(ListDisplay display);
    /// The header of the columns; on screen in the display with columns only.
    QHeaderView* Header() const;
    /// The column counted from 0; nothing if there is none.
    std::optional<HDITEM> HeaderItem(int column) const;
    /// A font whose lines are at most so many pixels high; the header is a little higher. The
    /// desktop's own font and height for 0 and less.
    void HeaderFont(int lineHeight);
    void ColumnHeaderIcons(const ImageList* images);
    /// Of an icon of the header, in pixels; empty without a list of icons.
    QSize HeaderIconSize() const;
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
    // Whether the event is done with, and the view isn't to see it.
    bool KeyPressed(const QKeyEvent& event);
    bool DoubleClicked(const QMouseEvent& event);
    bool SelectByKey(const QKeyEvent& event);
    bool IsOnRow(const QMouseEvent& event) const;
    void DblClick();

    ListModel* m_model;
    QListView* m_list;
    QTreeView* m_report;
    const ImageList* m_headerIcons = nullptr;
    const ImageList* m_icons = nullptr;
    const ImageList* m_smallIcons = nullptr;
    std::function<void()> m_dblClick;
    bool m_waiting = false;
};

} // namespace platform
