// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/forms/WindowHandles.h"

#include <unordered_map>

namespace platform {
namespace {

constexpr HWnd kForeign = 1U << 31;

struct Registry {
    std::unordered_map<HWnd, std::shared_ptr<WindowHandle>> windows;
    std::unordered_map<const QWidget*, HWnd> numbers;
    HWnd last = 0;
};

Registry& Windows() {
    static Registry registry;
    return registry;
}

} // namespace

WindowHandle::WindowHandle(HWnd number, QWidget* widget) : m_number(number), m_widget(widget) {
    connect(widget, &QObject::destroyed, this, &WindowHandle::End);
}

void WindowHandle::End() {
    const std::shared_ptr<WindowHandle> alive = shared_from_this();
    Q_EMIT Ending();
    Windows().numbers.erase(m_widget);
    Windows().windows.erase(m_number);
    m_widget = nullptr;
    Q_EMIT Ended();
}

std::shared_ptr<WindowHandle> FindHandle(HWnd window) {
    const auto found = Windows().windows.find(window);
    return found == Windows().windows.end() ? nullptr : found->second;
}

HWnd HandleOf(QWidget* widget) {
    if (!widget)
        return 0;
    Registry& registry = Windows();
    HWnd& number = registry.numbers[widget];
    if (number == 0) {
        number = ++registry.last;
        registry.windows[number] = std::make_shared<WindowHandle>(number, widget);
    }
    return number;
}

HWnd HandleOfNative(WId native) {
    QWidget* widget = QWidget::find(native);
    return widget || native == 0 ? HandleOf(widget) : static_cast<HWnd>(native) | kForeign;
}

QWidget* WidgetOf(HWnd window) {
    const auto found = FindHandle(window);
    return found ? found->Widget() : nullptr;
}

bool IsWindow(HWnd window) {
    return IsForeign(window) || FindHandle(window);
}

bool IsForeign(HWnd window) {
    return window & kForeign;
}

} // namespace platform
