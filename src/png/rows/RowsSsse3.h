// SPDX-License-Identifier: GPL-3.0-or-later
// What vector instructions do faster; only for machines that have SSSE3. Built for another kind of
// machine each does nothing and says so.
#pragma once

#include "png/rows/Unfilter.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace png {

/// Undoes a filter. Answers false, with the row as it was, if it can't for this filter and
/// distance.
bool UnfilterRowSsse3(FilterType type, Row row, PreviousRow previous, size_t distance);

/// Swaps bytes 0 and 2 of each 3, from the beginning on. Answers how many bytes are done, a
/// multiple of 3; the rest is as it was.
size_t SwapRedBlue24Ssse3(std::span<uint8_t> pixels);

} // namespace png
