// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QWidget>
#include <memory>

namespace platform {

/// A window by number. A number is never given a second time; 0 is no window.
using HWnd = quint32;

/// Lives as long as the widget. 0 for no widget.
HWnd HandleOf(QWidget* widget);
/// The handle for a native window, which may be another program's.
HWnd HandleOfNative(WId native);
/// Null if the window isn't one of this process.
QWidget* WidgetOf(HWnd window);

bool IsWindow(HWnd window);
/// Whether the window belongs to another process; such a window is taken to be there.
bool IsForeign(HWnd window);

/// A window of this process that has a number, and how it ends.
class WindowHandle : public QObject, public std::enable_shared_from_this<WindowHandle> {
    Q_OBJECT

public:
    WindowHandle(HWnd number, QWidget* widget);

    HWnd Number() const { return m_number; }
    /// Null once the window has ended.
    QWidget* Widget() const { return m_widget; }

Q_SIGNALS:
    /// The number still leads to the widget, which is destroyed: it is a QWidget with its children
    /// yet, but no longer of its own class.
    void Ending();
    /// The number leads nowhere now.
    void Ended();

private:
    void End();

    HWnd m_number;
    QWidget* m_widget;
};

/// Null if the window isn't one of this process.
std::shared_ptr<WindowHandle> FindHandle(HWnd window);

} // namespace platform
