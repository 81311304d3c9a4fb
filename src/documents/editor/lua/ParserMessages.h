// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/lua/UnclosedBlock.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace documents {

/// How the parser names the end of the script.
inline constexpr std::string_view kEndOfScript = "<eof>";

/// Also said where a value lacks.
inline constexpr std::string_view kUnexpectedSymbol = "unexpected symbol";

/// Where a fault shows, seen from the token at which the parser stopped.
enum class FaultPlace {
    AtToken,
    Lack,       ///< before it: at the end of the line before, if the token is the first of its line
    AtPrevious, ///< at the token before
};

/// A complaint of Lua's parser, with what stands around its place.
struct ParserMessage {
    std::string_view text;          ///< in the parser's words, without line and token
    std::string_view token = {};    ///< at which it stopped, or kEndOfScript
    std::string_view previous = {}; ///< the token before; empty if there is none
    bool isBehind = false;          ///< whether the fault shows at the token before
    bool hasElseIf = false;         ///< whether the script has an "else if" of two words
    BlockOpener unclosed = {};      ///< the block that its indentation says to be open, or none
};

/// The same in Spanish, in UTF-8, without full stops.
struct Wording {
    std::string message;
    std::string hint;          ///< what to do about it; may be empty
    std::size_t otherLine = 0; ///< that the message names, from 1; or 0
};

/// An unknown message stays as it is.
Wording Translate(const ParserMessage& said);

FaultPlace PlaceOf(std::string_view text);

} // namespace documents
