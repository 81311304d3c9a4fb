// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/rtf/RtfWords.h"

#include "platform/rtf/RtfCodePages.h"

#include <QChar>
#include <QFont>
#include <QTextCharFormat>
#include <QTextOption>
#include <algorithm>
#include <array>

namespace platform {
namespace {

using F = RtfFileAction;
using G = RtfGroupAction;
using C = RtfCharacterAction;
using P = RtfParagraphAction;
using T = RtfTextAction;
using Q = QTextCharFormat;

constexpr int kBody = static_cast<int>(RtfPlace::Body);
constexpr int kLabel = static_cast<int>(RtfPlace::Label);
constexpr int kFontTable = static_cast<int>(RtfPlace::FontTable);
constexpr int kColorTable = static_cast<int>(RtfPlace::ColorTable);
constexpr int kNowhere = static_cast<int>(RtfPlace::Nowhere);

constexpr auto kWords = std::to_array<RtfWord>({
    // Code page, places of text, tables of fonts and colours.
    {"ansi", F::CodePage, kRtfWestern},
    {"ansicpg", F::CodePage},
    {"mac", F::CodePage, 10000},
    {"pc", F::CodePage, 437},
    {"pca", F::CodePage, 850},
    {"fldrslt", G::Place, kBody},
    {"fonttbl", G::Place, kFontTable},
    {"colortbl", G::Place, kColorTable},
    {"listtext", G::Place, kLabel},
    {"pntext", G::Place, kLabel},
    {"deff", F::DefaultFont},
    {"deftab", F::DefaultTab},
    {"f", G::Font},
    {"fcharset", F::FontCharset},
    {"cpg", F::FontCodePage},
    {"red", F::ColorPart, 16},
    {"green", F::ColorPart, 8},
    {"blue", F::ColorPart, 0},
    // The look of characters.
    {"plain", G::PlainCharacters},
    {"fs", C::Size},
    {"b", C::Bold},
    {"i", C::Italic},
    {"strike", C::Strike},
    {"striked", C::Strike},
    {"v", C::Hidden},
    {"caps", C::Capitals, QFont::AllUppercase},
    {"scaps", C::Capitals, QFont::SmallCaps},
    {"cf", C::Color},
    {"cb", C::Background},
    {"chcbpat", C::Background},
    {"highlight", C::Background},
    {"ul", C::Underline, Q::SingleUnderline},
    {"uld", C::Underline, Q::DotLine},
    {"uldash", C::Underline, Q::DashUnderline},
    {"uldashd", C::Underline, Q::DashDotLine},
    {"uldashdd", C::Underline, Q::DashDotDotLine},
    {"uldb", C::Underline, Q::SingleUnderline},
    {"ulhwave", C::Underline, Q::WaveUnderline},
    {"ulldash", C::Underline, Q::DashUnderline},
    {"ulth", C::Underline, Q::SingleUnderline},
    {"ulthd", C::Underline, Q::DotLine},
    {"ulthdash", C::Underline, Q::DashUnderline},
    {"ulthdashd", C::Underline, Q::DashDotLine},
    {"ulthdashdd", C::Underline, Q::DashDotDotLine},
    {"ulthldash", C::Underline, Q::DashUnderline},
    {"ululdbwave", C::Underline, Q::WaveUnderline},
    {"ulw", C::Underline, Q::SingleUnderline},
    {"ulwave", C::Underline, Q::WaveUnderline},
    {"ulnone", C::Underline, Q::NoUnderline},
    {"super", C::Vertical, Q::AlignSuperScript},
    {"sub", C::Vertical, Q::AlignSubScript},
    {"nosupersub", C::Vertical, Q::AlignNormal},
    {"up", C::Vertical, Q::AlignSuperScript},
    {"dn", C::Vertical, Q::AlignSubScript},
    // Paragraphs, pages, sections.
    {"pard", G::PlainParagraph},
    {"ql", P::Alignment, Qt::AlignLeft},
    {"qr", P::Alignment, Qt::AlignRight},
    {"qc", P::Alignment, Qt::AlignHCenter},
    {"qj", P::Alignment, Qt::AlignJustify},
    {"qd", P::Alignment, Qt::AlignJustify},
    {"li", P::Left},
    {"ri", P::Right},
    {"fi", P::FirstLine},
    {"sb", P::Before},
    {"sa", P::After},
    {"sl", P::LineSpacing},
    {"slmult", P::Proportional},
    {"pagebb", P::PageBreakBefore},
    {"tx", G::Tab},
    {"tqr", G::TabType, QTextOption::RightTab},
    {"tqc", G::TabType, QTextOption::CenterTab},
    {"tqdec", G::TabType, QTextOption::DelimiterTab},
    {"par", T::EndParagraph},
    {"page", T::BreakPage},
    {"sect", T::EndSection},
    {"sectd", F::SectionBreaks, 1},
    {"sbknone", F::SectionBreaks, 0},
    {"sbkcol", F::SectionBreaks, 0},
    // Tables.
    {"intbl", G::InTable},
    {"trowd", T::NewRow},
    {"cellx", T::CellEdge},
    {"cell", T::EndCell},
    {"nestcell", T::EndCell},
    {"row", T::EndRow},
    // Characters.
    {"u", T::Unicode},
    {"uc", G::FallbackLength},
    {"tab", T::Character, '\t'},
    {"line", T::Character, QChar::LineSeparator},
    {"lbr", T::Character, QChar::LineSeparator},
    {"emdash", T::Character, 0x2014},
    {"endash", T::Character, 0x2013},
    {"lquote", T::Character, 0x2018},
    {"rquote", T::Character, 0x2019},
    {"ldblquote", T::Character, 0x201C},
    {"rdblquote", T::Character, 0x201D},
    {"bullet", T::Character, 0x2022},
    {"emspace", T::Character, 0x2003},
    {"enspace", T::Character, 0x2002},
    {"qmspace", T::Character, 0x2005},
    {"ltrmark", T::Character, 0x200E},
    {"rtlmark", T::Character, 0x200F},
    {"zwj", T::Character, 0x200D},
    {"zwnj", T::Character, 0x200C},
    {"zwbo", T::Character, 0x200B},
    {"zwnbo", T::Character, 0x2060},
    // Symbols.
    {"\r", T::EndParagraph},
    {"\n", T::EndParagraph},
    {"\t", T::Character, '\t'},
    {"~", T::Character, 0x00A0},
    {"-", T::Character, 0x00AD},
    {"_", T::Character, 0x2011},
    {"\\", T::Character, '\\'},
    {"{", T::Character, '{'},
    {"}", T::Character, '}'},
    // Groups whose text isn't the document's own.
    {"annotation", G::Place, kNowhere},
    {"atnauthor", G::Place, kNowhere},
    {"atnid", G::Place, kNowhere},
    {"comment", G::Place, kNowhere},
    {"fldinst", G::Place, kNowhere},
    {"filetbl", G::Place, kNowhere},
    {"footer", G::Place, kNowhere},
    {"footerf", G::Place, kNowhere},
    {"footerl", G::Place, kNowhere},
    {"footerr", G::Place, kNowhere},
    {"footnote", G::Place, kNowhere},
    {"ftncn", G::Place, kNowhere},
    {"ftnsep", G::Place, kNowhere},
    {"ftnsepc", G::Place, kNowhere},
    {"header", G::Place, kNowhere},
    {"headerf", G::Place, kNowhere},
    {"headerl", G::Place, kNowhere},
    {"headerr", G::Place, kNowhere},
    {"info", G::Place, kNowhere},
    {"listoverridetable", G::Place, kNowhere},
    {"listtable", G::Place, kNowhere},
    {"nonesttables", G::Place, kNowhere},
    {"nonshppict", G::Place, kNowhere},
    {"object", G::Place, kNowhere},
    {"pict", G::Place, kNowhere},
    {"revtbl", G::Place, kNowhere},
    {"rxe", G::Place, kNowhere},
    {"shp", G::Place, kNowhere},
    {"stylesheet", G::Place, kNowhere},
    {"tc", G::Place, kNowhere},
    {"txe", G::Place, kNowhere},
    {"xe", G::Place, kNowhere},
});

constexpr auto kByName = [] {
    auto words = kWords;
    std::ranges::sort(words, {}, &RtfWord::name);
    return words;
}();
static_assert(std::ranges::adjacent_find(kByName, {}, &RtfWord::name) == kByName.end());

} // namespace

const RtfWord* FindRtfWord(std::string_view name) {
    const auto* word = std::ranges::lower_bound(kByName, name, {}, &RtfWord::name);
    return word != kByName.end() && word->name == name ? word : nullptr;
}

} // namespace platform
