// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace documents {

/// The items of SetColor, which takes 0 to 30. The numbers that are missing have no effect.
enum ColorItem {
    kWindowItem = 0,
    kLeftMarginItem = 1,
    kBookmarkItem = 2,
    kTextItem = 3,
    kNumberItem = 4,
    kKeywordItem = 5,
    kOperatorItem = 6,
    kScopeKeywordItem = 7,
    kCommentItem = 8,
    kStringItem = 16,
    kLineNumberTextItem = 26,
    kLineNumberBackgroundItem = 27,
    kHorizontalDividerItem = 28,
    kVerticalDividerItem = 29,
    kHighlightedLineItem = 30,
    kLastColorItem = 30,
};

enum Option {
    kBraceMatchOption = 0,  ///< marks the bracket that belongs to the one at the caret
    kKeepTabsOption = 5,    ///< the tab key writes a tab, not blanks
    kSyntaxColorOption = 6, ///< colours Lua
    kLeftMarginOption = 75, ///< shows the left margin
    kLineNumberOption = 87, ///< shows the line numbers
    kAutoIndentOption = 88, ///< integer; 1: a new line begins under the text of the one above
};

inline constexpr int kSelectAllCommand = 137;

enum PrintFlags { kPageSetupFlags = 12, kPrintFlags = 13 };

} // namespace documents
