// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/Unfilter.h"

namespace png {

/// Undoes a filter with the machine's vector instructions. Answers false, with the row as it was,
/// if there are none for this filter and distance.
bool UnfilterRowSimd(uint8_t type, Row row, PreviousRow previous, size_t distance);

} // namespace png
