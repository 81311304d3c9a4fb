// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>
#include <QMenu>
#include <functional>
#include <vector>

namespace platform {

/// A menu entry that further entries can be loaded beside, all with one handler; indices start
/// at 1.
class MenuArray {
public:
    /// `first` is the design entry and already stands in the menu.
    MenuArray(QMenu* menu, QAction* first, std::function<void(int index)> click);

    int Count() const { return static_cast<int>(m_entries.size()); }
    QAction& operator()(int index) { return *m_entries.at(static_cast<size_t>(index - 1)); }
    /// Adds the next entry, with an empty caption, at the end of the menu.
    void Load();

private:
    void Attach(QAction* entry);

    QMenu* m_menu;
    std::function<void(int)> m_click;
    std::vector<QAction*> m_entries;
};

} // namespace platform
