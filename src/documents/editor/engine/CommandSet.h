// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeySequence>
#include <QList>
#include <QObject>
#include <QString>
#include <functional>
#include <vector>

class QAction;
class QMenu;
class QPoint;
class QWidget;

namespace documents {

class ScriptEditor;

/// Where a command stands in the context menu: the first at its top, the others in a submenu.
enum class Menu { Edit, Find, Lines, Go, View, Help };

struct Command {
    QString text;
    QList<QKeySequence> keys; ///< the first is shown; none for a command of the menu only
    std::function<void()> run;
    std::function<bool()> isOn = {}; ///< of a switch: what its tick shows
};

/// The editor's own commands: their keys, which work wherever the focus is in the control, and its
/// context menu. A failure of a command is shown and ends nothing.
class CommandSet : public QObject {
    Q_OBJECT

public:
    /// `control` holds the editor and what stands around it.
    CommandSet(ScriptEditor& editor, QWidget& control);

    /// Takes the command's keys from the engine.
    QAction* Add(Menu menu, const Command& command);
    void AddSeparator(Menu menu);
    /// The commands have no keys; they are asked for each time the submenu opens.
    void AddSubmenu(Menu menu, const QString& text,
                    const std::function<std::vector<Command>()>& commands);
    /// Opens the context menu at a place of the screen.
    void Open(const QPoint& place);

private:
    QAction* AddTo(QMenu& menu, const Command& command);
    void FreeKey(const QKeySequence& key);
    QMenu& MenuOf(Menu menu);
    void AddSubmenus();

    ScriptEditor& m_editor;
    QWidget& m_control;
    QMenu* m_menu;
    std::vector<QMenu*> m_menus;
    bool m_menusAdded = false;
};

} // namespace documents
