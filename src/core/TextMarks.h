// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace core {

/// The byte order marks of Unicode: the first bytes of a file.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
inline constexpr std::string_view kUtf16LEMark = "\xFF\xFE";
inline constexpr std::string_view kUtf16BEMark = "\xFE\xFF";

/// The text without the UTF-8 mark at its start, if it has one.
constexpr std::string_view WithoutUtf8Mark(std::string_view text) {
    return text.starts_with(kUtf8Mark) ? text.substr(kUtf8Mark.size()) : text;
}

} // namespace core
