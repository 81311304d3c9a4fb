// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace documents {

/// Why Lua can't read a script. Lines count from 1, bytes from 0; texts are Spanish, in UTF-8.
struct Fault {
    std::size_t line = 0;
    std::size_t otherLine =
        0;                 ///< another that has to do with it, as that of an if without end; or 0
    std::size_t begin = 0; ///< what to underline, all in the line
    std::size_t end = 0;
    std::string message; ///< without a full stop
    std::string hint;    ///< what to do about it, without a full stop; may be empty

    bool operator==(const Fault&) const = default;
};

/// In bytes: the check of a larger script takes longer than 20 ms.
inline constexpr std::size_t kLargestChecked = 384 << 10;

/// The first fault that Lua's parser finds in a script of UTF-8; runs nothing. A first line that
/// begins with # doesn't count. A compiled script isn't looked at: it has no fault.
std::optional<Fault> Check(std::string_view utf8);

} // namespace documents
