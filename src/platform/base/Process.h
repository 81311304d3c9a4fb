// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/base/Seam.h"

#include <functional>

namespace platform {

/// Gives a process without HOME the home folder of its user. Call before anything else.
void FindHome();

/// Ends the process at once: no window closes, nothing is asked, nothing is cleaned up.
void EndProcess();
Seam<std::function<void()>>& EndProcessSeam();

} // namespace platform
