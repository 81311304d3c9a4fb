// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace platform {

/// Runs the handler; an exception goes to the log, not to the user. True if there was none.
bool RunSilently(const std::function<void()>& handler);

} // namespace platform
