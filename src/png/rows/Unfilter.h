// SPDX-License-Identifier: GPL-3.0-or-later
// The filters of PNG, undone (PNG standard, https://www.w3.org/TR/png-3/#9Filter-types).
// `distance` is that of the left neighbour in bytes; what lies left of a row is 0.
#pragma once

#include "png/format/Bytes.h"
#include "png/format/Header.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace png {

/// The byte before a stored row; a file may hold any other value, too.
enum class FilterType : uint8_t { None = 0, Sub = 1, Up = 2, Average = 3, Paeth = 4 };

using Row = std::span<uint8_t>;
/// At least as long as the row below it.
using PreviousRow = std::span<const uint8_t>;

void FilterSub(Row row, size_t distance);
void FilterUp(Row row, PreviousRow previous);
void FilterAverage(Row row, PreviousRow previous, size_t distance);
void FilterPaeth(Row row, PreviousRow previous, size_t distance);
uint8_t PaethPredictor(int left, int up, int upperLeft);

/// Undoes the filter; a type that doesn't exist leaves the row as it is.
void UnfilterRow(FilterType type, Row row, PreviousRow previous, size_t distance);

/// Undoes the filters of a picture that isn't interlaced and takes the filter bytes out, in place.
/// The data must hold all rows.
void UnfilterRows(const Header& header, Bytes& data);

} // namespace png
