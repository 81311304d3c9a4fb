// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>

namespace core {

/// The nearest whole number; a half goes to the even neighbour. The value must fit an int.
inline int RoundHalfEven(double value) {
    return static_cast<int>(std::nearbyint(value));
}

} // namespace core
