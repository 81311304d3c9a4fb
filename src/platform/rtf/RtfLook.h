// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/rtf/RtfWords.h"

#include <Qt>
#include <vector>

namespace platform {

/// Longer lengths of a file count as this, in twips: 22 inches.
inline constexpr int kLongestRtfLength = 31680;

/// The look of characters, in RTF's terms.
struct RtfCharacters {
    int font = -1; ///< number in the font table
    int halfPoints = 24;
    int color = 0; ///< index in the colour table, whose first entry is usually automatic
    int background = 0;
    int underline = 0; ///< a QTextCharFormat::UnderlineStyle
    int vertical = 0;  ///< a QTextCharFormat::VerticalAlignment
    int capitals = 0;  ///< a QFont::Capitalization
    bool bold = false;
    bool italic = false;
    bool strike = false;
    bool hidden = false;

    auto operator<=>(const RtfCharacters&) const = default; // NOLINT(modernize-use-nullptr)
};

struct RtfTab {
    int twips = 0;
    int type = 0; ///< a QTextOption::TabType

    auto operator<=>(const RtfTab&) const = default; // NOLINT(modernize-use-nullptr)
};

/// The look of a paragraph, in RTF's terms. Lengths in twips.
struct RtfParagraph {
    int alignment = Qt::AlignLeft;
    int left = 0;
    int right = 0;
    int firstLine = 0;
    int before = 0;
    int after = 0;
    int lineSpacing = 0;       ///< 0 is single, less than 0 is exact
    bool proportional = false; ///< lineSpacing is in 240ths of single
    bool pageBreakBefore = false;
    std::vector<RtfTab> tabs = {};

    auto operator<=>(const RtfParagraph&) const = default; // NOLINT(modernize-use-nullptr)
};

/// What a word says about the look of what comes behind it.
void Apply(RtfCharacterAction action, int parameter, RtfNumber number, RtfCharacters& look);
void Apply(RtfParagraphAction action, int parameter, RtfNumber number, RtfParagraph& look);

} // namespace platform
