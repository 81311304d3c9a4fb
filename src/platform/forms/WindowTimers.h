// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms/WindowHandles.h"

#include <functional>
#include <memory>
#include <span>

namespace platform {

/// A plain procedure of as many values as its maker says. It may be let go while it runs.
using PlainProcedure = std::function<qint32(std::span<const qint32> values)>;
using PlainProc = std::shared_ptr<const PlainProcedure>;

/// Calls with window, WM_TIMER, id and the milliseconds of the clock, again and again until
/// KillTimer or the window's end, but never while a call of this timer runs. Without a procedure
/// the window gets the message. The same id again starts anew. False if there is no such window
/// here.
bool SetTimer(HWnd window, quintptr id, int milliseconds, PlainProc procedure);
bool KillTimer(HWnd window, quintptr id);

} // namespace platform
