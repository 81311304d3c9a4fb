// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/forms/WindowMessages.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMouseEvent>
#include <QObject>
#include <QPaintEvent>
#include <QScopedValueRollback>
#include <QThread>
#include <QWidget>
#include <cerrno>
#include <unordered_map>
#include <utility>

namespace platform {
namespace {

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

class DefaultProcedure : public WindowProcedure {
public:
    qint32 Call(HWnd window, quint32 message, qint32 wParam, qint32 lParam) override;
};

const WindowProc& Default() {
    static const WindowProc procedure = std::make_shared<DefaultProcedure>();
    return procedure;
}

// Turns a window's events into messages for its procedure, and the messages that are left to the
// window into events. It outlives its widget while a message is under way.
class Translator : public QObject, public std::enable_shared_from_this<Translator> {
public:
    explicit Translator(const WindowHandle& window)
        : m_handle(window.Number()), m_widget(window.Widget()) {
        connect(&window, &WindowHandle::Ending, this, &Translator::End);
    }

    const WindowProc& Procedure() const { return m_procedure; }
    WindowProc Procedure(WindowProc procedure);
    qint32 Dispatch(QEvent* event, quint32 message, qint32 wParam, qint32 lParam);
    qint32 OwnHandling(quint32 message, qint32 wParam, qint32 lParam);
    QRect BeginPaint();

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
};

std::unordered_map<HWnd, std::shared_ptr<Translator>>& Translators() {
    static std::unordered_map<HWnd, std::shared_ptr<Translator>> translators;
    return translators;
}

// Null if the window isn't one of this process.
std::shared_ptr<Translator> Find(HWnd window) {
    const auto known = Translators().find(window);
    if (known != Translators().end())
        return known->second;
    const auto handle = FindHandle(window);
    return handle ? Translators()[window] = std::make_shared<Translator>(*handle) : nullptr;
}

qint32 DefaultProcedure::Call(HWnd handle, quint32 message, qint32 wParam, qint32 lParam) {
    const std::shared_ptr<Translator> window = Find(handle);
    return window ? window->OwnHandling(message, wParam, lParam) : 0;
}

WindowProc Translator::Procedure(WindowProc procedure) {
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

qint32 Translator::Dispatch(QEvent* event, quint32 message, qint32 wParam, qint32 lParam) {
    const std::shared_ptr<Translator> alive = shared_from_this();
    const WindowProc procedure = m_procedure;
    Call call{message, event, event && IsUntracked(*event), m_call};
    const QScopedValueRollback innermost(m_call, &call);
    return procedure->Call(m_handle, message, wParam, lParam);
}

qint32 Translator::OwnHandling(quint32 message, qint32 wParam, qint32 lParam) {
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

// Whether the widget gets the event only because SetWindowProc has switched mouse tracking on.
bool Translator::IsUntracked(const QEvent& event) const {
    return event.type() == QEvent::MouseMove && !m_hadTracking &&
           static_cast<const QMouseEvent&>(event).buttons() == Qt::NoButton;
}

// Through QCoreApplication, so that the filters behind this one see the event too.
void Translator::HandBack(QEvent& event) {
    const QScopedValueRollback<QEvent*> pass(m_handedBack, &event);
    QCoreApplication::sendEvent(m_widget, &event);
}

void Translator::HandOver(quint32 message, qint32 wParam, QPoint place) {
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

bool Translator::eventFilter(QObject*, QEvent* event) {
    const bool disabled = event->isPointerEvent() && !m_widget->isEnabled();
    if (event == m_handedBack || m_ending || disabled)
        return false;
    const std::shared_ptr<Translator> alive = shared_from_this();
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

void Translator::MouseMessage(QMouseEvent& event, quint32 message) {
    Dispatch(nullptr, WM_NCHITTEST, 0, MakeLParam(event.globalPosition().toPoint()));
    if (!m_ending)
        Dispatch(&event, message, FlagsOf(event), MakeLParam(event.position().toPoint()));
}

void Translator::End() {
    const std::shared_ptr<Translator> alive = shared_from_this();
    m_ending = true;
    Dispatch(nullptr, WM_DESTROY, 0, 0);
    Translators().erase(m_handle);
}

QRect Translator::BeginPaint() {
    for (Call* call = m_call; call; call = call->outer) {
        if (call->event && call->message == WM_PAINT) {
            call->spent = true;
            return static_cast<QPaintEvent*>(call->event)->rect();
        }
    }
    return {};
}

} // namespace

WindowProc GetWindowProc(HWnd window) {
    const auto found = Find(window);
    return found ? found->Procedure() : nullptr;
}

WindowProc SetWindowProc(HWnd window, WindowProc procedure) {
    const auto handle = FindHandle(window);
    if (!handle || handle->thread() != QThread::currentThread()) {
        errno = handle ? EPERM : EINVAL;
        return nullptr;
    }
    return Find(window)->Procedure(std::move(procedure));
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

} // namespace platform
