// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/find/FolderSearch.h"

#include <QWidget>
#include <functional>
#include <vector>

class QAbstractButton;
class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace documents {

class CommandSet;
class ScriptEditor;
class SearchSwitches;

/// The pane under the text that looks through the script's folder; hidden until it is wanted.
class FolderSearchPane : public QWidget {
    Q_OBJECT

public:
    /// The program path of the script's folder; empty if it has none yet.
    using Folder = std::function<QString()>;

    FolderSearchPane(ScriptEditor& editor, CommandSet& commands, Folder folder, QWidget* parent);

    void Open();
    /// Gives the search up; the focus goes to the text.
    void Close();

Q_SIGNALS:
    /// A line of a file is wanted: by program path, lines from 0.
    void OpenAt(const QString& path, qsizetype line);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* MakeRow();
    void MakeList();
    void StartOrStop();
    void Start();
    void Add(const QString& path, const std::vector<FoundLine>& lines);
    void ShowEnd(const FolderSearch::End& end);
    void ShowRunning(const QString& state);
    void Choose(const QTreeWidgetItem& row);

    ScriptEditor& m_editor;
    Folder m_folder;
    QString m_searched; // the folder of the list
    FolderSearch m_search;
    QLineEdit* m_what;
    SearchSwitches* m_switches;
    QAbstractButton* m_start;
    QTreeWidget* m_list;
    QLabel* m_state;
};

} // namespace documents
