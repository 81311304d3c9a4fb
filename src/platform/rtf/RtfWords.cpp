// SPDX-License-Identifier: GPL-3.0-or-later
// The control words that the reader knows, and what they do.
#include "platform/rtf/RtfParser.h"

namespace platform {
namespace {

constexpr int kLargestFont = 3276; // half points
constexpr size_t kMostTabs = 32;   // of one paragraph

// Groups whose text isn't the document's own.
constexpr std::string_view kUnseen[] = {
    "annotation", "atnauthor",    "atnid",      "comment",
    "fldinst",    "filetbl",      "footer",     "footerf",
    "footerl",    "footerr",      "footnote",   "ftncn",
    "ftnsep",     "ftnsepc",      "header",     "headerf",
    "headerl",    "headerr",      "info",       "listoverridetable",
    "listtable",  "nonesttables", "nonshppict", "object",
    "pict",       "revtbl",       "rxe",        "shp",
    "stylesheet", "tc",           "txe",        "xe"};

} // namespace

RtfParser::OrderTable RtfParser::MakeOrders() {
    OrderTable orders;
    AddFileWords(orders);
    AddLookWords(orders);
    AddParagraphWords(orders);
    AddCharacterWords(orders);
    return orders;
}

// Code page, places of text, tables of fonts and colours.
void RtfParser::AddFileWords(OrderTable& orders) {
    using R = RtfParser;
    orders.insert({
        {"ansi", {&R::DocumentPage, kRtfWestern}},
        {"ansicpg", {&R::DocumentPage}},
        {"mac", {&R::DocumentPage, 10000}},
        {"pc", {&R::DocumentPage, 437}},
        {"pca", {&R::DocumentPage, 850}},
        {"fldrslt", {&R::Enter, static_cast<int>(Place::Body)}},
        {"fonttbl", {&R::Enter, static_cast<int>(Place::FontTable)}},
        {"colortbl", {&R::Enter, static_cast<int>(Place::ColorTable)}},
        {"listtext", {&R::Enter, static_cast<int>(Place::Label)}},
        {"pntext", {&R::Enter, static_cast<int>(Place::Label)}},
        {"deff", {&R::DefaultFont}},
        {"deftab", {&R::DefaultTab}},
        {"f", {&R::Font}},
        {"fcharset", {&R::FontPage, 1}},
        {"cpg", {&R::FontPage, 0}},
        {"red", {&R::ColorPart, 16}},
        {"green", {&R::ColorPart, 8}},
        {"blue", {&R::ColorPart, 0}},
    });
    for (const std::string_view name : kUnseen)
        orders[name] = {&R::Enter, static_cast<int>(Place::Nowhere)};
}

void RtfParser::AddLookWords(OrderTable& orders) {
    using R = RtfParser;
    using C = RtfCharacters;
    using F = QTextCharFormat;
    orders.insert({
        {"plain", {&R::Plain}},
        {"fs", {&R::FontSize}},
        {"b", {&R::Flag<&C::bold>}},
        {"i", {&R::Flag<&C::italic>}},
        {"strike", {&R::Flag<&C::strike>}},
        {"striked", {&R::Flag<&C::strike>}},
        {"v", {&R::Flag<&C::hidden>}},
        {"caps", {&R::Capitals, QFont::AllUppercase}},
        {"scaps", {&R::Capitals, QFont::SmallCaps}},
        {"cf", {&R::Color<&C::color>}},
        {"cb", {&R::Color<&C::background>}},
        {"chcbpat", {&R::Color<&C::background>}},
        {"highlight", {&R::Color<&C::background>}},
        {"ul", {&R::Underline, F::SingleUnderline}},
        {"uld", {&R::Underline, F::DotLine}},
        {"uldash", {&R::Underline, F::DashUnderline}},
        {"uldashd", {&R::Underline, F::DashDotLine}},
        {"uldashdd", {&R::Underline, F::DashDotDotLine}},
        {"uldb", {&R::Underline, F::SingleUnderline}},
        {"ulhwave", {&R::Underline, F::WaveUnderline}},
        {"ulldash", {&R::Underline, F::DashUnderline}},
        {"ulth", {&R::Underline, F::SingleUnderline}},
        {"ulthd", {&R::Underline, F::DotLine}},
        {"ulthdash", {&R::Underline, F::DashUnderline}},
        {"ulthdashd", {&R::Underline, F::DashDotLine}},
        {"ulthdashdd", {&R::Underline, F::DashDotDotLine}},
        {"ulthldash", {&R::Underline, F::DashUnderline}},
        {"ululdbwave", {&R::Underline, F::WaveUnderline}},
        {"ulw", {&R::Underline, F::SingleUnderline}},
        {"ulwave", {&R::Underline, F::WaveUnderline}},
        {"ulnone", {&R::Underline, F::NoUnderline}},
        {"super", {&R::Raise, F::AlignSuperScript}},
        {"sub", {&R::Raise, F::AlignSubScript}},
        {"nosupersub", {&R::Raise, F::AlignNormal}},
        {"up", {&R::Raise, F::AlignSuperScript}},
        {"dn", {&R::Raise, F::AlignSubScript}},
    });
}

void RtfParser::AddParagraphWords(OrderTable& orders) {
    using R = RtfParser;
    using P = RtfParagraph;
    orders.insert({
        {"pard", {&R::ParagraphPlain}},
        {"ql", {&R::Align, Qt::AlignLeft}},
        {"qr", {&R::Align, Qt::AlignRight}},
        {"qc", {&R::Align, Qt::AlignHCenter}},
        {"qj", {&R::Align, Qt::AlignJustify}},
        {"qd", {&R::Align, Qt::AlignJustify}},
        {"li", {&R::Length<&P::left>, -kLongest}},
        {"ri", {&R::Length<&P::right>, -kLongest}},
        {"fi", {&R::Length<&P::firstLine>, -kLongest}},
        {"sb", {&R::Length<&P::before>}},
        {"sa", {&R::Length<&P::after>}},
        {"sl", {&R::LineSpacing}},
        {"slmult", {&R::ParagraphFlag<&P::proportional>}},
        {"pagebb", {&R::ParagraphFlag<&P::pageBreakBefore>}},
        {"tx", {&R::Tab}},
        {"tqr", {&R::TabKind, QTextOption::RightTab}},
        {"tqc", {&R::TabKind, QTextOption::CenterTab}},
        {"tqdec", {&R::TabKind, QTextOption::DelimiterTab}},
        {"par", {&R::EndParagraph}},
        {"page", {&R::BreakPage}},
        {"sect", {&R::EndSection}},
        {"sectd", {&R::SectionBreaks, 1}},
        {"sbknone", {&R::SectionBreaks, 0}},
        {"sbkcol", {&R::SectionBreaks, 0}},
        // Tables.
        {"intbl", {&R::InTable}},
        {"trowd", {&R::NewRow}},
        {"cellx", {&R::CellEdge}},
        {"cell", {&R::EndCell}},
        {"nestcell", {&R::EndCell}},
        {"row", {&R::EndRow}},
    });
}

void RtfParser::AddCharacterWords(OrderTable& orders) {
    using R = RtfParser;
    orders.insert({
        {"u", {&R::Unicode}},
        {"uc", {&R::FallbackLength}},
        {"tab", {&R::Character, '\t'}},
        {"line", {&R::Character, QChar::LineSeparator}},
        {"lbr", {&R::Character, QChar::LineSeparator}},
        {"emdash", {&R::Character, 0x2014}},
        {"endash", {&R::Character, 0x2013}},
        {"lquote", {&R::Character, 0x2018}},
        {"rquote", {&R::Character, 0x2019}},
        {"ldblquote", {&R::Character, 0x201C}},
        {"rdblquote", {&R::Character, 0x201D}},
        {"bullet", {&R::Character, 0x2022}},
        {"emspace", {&R::Character, 0x2003}},
        {"enspace", {&R::Character, 0x2002}},
        {"qmspace", {&R::Character, 0x2005}},
        {"ltrmark", {&R::Character, 0x200E}},
        {"rtlmark", {&R::Character, 0x200F}},
        {"zwj", {&R::Character, 0x200D}},
        {"zwnj", {&R::Character, 0x200C}},
        {"zwbo", {&R::Character, 0x200B}},
        {"zwnbo", {&R::Character, 0x2060}},
        // Symbols.
        {"\r", {&R::EndParagraph}},
        {"\n", {&R::EndParagraph}},
        {"\t", {&R::Character, '\t'}},
        {"~", {&R::Character, 0x00A0}},
        {"-", {&R::Character, 0x00AD}},
        {"_", {&R::Character, 0x2011}},
        {"\\", {&R::Character, '\\'}},
        {"{", {&R::Character, '{'}},
        {"}", {&R::Character, '}'}},
    });
}

void RtfParser::Font(int, Number number) {
    Look().font = number.value_or(0);
    if (Top().place == Place::FontTable) {
        CommitFont();
        m_font = {number.value_or(0), m_codePage};
    }
}

void RtfParser::FontPage(int fromCharset, Number number) {
    m_font.codePage = fromCharset ? CodePageOfCharset(number.value_or(1), m_codePage)
                                  : number.value_or(m_codePage);
}

void RtfParser::FontSize(int, Number number) {
    Look().halfPoints = std::clamp(number.value_or(RtfCharacters().halfPoints), 2, kLargestFont);
}

void RtfParser::ColorPart(int shift, Number number) {
    const QRgb part = static_cast<QRgb>(std::clamp(number.value_or(0), 0, 255));
    m_color = (m_color.value_or(qRgb(0, 0, 0)) & ~(0xFFU << shift)) | part << shift;
}

void RtfParser::LineSpacing(int, Number number) {
    Paragraph().lineSpacing = std::clamp(number.value_or(0), -kLongest, kLongest);
}

void RtfParser::Tab(int, Number number) {
    auto& tabs = Paragraph().tabs;
    if (tabs.size() < kMostTabs)
        tabs.push_back({std::clamp(number.value_or(0), 0, kLongest), m_tabType});
    m_tabType = QTextOption::LeftTab;
}

void RtfParser::ParagraphPlain(int, Number) {
    Paragraph() = {};
    Top().inTable = false;
}

void RtfParser::Unicode(int, Number number) {
    const int value = number.value_or('?');
    const uint code = static_cast<uint>(value < 0 ? value + 0x10000 : value);
    if (code < 0x10000)
        Text(QString(QChar(static_cast<char16_t>(code))));
    else if (code <= QChar::LastValidCodePoint)
        Text(QString::fromUcs4(reinterpret_cast<const char32_t*>(&code), 1));
    m_toSkip = Top().fallbackLength;
}

void RtfParser::EndParagraph(int, Number) {
    if (Top().place != Place::Body)
        return;
    if (Top().inTable)
        m_flow.BreakCellLine();
    else
        m_flow.EndParagraph(Paragraph(), Look());
}

void RtfParser::BreakPage(int, Number) {
    if (Top().place == Place::Body)
        m_flow.BreakPage(Paragraph(), Look());
}

void RtfParser::EndSection(int, Number) {
    if (Top().place != Place::Body)
        return;
    m_flow.EndParagraph(Paragraph(), Look());
    if (m_sectionStartsPage)
        m_flow.BreakPage(Paragraph(), Look());
}

void RtfParser::CellEdge(int, Number number) {
    if (m_cellEdges.size() < kMostTabs)
        m_cellEdges.push_back(std::clamp(number.value_or(0), 0, kLongest));
}

void RtfParser::EndCell(int, Number) {
    if (Top().place == Place::Body)
        m_flow.EndCell();
}

// The cells' left edges become the tabs of the paragraph.
void RtfParser::EndRow(int, Number) {
    if (Top().place != Place::Body)
        return;
    RtfParagraph row;
    for (size_t i = 0; i + 1 < m_cellEdges.size(); ++i)
        row.tabs.push_back({m_cellEdges[i], QTextOption::LeftTab});
    m_flow.EndParagraph(row, Look());
}

} // namespace platform
