// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/ListModel.h"

#include "platform/forms/ToolTip.h"
#include "platform/text/NativeNames.h"

#include <utility>

namespace platform {

void ListModel::Clear() {
    beginResetModel();
    m_items.clear();
    m_published = 0;
    endResetModel();
}

void ListModel::Add(ListItem item) {
    m_items.push_back(std::move(item));
}

void ListModel::Publish() {
    const int count = static_cast<int>(m_items.size());
    if (count == m_published)
        return;
    beginInsertRows({}, m_published, count - 1);
    m_published = count;
    endInsertRows();
}

void ListModel::Headers(std::vector<ColumnHeader> headers) {
    beginResetModel();
    m_headers = std::move(headers);
    endResetModel();
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_published;
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_headers.size());
}

QString ListModel::Text(const QModelIndex& index) const {
    const ListItem& item = m_items[static_cast<size_t>(index.row())];
    return DisplayText(index.column() == 0 ? item.text : item.subItems.value(index.column() - 1));
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    switch (role) {
    case Qt::DisplayRole:
        return Text(index);
    case Qt::ToolTipRole: // whole, where the list cuts it
        return ToolTipText(Text(index));
    case Qt::DecorationRole:
        if (index.column() == 0 && m_smallIcons)
            return m_smallIcons->Image(m_items[static_cast<size_t>(index.row())].smallIcon);
        return {};
    case Qt::TextAlignmentRole:
        return headerData(index.column(), Qt::Horizontal, role);
    default:
        return {};
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section >= columnCount())
        return {};
    const ColumnHeader& header = m_headers[static_cast<size_t>(section)];
    if (role == Qt::DisplayRole)
        return header.text;
    if (role == Qt::TextAlignmentRole)
        return QVariant(header.alignment | Qt::AlignVCenter);
    if (role == Qt::DecorationRole && m_headerIcons)
        return m_headerIcons->Image(header.icon);
    return {};
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren
                           : Qt::NoItemFlags;
}

} // namespace platform
