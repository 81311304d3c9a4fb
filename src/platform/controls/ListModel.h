// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/controls/ImageList.h"
#include "platform/controls/ListControl.h"

#include <QAbstractTableModel>
#include <vector>

namespace platform {

/// The rows and columns of a list view. New rows are told to the views in lots, by Publish.
class ListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void Clear();
    void Add(ListItem item);
    void Publish();
    const std::vector<ListItem>& Items() const { return m_items; }

    void Headers(std::vector<ColumnHeader> headers);
    const std::vector<ColumnHeader>& Headers() const { return m_headers; }
    void HeaderIcons(const ImageList* images) { m_headerIcons = images; }
    void SmallIcons(const ImageList* images) { m_smallIcons = images; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    QString Text(const QModelIndex& index) const;

    std::vector<ListItem> m_items;
    int m_published = 0;
    std::vector<ColumnHeader> m_headers;
    const ImageList* m_headerIcons = nullptr;
    const ImageList* m_smallIcons = nullptr;
};

} // namespace platform
