// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace documents {

/// Styles of the engine's Lua lexer, SCLEX_LUA.
enum LuaStyle {
    kCommentBlock = 1,
    kCommentLine = 2,
    kNumber = 4,
    kScopeKeyword = 5, ///< the only words that fold
    kString = 6,
    kCharacter = 7,
    kLiteralString = 8,
    kOperator = 10,
    kUnclosedString = 12,
    kKeyword = 13,
    kTwin = 14, ///< unused by the lexer; looks like style 0
};

} // namespace documents
