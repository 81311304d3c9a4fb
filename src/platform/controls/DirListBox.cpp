// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/DirListBox.h"

#include "platform/files/FolderNames.h"
#include "platform/files/Paths.h"
#include "platform/forms/Keys.h"
#include "platform/forms/ToolTip.h"
#include "platform/text/NativeNames.h"

#include <QKeyEvent>
#include <QStyle>

namespace platform {
namespace {

constexpr int kIndentation = 12; // pixels

QString Below(const QString& folder, const QString& name) {
    return folder.endsWith(u'\\') ? folder + name : folder + u'\\' + name;
}

} // namespace

DirListBox::DirListBox(QWidget* parent) : QTreeWidget(parent) {
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setIndentation(kIndentation);
    connect(this, &QTreeWidget::itemDoubleClicked, this, &DirListBox::GoInto);
    Path(FromNative("."));
}

void DirListBox::Path(const QString& path) {
    m_path = path.endsWith(u':') ? path + u'\\' : path;
    List();
    Q_EMIT Change();
}

void DirListBox::List() {
    clear();
    const auto add = [this](QTreeWidgetItem* above, const QString& name, const QString& path,
                            QStyle::StandardPixmap icon) {
        auto* item = above ? new QTreeWidgetItem(above) : new QTreeWidgetItem(this);
        item->setText(0, DisplayText(name));
        item->setIcon(0, style()->standardIcon(icon));
        item->setData(0, Qt::UserRole, path);
        item->setToolTip(0, ToolTipText(item->text(0)));
        return item;
    };
    QTreeWidgetItem* current = nullptr;
    QString path;
    for (const QString& name : m_path.split(u'\\', Qt::SkipEmptyParts)) {
        path = path.isEmpty() ? name + u'\\' : Below(path, name);
        current = add(current, current ? name : path, path, QStyle::SP_DirOpenIcon);
    }
    if (!current)
        return;
    for (const QString& name : FolderNames(path))
        add(current, name, Below(path, name), QStyle::SP_DirClosedIcon);
    expandAll();
    setCurrentItem(current);
    scrollToItem(current, QAbstractItemView::PositionAtCenter);
}

void DirListBox::GoInto(const QTreeWidgetItem* item) {
    Path(item->data(0, Qt::UserRole).toString());
}

void DirListBox::keyPressEvent(QKeyEvent* event) {
    const bool enter = IsEnter(*event);
    if (enter && currentItem())
        GoInto(currentItem());
    else
        QTreeWidget::keyPressEvent(event);
}

} // namespace platform
