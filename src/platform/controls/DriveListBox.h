// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QComboBox>

namespace platform {

/// A list of the drives that are there, with the label of a volume behind its letter. Volumes come
/// and go in it as they are mounted.
class DriveListBox : public QComboBox {
    Q_OBJECT

public:
    explicit DriveListBox(QWidget* parent = nullptr);

    /// The chosen letter and colon, at the head of a path; empty if none is chosen.
    QString Drive() const;
    void Drive(const QString& drive);
    /// Lists what is there now. The choice stays unless its drive is gone.
    void Refresh();

Q_SIGNALS:
    /// Another drive is chosen, or none any more.
    void Change();

private:
    void Changed();

    QString m_drive;
    bool m_refreshing = false;
};

} // namespace platform
