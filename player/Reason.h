// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <span>

namespace player {

/// What the user reads for a number of errno.
struct Reason {
    int code;
    const char* text;
};

/// Null for a code that has none.
inline const char* TextOf(std::span<const Reason> reasons, int code) {
    const auto reason = std::ranges::find(reasons, code, &Reason::code);
    return reason == reasons.end() ? nullptr : reason->text;
}

} // namespace player
