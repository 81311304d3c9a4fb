// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/FileListBox.h"

#include "platform/files/FolderNames.h"
#include "platform/files/Paths.h"
#include "platform/forms/ToolTip.h"
#include "platform/text/NativeNames.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

namespace platform {

FileListBox::FileListBox(QWidget* parent) : QListWidget(parent), m_path(FromNative(".")) {
    setUniformItemSizes(true);
    connect(this, &QListWidget::itemSelectionChanged, this, [this] {
        if (!FileName().isEmpty())
            Q_EMIT Click();
    });
    Refresh();
}

void FileListBox::Path(const QString& path) {
    m_path = path;
    Refresh();
}

void FileListBox::Pattern(const QString& pattern) {
    m_pattern = pattern;
    Refresh();
}

QString FileListBox::FileName() const {
    const QList<QListWidgetItem*> chosen = selectedItems();
    return chosen.isEmpty() ? QString() : chosen.constFirst()->data(Qt::UserRole).toString();
}

void FileListBox::Refresh() {
    clear();
    for (const QString& name : FileNames(m_path, m_pattern)) {
        auto* item = new QListWidgetItem(DisplayText(name), this);
        item->setData(Qt::UserRole, name);
        item->setToolTip(ToolTipText(item->text())); // whole, where the list cuts it
    }
}

void FileListBox::mousePressEvent(QMouseEvent* event) {
    const QListWidgetItem* pressed = itemAt(event->position().toPoint());
    const bool again = event->button() == Qt::LeftButton && pressed && pressed->isSelected();
    QListWidget::mousePressEvent(event);
    if (again)
        Q_EMIT Click();
}

void FileListBox::keyPressEvent(QKeyEvent* event) {
    const bool arrow = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    if (arrow && selectedItems().isEmpty() && count() > 0)
        setCurrentRow(std::max(0, currentRow())); // QListWidget would go to the second one
    else
        QListWidget::keyPressEvent(event);
}

} // namespace platform
