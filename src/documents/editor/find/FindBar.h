// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/find/Finder.h"
#include "documents/editor/find/Search.h"

#include <QWidget>

class QLabel;
class QLineEdit;

namespace documents {

class CommandSet;
class SearchSwitches;

/// The bar under the text that finds and replaces; hidden until it is wanted. What is looked for is
/// kept while the program runs, for the bars of all documents.
class FindBar : public QWidget {
    Q_OBJECT

public:
    FindBar(ScriptEditor& editor, CommandSet& commands, QWidget* parent);

    /// Shows the bar with the keyboard in it; a selection in one line is what is looked for.
    void Find();
    void FindToReplace();
    /// Hides it; the focus goes to the text, whose selection stays.
    void Close();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void AddCommands(CommandSet& commands);
    QWidget* MakeFindRow();
    QWidget* MakeReplaceRow();
    void Open(bool replace);
    void FindSelected(Finder::Direction direction);
    void Next() { Step(Finder::Direction::On); }
    void Previous() { Step(Finder::Direction::Back); }
    void Step(Finder::Direction direction);
    void Replace();
    void ReplaceAll();
    void Ask(const SearchFor& wanted);
    void Look();
    QString CountInWords() const;
    void ShowState(const QString& event = {});

    ScriptEditor& m_editor;
    Finder m_finder;
    qsizetype m_start = 0; // where the caret was when the typing began
    QLineEdit* m_what;
    QLineEdit* m_replacement;
    SearchSwitches* m_switches;
    QWidget* m_replaceRow;
    QLabel* m_state;
};

} // namespace documents
