// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace documents {

/// What Lua's parser has to say against a script, in its own words.
struct Complaint {
    std::string text;
    std::size_t line = 0; ///< from 1; 0 if it names none
    std::string near; ///< the token at which it stopped, "<eof>" at the end; empty if it names none
    std::size_t end = 0; ///< where that token ends in the source
};

/// Has the script read by the parser of the Lua that runs scripts; runs nothing. Nothing is
/// complained of either if there isn't the memory for it.
std::optional<Complaint> Parse(std::string_view source);

/// The line ends in the text, as the parser counts them.
std::size_t LineEnds(std::string_view text);

} // namespace documents
