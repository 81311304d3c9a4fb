// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/forms/WindowMessages.h"

#include "platform/forms/Handler.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QScopedValueRollback>
#include <QThread>
#include <QTimer>
#include <cerrno>
#include <chrono>
#include <map>
#include <unordered_map>
#include <utility>

namespace platform {
namespace {

constexpr HWnd kForeign = 1U << 31;
constexpr qint32 kClientArea = 1; // what WM_NCHITTEST is answered with

constexpr std::pair<Qt::MouseButton, qint32> kButtonFlags[] = {
    {Qt::LeftButton, 1}, {Qt::RightButton, 2}, {Qt::MiddleButton, 16}};
constexpr std::pair<Qt::KeyboardModifier, qint32> kKeyFlags[] = {{Qt::ShiftModifier, 4},
                                                                 {Qt::ControlModifier, 8}};

qint32 FlagsOf(const QMouseEvent& event) {
    qint32 flags = 0;
    for (const auto& [button, flag] : kButtonFlags)
        flags |= event.buttons().testFlag(button) ? flag : 0;
    for (const auto& [key, flag] : kKeyFlags)
        flags |= event.modifiers().testFlag(key) ? flag : 0;
    return flags;
}

qint32 Milliseconds() {
    using namespace std::chrono;
    const auto now = steady_clock::now().time_since_epoch();
    return static_cast<qint32>(duration_cast<milliseconds>(now).count());
}

class DefaultProcedure : public WindowProcedure {
public:
    qint32 Call(HWnd window, quint32 message, qint32 wParam, qint32 lParam) override;
};

const WindowProc& Default() {
    static const WindowProc procedure = std::make_shared<DefaultProcedure>();
    return procedure;
}

// Lives at least until its own call returns.
class WindowTimer : public QObject, public std::enable_shared_from_this<WindowTimer> {
public:
    WindowTimer(HWnd window, quintptr id, int milliseconds, PlainProc procedure)
        : m_window(window), m_id(id), m_procedure(std::move(procedure)) {
        connect(&m_timer, &QTimer::timeout, this, &WindowTimer::Tick);
        m_timer.start(milliseconds);
    }
    void Stop() { m_timer.stop(); }

private:
    void Tick() {
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

    HWnd m_window;
    quintptr m_id;
    PlainProc m_procedure;
    QTimer m_timer;
    bool m_running = false;
};

// A window that has a handle. It outlives its widget while a message is under way.
class Window : public QObject, public std::enable_shared_from_this<Window> {
public:
    Window(HWnd handle, QWidget* widget) : m_handle(handle), m_widget(widget) {
        connect(widget, &QObject::destroyed, this, [this] { End(); });
    }

    QWidget* Widget() const { return m_widget; }
    const WindowProc& Procedure() const { return m_procedure; }
    WindowProc Procedure(WindowProc procedure);
    qint32 Dispatch(QEvent* event, quint32 message, qint32 wParam, qint32 lParam);
    qint32 OwnHandling(quint32 message, qint32 wParam, qint32 lParam);
    QRect BeginPaint();
    void StartTimer(quintptr id, int milliseconds, PlainProc procedure);
    bool EndTimer(quintptr id);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // A message under way. The innermost one is that which the default procedure gets.
    struct Call {
        quint32 message;
        QEvent* event; ///< null if the message was sent
        bool spent;    ///< nothing is left of the event for the widget
        Call* outer;
    };

    bool IsUntracked(const QEvent& event) const;
    void MouseMessage(QMouseEvent& event, quint32 message);
    void HandBack(QEvent& event);
    void HandOver(quint32 message, qint32 wParam, QPoint place);
    void End();

