// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/lua/Calls.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace documents {

/// What stands around a place in a script. All places are in bytes.
struct CallContext {
    bool isCode = true; ///< not in a comment or a string; if it is, only the enclosing call is told

    std::string word;                ///< the part of a name that stands before the place
    char link = '\0';                ///< the '.' or ':' before the word
    std::string_view library;        ///< before the link, if it's one
    ValueKind kind = ValueKind::Any; ///< of what stands before the link
    const Call* named = nullptr;     ///< what the word means as it is; null if nothing is known

    const Call* call = nullptr; ///< between whose parentheses the place is; null if not known
    bool callIsMethod = false;  ///< it's written with a colon
    std::size_t open = 0;       ///< where the name of that call begins
    std::size_t parameter = 0;  ///< in which one the place is, from 0
};

/// Of the end of a piece of a script. The piece should begin where a line does, and not in a
/// long comment or string.
CallContext ContextAtEnd(std::string_view before);

/// The length of the name, or the part of one, that a text ends or begins with.
std::size_t NameAtEnd(std::string_view text);
std::size_t NameAtStart(std::string_view text);

} // namespace documents
