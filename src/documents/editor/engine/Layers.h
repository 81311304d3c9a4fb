// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace documents {

/// What the parts of the editor draw with, so that no two take the same number.
enum Margin { kLineNumberMargin = 0, kLeftMargin = 1, kFoldMargin = 2 };

enum Marker { kBookmarkMarker = 0, kHighlightMarker = 1, kFaultMarker = 2, kOpenerMarker = 3 };

/// Above the 8 that the lexers use.
enum Indicator {
    kFoundIndicator = 8,
    kFaultIndicator = 9,
    kPairIndicator = 10,
};

} // namespace documents
