// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms/Handler.h"

#include <QScopedValueRollback>
#include <QTimer>

namespace platform {

/// A window's timer: calls the owner's handler again and again while it is enabled, but never while
/// that handler still runs. It is a QTimer among the owner's children, in the order of the fields.
class Timer {
public:
    template<class Owner>
    Timer(Owner* owner, void (Owner::*tick)()) : m_timer(owner) {
        QObject::connect(&m_timer, &QTimer::timeout, owner, [this, owner, tick] {
            if (m_running)
                return;
            const QScopedValueRollback running(m_running, true);
            RunHandler([&] { (owner->*tick)(); });
        });
    }

    void Interval(int milliseconds) { m_timer.setInterval(milliseconds); }
    int Interval() const { return m_timer.interval(); }
    void Enabled(bool enabled) { enabled ? m_timer.start() : m_timer.stop(); }
    bool Enabled() const { return m_timer.isActive(); }

private:
    QTimer m_timer;
    bool m_running = false;
};

} // namespace platform
