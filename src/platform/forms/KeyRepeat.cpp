// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/forms/KeyRepeat.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>

namespace platform {

KeyRepeat::KeyRepeat() {
    QCoreApplication::instance()->installEventFilter(this);
}

// Release and press of a repeat bear the same time, those of a finger never do.
bool KeyRepeat::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyRelease) {
        const auto* key = static_cast<const QKeyEvent*>(event);
        m_released = key->key();
        m_when = key->timestamp();
    } else if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<const QKeyEvent*>(event);
        m_repeats = key->isAutoRepeat() || (key->key() == m_released && key->timestamp() == m_when);
    } else if (event->type() == QEvent::Shortcut) {
        const auto* action = qobject_cast<const QAction*>(object);
        return action && !action->autoRepeat() && m_repeats;
    }
    return false;
}

} // namespace platform
