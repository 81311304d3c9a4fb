// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>
#include <variant>

namespace platform {

/// What stands behind a control word, if a number does.
using RtfNumber = std::optional<int>;

/// Where the text of a group goes.
enum class RtfPlace { Body, Label, FontTable, ColorTable, Nowhere };

// What control words do, by what they do it to. The words give some actions a parameter of their
// own, whose meaning stands beside these.

/// To the whole file and its tables.
enum class RtfFileAction {
    CodePage, ///< its number; 0: that behind the word
    DefaultFont,
    DefaultTab,
    FontCharset,
    FontCodePage,
    ColorPart,     ///< the part's lowest bit in a QRgb
    SectionBreaks, ///< whether a section starts a page
};

/// To the group that the word stands in and to those in it.
enum class RtfGroupAction {
    Place, ///< an RtfPlace
    Font,
    PlainCharacters,
    PlainParagraph,
    TabType, ///< of the next tab, a QTextOption::TabType
    Tab,
    InTable,
    FallbackLength,
};

/// To the look of the group's characters.
enum class RtfCharacterAction {
    Bold,
    Italic,
    Strike,
    Hidden,
    Capitals,  ///< a QFont::Capitalization
    Underline, ///< a QTextCharFormat::UnderlineStyle
    Vertical,  ///< a QTextCharFormat::VerticalAlignment
    Size,
    Color,
    Background,
};

/// To the look of the group's paragraph.
enum class RtfParagraphAction {
    Alignment, ///< a Qt::AlignmentFlag
    Left,
    Right,
    FirstLine,
    Before,
    After,
    LineSpacing,
    Proportional,
    PageBreakBefore,
};

/// To the text: they add to it.
enum class RtfTextAction {
    Character, ///< its UTF-16 code
    Unicode,
    EndParagraph,
    BreakPage,
    EndSection,
    NewRow,
    CellEdge,
    EndCell,
    EndRow,
};

/// A control word or symbol. \bin isn't among them: what it does, it does to the bytes.
struct RtfWord {
    using Action = std::variant<RtfFileAction, RtfGroupAction, RtfCharacterAction,
                                RtfParagraphAction, RtfTextAction>;

    std::string_view name;
    Action action;
    int parameter = 0;
};

/// Null for one that the reader doesn't know.
const RtfWord* FindRtfWord(std::string_view name);

} // namespace platform
