// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/forms/WindowTimers.h"

#include "platform/forms/Handler.h"
#include "platform/forms/WindowMessages.h"

#include <QObject>
#include <QScopedValueRollback>
#include <QTimer>
#include <chrono>
#include <map>
#include <utility>

namespace platform {
namespace {

qint32 Milliseconds() {
    using namespace std::chrono;
    const auto now = steady_clock::now().time_since_epoch();
    return static_cast<qint32>(duration_cast<milliseconds>(now).count());
}

// Lives at least until its own call returns.
class WindowTimer : public QObject, public std::enable_shared_from_this<WindowTimer> {
public:
    WindowTimer(const WindowHandle& window, quintptr id, int milliseconds, PlainProc procedure)
        : m_window(window.Number()), m_id(id), m_procedure(std::move(procedure)) {
        connect(&m_timer, &QTimer::timeout, this, &WindowTimer::Tick);
        connect(&window, &WindowHandle::Ended, this, [this] { KillTimer(m_window, m_id); });
        m_timer.start(milliseconds);
    }
    void Stop() { m_timer.stop(); }

private:
    void Tick();

    HWnd m_window;
    quintptr m_id;
    PlainProc m_procedure;
    QTimer m_timer;
    bool m_running = false;
};

void WindowTimer::Tick() {
    if (m_running)
        return;
    const std::shared_ptr<WindowTimer> alive = shared_from_this();
    const QScopedValueRollback running(m_running, true);
    const qint32 values[] = {static_cast<qint32>(m_window), static_cast<qint32>(WM_TIMER),
                             static_cast<qint32>(m_id), Milliseconds()};
    RunHandler([&] {
        if (m_procedure)
            (*m_procedure)(values);
        else
            SendMessage(m_window, WM_TIMER, values[2]);
    });
}

using TimerKey = std::pair<HWnd, quintptr>;

std::map<TimerKey, std::shared_ptr<WindowTimer>>& Timers() {
    static std::map<TimerKey, std::shared_ptr<WindowTimer>> timers;
    return timers;
}

} // namespace

bool SetTimer(HWnd window, quintptr id, int milliseconds, PlainProc procedure) {
    const auto found = FindHandle(window);
    if (!found)
        return false;
    KillTimer(window, id);
    // deleteLater, since a timer may be killed from within its own timeout.
    Timers()[{window, id}] = {new WindowTimer(*found, id, milliseconds, std::move(procedure)),
                              [](WindowTimer* timer) { timer->deleteLater(); }};
    return true;
}

bool KillTimer(HWnd window, quintptr id) {
    const auto timer = Timers().find({window, id});
    if (timer == Timers().end())
        return false;
    timer->second->Stop();
    Timers().erase(timer);
    return true;
}

} // namespace platform
