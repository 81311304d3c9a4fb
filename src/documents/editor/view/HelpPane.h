// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>

class QHBoxLayout;

namespace documents {

class CommandSet;
class ManualBrowser;
class ScriptEditor;

/// The help below the text: what a call does, the manual, all keys. Hidden until it's asked for;
/// its head can be pulled to make it higher. Escape closes it.
class HelpPane : public QFrame {
    Q_OBJECT

public:
    HelpPane(ScriptEditor& editor, CommandSet& commands, QWidget* parent);

    /// Of the call at the caret, else of the one around it; without one, the manual.
    void ShowCall();
    void ShowManual();
    void ShowKeys();
    void Close();

Q_SIGNALS:
    void Closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void AddCommands(CommandSet& commands);
    void AddButton(QHBoxLayout& head, const QString& text, void (HelpPane::*page)());
    void Open();
    void SetHeight(int pixels);

    ScriptEditor& m_editor;
    ManualBrowser* m_browser;
};

} // namespace documents
