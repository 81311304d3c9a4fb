// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>

namespace core {

/// The nearest whole number; a half goes to the even neighbour.
inline double RoundHalfEven(double value) {
    return std::nearbyint(value);
}

} // namespace core
