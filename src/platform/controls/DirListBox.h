// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTreeWidget>

namespace platform {

/// A folder with those that it lies in above it and those that lie in it below. A double click or
/// Enter goes into a folder.
class DirListBox : public QTreeWidget {
    Q_OBJECT

public:
    explicit DirListBox(QWidget* parent = nullptr);

    /// A program path; at first the current directory.
    const QString& Path() const { return m_path; }
    /// A drive alone stands for its root. A folder that can't be read has nothing below it.
    void Path(const QString& path);

Q_SIGNALS:
    /// Path was set or a folder was gone into.
    void Change();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void drawBranches(QPainter*, const QRect&, const QModelIndex&) const override {}

private:
    void GoInto(const QTreeWidgetItem* item);
    void List();

    QString m_path;
};

} // namespace platform
