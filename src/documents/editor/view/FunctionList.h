// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <vector>

class QLineEdit;
class QListView;
class QSortFilterProxyModel;
class QStringListModel;

namespace documents {

class CommandSet;
class ScriptEditor;

/// The functions of the script over the text, filtered by what is typed. Enter, or a click, goes to
/// the chosen one; Escape, or the focus elsewhere, closes it.
class FunctionList : public QFrame {
    Q_OBJECT

public:
    FunctionList(ScriptEditor& editor, CommandSet& commands, QWidget* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Open();
    void Fill();
    void Place();
    void Filter(const QString& part);
    void Choose(int row);
    void GoToChosen();
    void Close();
    bool TakesKey(int key);

    ScriptEditor& m_editor;
    QLineEdit* m_part;
    QListView* m_list;
    QStringListModel* m_names;
    QSortFilterProxyModel* m_shown;
    std::vector<qsizetype> m_places; // of the functions, in the order of m_names
};

} // namespace documents
