// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/engine/CommandSet.h"

#include "documents/editor/engine/ScriptEditor.h"
#include "platform/forms/Handler.h"

#include <QAction>
#include <QMenu>
#include <Qsci/qscicommand.h>
#include <Qsci/qscicommandset.h>
#include <array>

namespace documents {
namespace {

// In the order of Menu; Menu::Edit is the context menu itself.
constexpr std::array kSubmenus = {u"&Buscar", u"&Líneas", u"&Ir a", u"&Ver", u"&Ayuda"};

} // namespace

CommandSet::CommandSet(ScriptEditor& editor, QWidget& control)
    : QObject(&control), m_editor(editor), m_control(control), m_menu(new QMenu(&control)) {
    m_menus.push_back(m_menu);
    for (const char16_t* text : kSubmenus)
        m_menus.push_back(new QMenu(QString::fromUtf16(text), m_menu));
    connect(&editor, &ScriptEditor::MenuWanted, this, &CommandSet::Open);
}

QMenu& CommandSet::MenuOf(Menu menu) {
    return *m_menus.at(static_cast<size_t>(menu));
}

void CommandSet::FreeKey(const QKeySequence& key) {
    const int combined = key[0].toCombined();
    for (QsciCommand* command : m_editor.standardCommands()->commands()) {
        if (command->key() == combined)
            command->setKey(0);
        if (command->alternateKey() == combined)
            command->setAlternateKey(0);
    }
}

QAction* CommandSet::AddTo(QMenu& menu, const Command& command) {
    QAction* action = menu.addAction(command.text);
    action->setShortcuts(command.keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setShortcutVisibleInContextMenu(true);
    connect(action, &QAction::triggered, this,
            [run = command.run] { platform::RunHandler([&] { run(); }); });
    if (command.isOn) {
        action->setCheckable(true);
        connect(&menu, &QMenu::aboutToShow, action,
                [action, isOn = command.isOn] { action->setChecked(isOn()); });
    }
    return action;
}

QAction* CommandSet::Add(Menu menu, const Command& command) {
    for (const QKeySequence& key : command.keys)
        FreeKey(key);
    QAction* action = AddTo(MenuOf(menu), command);
    m_control.addAction(action);
    return action;
}

void CommandSet::AddSeparator(Menu menu) {
    MenuOf(menu).addSeparator();
}

void CommandSet::AddSubmenu(Menu menu, const QString& text,
                            const std::function<std::vector<Command>()>& commands) {
    QMenu* submenu = MenuOf(menu).addMenu(text);
    connect(submenu, &QMenu::aboutToShow, this, [this, submenu, commands] {
        submenu->clear();
        for (const Command& command : commands())
            AddTo(*submenu, command)->setChecked(command.isOn && command.isOn());
    });
}

void CommandSet::AddSubmenus() {
    m_menu->addSeparator();
    for (auto submenu = m_menus.begin() + 1; submenu != m_menus.end(); ++submenu) {
        if (!(*submenu)->isEmpty())
            m_menu->addMenu(*submenu);
    }
    m_menusAdded = true;
}

void CommandSet::Open(const QPoint& place) {
    if (!m_menusAdded)
        AddSubmenus();
    m_menu->popup(place);
}

} // namespace documents
