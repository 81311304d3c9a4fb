// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>

namespace platform {

/// The desktop's font in the largest size whose lines are at most so many logical pixels high.
QFont FontOfHeight(int pixels);

} // namespace platform
