// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace platform {

/// Runs what says nothing of its failures; they go to the log. Answers whether it ran to its end.
bool RunSilently(const std::function<void()>& handler);

} // namespace platform
