// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/controls/ImageList.h"

#include <QColor>
#include <QString>
#include <QStringList>
#include <functional>

namespace platform {

struct ColumnHeader {
    QString text;
    int width = 0; ///< twips
    Qt::Alignment alignment = Qt::AlignLeft;
    QString icon = {}; ///< key in the header's list of icons
};

struct ListItem {
    QString text;
    QString icon; ///< key in the list of large icons
    QString smallIcon;
    QStringList subItems; ///< the texts of the columns behind the first
};

/// What is asked of a list view by those who fill it. Rows stay in the order in which they came.
class ListControl {
public:
    virtual ~ListControl() = default;

    virtual void ClearColumnHeaders() = 0;
    virtual void AddColumnHeader(const ColumnHeader& header) = 0;
    virtual void ClearItems() = 0;
    virtual void AddItem(ListItem item) = 0;
    /// The place of the selected row, from 1; 0 without one.
    virtual int SelectedIndex() const = 0;
    /// The lists stay the caller's, and are null for none.
    virtual void Icons(const ImageList* images) = 0;
    virtual void SmallIcons(const ImageList* images) = 0;
    /// Shows the rows that have come so far.
    virtual void Refresh() = 0;
    virtual QColor BackColor() const = 0;
    /// Who hears of a double click, or Enter, on a row; an empty function for nobody.
    virtual void OnDblClick(std::function<void()> handler) = 0;
};

} // namespace platform
