// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>

namespace platform {

/// Waits, and lets nothing else run meanwhile.
void Sleep(int milliseconds);
/// Puts another wait in its place, for a test. An empty function restores it.
void ReplaceSleep(std::function<void(int milliseconds)> sleep);

/// Milliseconds on a clock that only goes forward.
int64_t Now();
/// Puts another clock in its place, for a test. An empty function restores it.
void ReplaceNow(std::function<int64_t()> now);

} // namespace platform
