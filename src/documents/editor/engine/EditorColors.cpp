// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/engine/EditorColors.h"

#include "documents/editor/engine/CodeMaxConstants.h"
#include "documents/editor/engine/Layers.h"
#include "documents/editor/engine/LuaStyles.h"
#include "documents/editor/engine/ScriptEditor.h"

#include <algorithm>

namespace documents {
namespace {

using Engine = QsciScintilla;

enum class Part { Paper, Ink, LeftMargin, NumberInk, NumberPaper, Marker };

// What each item colours, and its defaults as 0x00BBGGRR. `index` is a style or a marker number.
struct ColorRow {
    ColorItem item;
    Part part;
    int index;
    int light;
    int dark;
};

constexpr int kCaretLinePercent = 4; // of the ink; a selection shows through it
constexpr int kFoldPercent = 40;
constexpr std::ptrdiff_t kResettingRows = 2; // they reset all other styles, so they come first
constexpr std::array kColorRows = {
    ColorRow{kWindowItem, Part::Paper, 0, 0xFFFFFF, 0x261F1E},
    ColorRow{kTextItem, Part::Ink, Engine::STYLE_DEFAULT, 0x000000, 0xDEDCDC},
    ColorRow{kNumberItem, Part::Ink, kNumber, 0x000000, 0x7EC8E8},
    ColorRow{kKeywordItem, Part::Ink, kKeyword, 0xFF0000, 0xFFB27A},
    ColorRow{kScopeKeywordItem, Part::Ink, kScopeKeyword, 0xFF0000, 0xFFB27A},
    ColorRow{kOperatorItem, Part::Ink, kOperator, 0x0000FF, 0x8C8CFF},
    ColorRow{kCommentItem, Part::Ink, kCommentBlock, 0x008000, 0x84C67E},
    ColorRow{kCommentItem, Part::Ink, kCommentLine, 0x008000, 0x84C67E},
    ColorRow{kStringItem, Part::Ink, kString, 0x000000, 0xF0A0E0},
    ColorRow{kStringItem, Part::Ink, kCharacter, 0x000000, 0xF0A0E0},
    ColorRow{kStringItem, Part::Ink, kLiteralString, 0x000000, 0xF0A0E0},
    ColorRow{kStringItem, Part::Ink, kUnclosedString, 0x000000, 0xF0A0E0},
    ColorRow{kLeftMarginItem, Part::LeftMargin, 0, 0xE0E0E0, 0x000000},
    ColorRow{kLineNumberTextItem, Part::NumberInk, 0, 0x000000, 0xB0B0B0},
    ColorRow{kLineNumberBackgroundItem, Part::NumberPaper, 0, 0xE0E0E0, 0x000000},
    ColorRow{kBookmarkItem, Part::Marker, kBookmarkMarker, 0xFFFF00, 0xC8A030},
    ColorRow{kHighlightedLineItem, Part::Marker, kHighlightMarker, 0x00FFFF, 0x0000C0},
};

int RedFirst(int bgr) {
    return (bgr & 0xFF) << 16 | (bgr & 0xFF00) | (bgr >> 16 & 0xFF);
}

void Paint(ScriptEditor& editor, const ColorRow& row, int bgr) {
    const QColor color(static_cast<QRgb>(RedFirst(bgr)));
    switch (row.part) {
    case Part::Paper:
        editor.Send(Engine::SCI_STYLESETBACK, Engine::STYLE_DEFAULT, bgr);
        return;
    case Part::Ink:
        editor.Send(Engine::SCI_STYLESETFORE, row.index, bgr);
        return;
    case Part::LeftMargin:
        editor.Send(Engine::SCI_SETMARGINBACKN, kLeftMargin, bgr);
        return;
    case Part::NumberInk:
        return editor.setMarginsForegroundColor(color);
    case Part::NumberPaper:
        return editor.setMarginsBackgroundColor(color);
    case Part::Marker:
        editor.Send(Engine::SCI_MARKERSETBACK, row.index, bgr);
        return;
    }
}

// A colour on the way from one to another, in hundredths.
int Between(int from, int to, int percent) {
    int color = 0;
    for (const int shift : {0, 8, 16}) {
        const int first = from >> shift & 0xFF;
        color |= (first + ((to >> shift & 0xFF) - first) * percent / 100) << shift;
    }
    return color;
}

// What isn't an item: it takes after the paper and the ink.
void PaintAround(ScriptEditor& editor, int paper, int ink) {
    editor.Send(Engine::SCI_SETCARETLINEBACK, Between(paper, ink, kCaretLinePercent), 0);
    editor.Send(Engine::SCI_SETCARETFORE, ink, 0);
    // No text has this style; the line under a folded block does.
    editor.Send(Engine::SCI_STYLESETFORE, Engine::STYLE_DEFAULT, Between(paper, ink, kFoldPercent));
    editor.Send(Engine::SCI_SETFOLDMARGINCOLOUR, 1, paper);
    editor.Send(Engine::SCI_SETFOLDMARGINHICOLOUR, 1, paper);
    constexpr int kLast = Engine::SC_MARKNUM_FOLDEROPEN;
    for (int marker = Engine::SC_MARKNUM_FOLDEREND; marker <= kLast; ++marker) {
        editor.Send(Engine::SCI_MARKERSETFORE, marker, paper);
        editor.Send(Engine::SCI_MARKERSETBACK, marker, Between(paper, ink, kFoldPercent));
    }
}

} // namespace

void EditorColors::Apply(ScriptEditor& editor) const {
    const auto colorOf = [&](const ColorRow& row) {
        const int chosen = m_dark ? -1 : m_chosen.at(row.item);
        return chosen >= 0 ? chosen : m_dark ? row.dark : row.light;
    };
    const auto paint = [&](const ColorRow& row) { Paint(editor, row, colorOf(row)); };
    const auto others = kColorRows.begin() + kResettingRows;
    std::for_each(kColorRows.begin(), others, paint);
    editor.Send(Engine::SCI_STYLECLEARALL);
    std::for_each(others, kColorRows.end(), paint);
    PaintAround(editor, colorOf(kColorRows[0]), colorOf(kColorRows[1]));
}

} // namespace documents
