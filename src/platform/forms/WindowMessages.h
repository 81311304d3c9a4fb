// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms/WindowHandles.h"

#include <QPoint>
#include <QRect>
#include <memory>

namespace platform {

inline constexpr quint32 WM_NULL = 0;
inline constexpr quint32 WM_DESTROY = 2;
inline constexpr quint32 WM_PAINT = 15;
inline constexpr quint32 WM_NCHITTEST = 132; ///< ahead of each mouse message; lParam: on the screen
inline constexpr quint32 WM_TIMER = 275;
inline constexpr quint32 WM_MOUSEMOVE = 512;
inline constexpr quint32 WM_LBUTTONDOWN = 513;
inline constexpr quint32 WM_LBUTTONUP = 514;

/// What gets the messages of a window. While its procedure isn't the default one, the window's
/// events that have a number above arrive as messages, and it is told every move of the mouse; a
/// disabled window gets none of the mouse.
class WindowProcedure {
public:
    virtual ~WindowProcedure() = default;
    /// Lives at least until the call returns, even if it is replaced or its window ends meanwhile.
    virtual qint32 Call(HWnd window, quint32 message, qint32 wParam, qint32 lParam) = 0;
};
using WindowProc = std::shared_ptr<WindowProcedure>;

/// Null if there is no such window here.
WindowProc GetWindowProc(HWnd window);
/// Answers the former procedure, or null and `errno` if the window isn't one of this process and of
/// this thread.
WindowProc SetWindowProc(HWnd window, WindowProc procedure);

/// The result of the window's procedure; 0 without a window. The default procedure gives an event
/// back to the widget, takes a mouse message without one for an event, and has a WM_PAINT without
/// one painted later.
qint32 SendMessage(HWnd window, quint32 message, qint32 wParam = 0, qint32 lParam = 0);

/// Within WM_PAINT: the rectangle to paint. After that nothing is left for the widget's own
/// painting. Empty at other times.
QRect BeginPaint(HWnd window);

qint32 MakeLParam(QPoint point);
QPoint PointOf(qint32 lParam);

} // namespace platform