    HWnd m_handle;
    QWidget* m_widget;
    WindowProc m_procedure = Default();
    Call* m_call = nullptr;
    QEvent* m_handedBack = nullptr;
    bool m_ending = false;
    bool m_hadTracking = false;
    std::map<quintptr, std::shared_ptr<WindowTimer>> m_timers;
};

struct Registry {
    std::unordered_map<HWnd, std::shared_ptr<Window>> windows;
    std::unordered_map<const QWidget*, HWnd> handles;
    HWnd last = 0;
};

Registry& Windows() {
    static Registry registry;
    return registry;
}

std::shared_ptr<Window> Find(HWnd handle) {
    const auto found = Windows().windows.find(handle);
    return found == Windows().windows.end() ? nullptr : found->second;
}

qint32 DefaultProcedure::Call(HWnd handle, quint32 message, qint32 wParam, qint32 lParam) {
    const std::shared_ptr<Window> window = Find(handle);
    return window ? window->OwnHandling(message, wParam, lParam) : 0;
}

WindowProc Window::Procedure(WindowProc procedure) {
    const bool watched = m_procedure != Default();
    const bool watch = procedure != Default();
    if (m_ending || watch == watched)
        return std::exchange(m_procedure, std::move(procedure));
    if (watch) {
        m_widget->installEventFilter(this); // the last one installed is the first one asked
        m_hadTracking = m_widget->hasMouseTracking();
        m_widget->setMouseTracking(true);
    } else {
        m_widget->removeEventFilter(this);
        m_widget->setMouseTracking(m_hadTracking);
    }
    return std::exchange(m_procedure, std::move(procedure));
}

qint32 Window::Dispatch(QEvent* event, quint32 message, qint32 wParam, qint32 lParam) {
    const std::shared_ptr<Window> alive = shared_from_this();
    const WindowProc procedure = m_procedure;
    Call call{message, event, event && IsUntracked(*event), m_call};
    const QScopedValueRollback innermost(m_call, &call);
    return procedure->Call(m_handle, message, wParam, lParam);
}

qint32 Window::OwnHandling(quint32 message, qint32 wParam, qint32 lParam) {
    if (message == WM_NCHITTEST)
        return kClientArea;
    if (m_ending)
        return 0;
    const bool fromEvent = m_call && m_call->event && m_call->message == message;
    if (fromEvent && !m_call->spent) {
        m_call->spent = message == WM_PAINT;
        HandBack(*m_call->event);
    } else if (!fromEvent && message == WM_PAINT)
        m_widget->update();
    else if (!fromEvent && message >= WM_MOUSEMOVE && message <= WM_LBUTTONUP)
        HandOver(message, wParam, PointOf(lParam));
    return 0;
}

// Whether the widget wouldn't have got the event if nobody watched it.
bool Window::IsUntracked(const QEvent& event) const {
    return event.type() == QEvent::MouseMove && !m_hadTracking &&
           static_cast<const QMouseEvent&>(event).buttons() == Qt::NoButton;
}

// By the ordinary way, so that the filters behind this one see the event too.
void Window::HandBack(QEvent& event) {
    const QScopedValueRollback<QEvent*> pass(m_handedBack, &event);
    QCoreApplication::sendEvent(m_widget, &event);
}

void Window::HandOver(quint32 message, qint32 wParam, QPoint place) {
    Qt::MouseButtons buttons;
    for (const auto& [button, flag] : kButtonFlags)
        buttons.setFlag(button, wParam & flag);
    Qt::KeyboardModifiers keys;
    for (const auto& [key, flag] : kKeyFlags)
        keys.setFlag(key, wParam & flag);
    const bool move = message == WM_MOUSEMOVE;
    const QEvent::Type type = move                        ? QEvent::MouseMove
                              : message == WM_LBUTTONDOWN ? QEvent::MouseButtonPress
                                                          : QEvent::MouseButtonRelease;
    QMouseEvent event(type, place, m_widget->mapToGlobal(place),
                      move ? Qt::NoButton : Qt::LeftButton, buttons, keys);
    HandBack(event);
}

bool Window::eventFilter(QObject*, QEvent* event) {
    const bool disabled = event->isPointerEvent() && !m_widget->isEnabled();
    if (event == m_handedBack || m_ending || disabled)
        return false;
    const std::shared_ptr<Window> alive = shared_from_this();
    switch (event->type()) {
    case QEvent::Paint:
        Dispatch(event, WM_PAINT, 0, 0);
        break;
    case QEvent::MouseMove:
        MouseMessage(*static_cast<QMouseEvent*>(event), WM_MOUSEMOVE);
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease: {
        auto& mouse = *static_cast<QMouseEvent*>(event);
        if (mouse.button() != Qt::LeftButton)
            return false;
        const bool press = event->type() == QEvent::MouseButtonPress;
        MouseMessage(mouse, press ? WM_LBUTTONDOWN : WM_LBUTTONUP);
        break;
    }
    default:
        return false;
    }
    event->accept(); // if the widget didn't want it, its parents were asked already
    return true;
}

void Window::MouseMessage(QMouseEvent& event, quint32 message) {
    Dispatch(nullptr, WM_NCHITTEST, 0, MakeLParam(event.globalPosition().toPoint()));
    if (!m_ending)
        Dispatch(&event, message, FlagsOf(event), MakeLParam(event.position().toPoint()));
}

// The widget is still one, with its children, but no longer of its own class.
void Window::End() {
    const std::shared_ptr<Window> alive = shared_from_this();
    m_ending = true;
    Dispatch(nullptr, WM_DESTROY, 0, 0);
    Windows().handles.erase(m_widget);
    m_widget = nullptr;
    Windows().windows.erase(m_handle);
    for (const auto& [id, timer] : m_timers)
        timer->Stop();
    m_timers.clear();
}

QRect Window::BeginPaint() {
    for (Call* call = m_call; call; call = call->outer) {
        if (call->event && call->message == WM_PAINT) {
            call->spent = true;
            return static_cast<QPaintEvent*>(call->event)->rect();
        }
    }
    return {};
}

void Window::StartTimer(quintptr id, int milliseconds, PlainProc procedure) {
    EndTimer(id);
    // Its last reference may go while its own event is under way.
    m_timers[id] = {new WindowTimer(m_handle, id, milliseconds, std::move(procedure)),
                    [](WindowTimer* timer) { timer->deleteLater(); }};
}

bool Window::EndTimer(quintptr id) {
    const auto timer = m_timers.find(id);
    if (timer == m_timers.end())
        return false;
    timer->second->Stop();
    m_timers.erase(timer);
    return true;
}

} // namespace

HWnd HandleOf(QWidget* widget) {
    if (!widget)
        return 0;
    Registry& registry = Windows();
    HWnd& handle = registry.handles[widget];
    if (handle == 0) {
        handle = ++registry.last;
        registry.windows[handle] = std::make_shared<Window>(handle, widget);
    }
    return handle;
}

HWnd HandleOfNative(WId native) {
    QWidget* widget = QWidget::find(native);
    return widget || native == 0 ? HandleOf(widget) : static_cast<HWnd>(native) | kForeign;
}

QWidget* WidgetOf(HWnd window) {
    const auto found = Find(window);
    return found ? found->Widget() : nullptr;
}

bool IsWindow(HWnd window) {
    return IsForeign(window) || Find(window);
}

bool IsForeign(HWnd window) {
    return window & kForeign;
}

WindowProc GetWindowProc(HWnd window) {
    const auto found = Find(window);
    return found ? found->Procedure() : nullptr;
}

WindowProc SetWindowProc(HWnd window, WindowProc procedure) {
    const auto found = Find(window);
    if (!found || found->thread() != QThread::currentThread()) {
        errno = found ? EPERM : EINVAL;
        return nullptr;
    }
    return found->Procedure(std::move(procedure));
}

qint32 SendMessage(HWnd window, quint32 message, qint32 wParam, qint32 lParam) {
    const auto found = Find(window);
    return found ? found->Dispatch(nullptr, message, wParam, lParam) : 0;
}

QRect BeginPaint(HWnd window) {
    const auto found = Find(window);
    return found ? found->BeginPaint() : QRect();
}

qint32 MakeLParam(QPoint point) {
    const auto x = static_cast<quint16>(point.x());
    const auto y = static_cast<quint16>(point.y());
    return static_cast<qint32>(static_cast<quint32>(y) << 16 | x);
}

QPoint PointOf(qint32 lParam) {
    return {static_cast<qint16>(lParam), static_cast<qint16>(lParam >> 16)};
}

bool SetTimer(HWnd window, quintptr id, int milliseconds, PlainProc procedure) {
    const auto found = Find(window);
    if (found)
        found->StartTimer(id, milliseconds, std::move(procedure));
    return found != nullptr;
}

bool KillTimer(HWnd window, quintptr id) {
    const auto found = Find(window);
    return found && found->EndTimer(id);
}

} // namespace platform
