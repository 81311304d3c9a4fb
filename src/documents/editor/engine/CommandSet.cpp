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
    connect(m_menu, &QMenu::aboutToShow, this, &CommandSet::ShowState);
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

QAction* CommandSet::MakeAction(const Command& command) {
    auto* action = new QAction(command.text, &m_control);
    for (const QKeySequence& key : command.keys)
        FreeKey(key);
    action->setShortcuts(command.keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this,
            [run = command.run] { platform::RunHandler([&] { run(); }); });
    m_control.addAction(action);
    if (command.isOn) {
        action->setCheckable(true);
        m_switches.push_back({action, command.isOn});
    }
    return action;
}

QAction* CommandSet::Add(Menu menu, Command command) {
    QAction* action = MakeAction(command);
    MenuOf(menu).addAction(action);
    return action;
}

void CommandSet::AddSeparator(Menu menu) {
    MenuOf(menu).addSeparator();
}

void CommandSet::AddSubmenu(Menu menu, const QString& text, std::vector<Command> commands) {
    QMenu* submenu = MenuOf(menu).addMenu(text);
    for (const Command& command : commands)
        submenu->addAction(MakeAction(command));
}

void CommandSet::ShowState() {
    for (const Switch& one : m_switches)
        one.action->setChecked(one.isOn());
}

void CommandSet::Open(const QPoint& place) {
    if (m_menu->actions().isEmpty() ||
        m_menu->actions().constLast() != m_menus.back()->menuAction()) {
        m_menu->addSeparator();
        for (auto submenu = m_menus.begin() + 1; submenu != m_menus.end(); ++submenu) {
            if (!(*submenu)->isEmpty())
                m_menu->addMenu(*submenu);
        }
    }
    m_menu->popup(place);
}

} // namespace documents
