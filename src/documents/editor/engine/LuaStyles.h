// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace documents {

/// Styles of the engine's Lua lexer, SCLEX_LUA.
enum LuaStyle {
    kCommentBlock = 1,
    kCommentLine = 2,
    kNumber = 4,
    kKeyword = 5,
    kString = 6,
    kCharacter = 7,
    kLiteralString = 8,
    kOperator = 10,
    kUnclosedString = 12,
    kScopeKeyword = 13,
    kTwin = 14, ///< unused by the lexer; looks like style 0
};

} // namespace documents
