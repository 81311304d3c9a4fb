// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace documents {

class CommandSet;
class ScriptEditor;

/// The bar under the text that goes to a line; hidden until it is wanted.
class GoToBar : public QWidget {
    Q_OBJECT

public:
    GoToBar(ScriptEditor& editor, CommandSet& commands, QWidget* parent);

    void Open();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Go();
    void Say(const QString& fault);
    void Close();

    ScriptEditor& m_editor;
    QLineEdit* m_place;
    QLabel* m_fault;
};

} // namespace documents
