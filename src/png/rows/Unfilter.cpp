// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/rows/Unfilter.h"

#include "png/format/Machine.h"
#include "png/rows/RowsSsse3.h"

#include <cstdlib>
#include <cstring>
#include <vector>

namespace png {

uint8_t PaethPredictor(int left, int up, int upperLeft) {
    const int toLeft = std::abs(up - upperLeft);
    const int toUp = std::abs(left - upperLeft);
    const int toUpperLeft = std::abs(left + up - 2 * upperLeft);
    if (toLeft <= toUp && toLeft <= toUpperLeft)
        return static_cast<uint8_t>(left);
    return static_cast<uint8_t>(toUp <= toUpperLeft ? up : upperLeft);
}

void FilterSub(Row row, size_t distance) {
    for (size_t i = distance; i < row.size(); ++i)
        row[i] = static_cast<uint8_t>(row[i] + row[i - distance]);
}

void FilterUp(Row row, PreviousRow previous) {
    for (size_t i = 0; i < row.size(); ++i)
        row[i] = static_cast<uint8_t>(row[i] + previous[i]);
}

void FilterAverage(Row row, PreviousRow previous, size_t distance) {
    for (size_t i = 0; i < row.size(); ++i) {
        const int left = i < distance ? 0 : row[i - distance];
        row[i] = static_cast<uint8_t>(row[i] + (left + previous[i]) / 2);
    }
}

void FilterPaeth(Row row, PreviousRow previous, size_t distance) {
    for (size_t i = 0; i < row.size(); ++i) {
        const bool first = i < distance;
        const int left = first ? 0 : row[i - distance];
        const int upperLeft = first ? 0 : previous[i - distance];
        row[i] = static_cast<uint8_t>(row[i] + PaethPredictor(left, previous[i], upperLeft));
    }
}

void UnfilterRow(FilterType type, Row row, PreviousRow previous, size_t distance) {
    if (ThisMachine().Ssse3 && UnfilterRowSsse3(type, row, previous, distance))
        return;
    switch (type) {
    case FilterType::Sub:
        FilterSub(row, distance);
        break;
    case FilterType::Up:
        FilterUp(row, previous);
        break;
    case FilterType::Average:
        FilterAverage(row, previous, distance);
        break;
    case FilterType::Paeth:
        FilterPaeth(row, previous, distance);
        break;
    case FilterType::None:
    default:
        break;
    }
}

void UnfilterRows(const Header& header, Bytes& data) {
    const auto line = static_cast<size_t>(header.LineBytes());
    const auto distance = static_cast<size_t>(header.BytesPerPixel());
    const size_t length = line - 1;
    const std::vector<uint8_t> zeros(length);
    PreviousRow previous = zeros;
    for (size_t y = 0; y < static_cast<size_t>(header.Height); ++y) {
        const uint8_t* stored = data.data() + y * line;
        const auto type = FilterType{*stored}; // the row may move over it
        const Row row(data.data() + y * length, length);
        std::memmove(row.data(), stored + 1, length);
        UnfilterRow(type, row, previous, distance);
        previous = row;
    }
    data.Resize(static_cast<size_t>(header.Height) * length);
}

} // namespace png
