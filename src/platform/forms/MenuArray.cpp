// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/forms/MenuArray.h"

#include "platform/forms/Handler.h"

#include <utility>

namespace platform {

MenuArray::MenuArray(QMenu* menu, QAction* first, std::function<void(int)> click)
    : m_menu(menu), m_click(std::move(click)) {
    Attach(first);
}

void MenuArray::Load() {
    Attach(m_menu->addAction(QString()));
}

void MenuArray::Attach(QAction* entry) {
    m_entries.push_back(entry);
    QObject::connect(entry, &QAction::triggered, m_menu,
                     [click = m_click, index = Count()] { RunHandler([&] { click(index); }); });
}

} // namespace platform
