// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms/Dialogs.h"

#include <QString>
#include <vector>

namespace platform {

/// The file dialog that a window holds. It keeps its filter and its last answer.
class CommonDialog {
public:
    explicit CommonDialog(QWidget* owner) : m_owner(owner) {}

    /// Names and patterns in turn, with "|" between them: "Archivos .qmk|*.qmk".
    void Filter(const QString& filter) { m_filter = filter; }
    void ShowSave();
    /// The name of the last pick stays if the user leaves the dialog.
    void ShowOpen();
    /// Full program path of the pick; empty if the user left the save dialog.
    const QString& FileName() const { return m_fileName; }
    /// The part of FileName behind the folder.
    const QString& FileTitle() const { return m_fileTitle; }

private:
    void Take(const QString& fileName);

    QWidget* m_owner;
    QString m_filter;
    QString m_fileName;
    QString m_fileTitle;
};

/// The pairs of a filter text whose items are held apart by `separator`.
std::vector<FileFilter> FilterPairs(const QString& text, QChar separator);

} // namespace platform
