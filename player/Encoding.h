// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace player {

/// The characters of a script's text, which is UTF-8 or else Windows-1252.
std::u32string Decode(std::string_view text);
std::string ToUtf8(std::string_view text);

} // namespace player
