// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/rtf/RtfLook.h"

#include <algorithm>

namespace platform {
namespace {

constexpr int kLargestFont = 3276; // half points

int Index(RtfNumber number) {
    return std::max(0, number.value_or(0));
}

// `least` is 0 or less.
int Length(RtfNumber number, int least) {
    return std::clamp(number.value_or(0), least, kLongestRtfLength);
}

} // namespace

void Apply(RtfCharacterAction action, int parameter, RtfNumber number, RtfCharacters& look) {
    const bool on = number != 0;
    switch (action) {
    case RtfCharacterAction::Bold:
        look.bold = on;
        break;
    case RtfCharacterAction::Italic:
        look.italic = on;
        break;
    case RtfCharacterAction::Strike:
        look.strike = on;
        break;
    case RtfCharacterAction::Hidden:
        look.hidden = on;
        break;
    case RtfCharacterAction::Capitals:
        look.capitals = on ? parameter : 0;
        break;
    case RtfCharacterAction::Underline:
        look.underline = on ? parameter : 0;
        break;
    case RtfCharacterAction::Vertical:
        look.vertical = on ? parameter : 0;
        break;
    case RtfCharacterAction::Size:
        look.halfPoints = std::clamp(number.value_or(RtfCharacters().halfPoints), 2, kLargestFont);
        break;
    case RtfCharacterAction::Color:
        look.color = Index(number);
        break;
    case RtfCharacterAction::Background:
        look.background = Index(number);
        break;
    }
}

void Apply(RtfParagraphAction action, int parameter, RtfNumber number, RtfParagraph& look) {
    const bool on = number.value_or(1) != 0;
    switch (action) {
    case RtfParagraphAction::Alignment:
        look.alignment = parameter;
        break;
    case RtfParagraphAction::Left:
        look.left = Length(number, -kLongestRtfLength);
        break;
    case RtfParagraphAction::Right:
        look.right = Length(number, -kLongestRtfLength);
        break;
    case RtfParagraphAction::FirstLine:
        look.firstLine = Length(number, -kLongestRtfLength);
        break;
    case RtfParagraphAction::Before:
        look.before = Length(number, 0);
        break;
    case RtfParagraphAction::After:
        look.after = Length(number, 0);
        break;
    case RtfParagraphAction::LineSpacing:
        look.lineSpacing = Length(number, -kLongestRtfLength);
        break;
    case RtfParagraphAction::Proportional:
        look.proportional = on;
        break;
    case RtfParagraphAction::PageBreakBefore:
        look.pageBreakBefore = on;
        break;
    }
}

} // namespace platform
