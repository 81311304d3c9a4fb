// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/base/Seam.h"

#include <cstdint>
#include <functional>

namespace platform {

/// Blocks the calling thread; no events are handled meanwhile.
void Sleep(int milliseconds);
Seam<std::function<void(int milliseconds)>>& SleepSeam();

/// Milliseconds on a monotonic clock.
int64_t Now();
Seam<std::function<int64_t()>>& NowSeam();

} // namespace platform
