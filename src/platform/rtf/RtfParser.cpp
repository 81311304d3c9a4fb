// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/rtf/RtfParser.h"

#include <QChar>
#include <algorithm>
#include <string_view>
#include <utility>
#include <variant>

namespace platform {
namespace {

constexpr size_t kDeepest = 1000; // groups in groups
constexpr size_t kMostTabs = 32;  // of one paragraph

} // namespace

RtfResult RtfParser::Read() {
    m_groups.emplace_back(); // around the file's own
    std::optional<RtfResult> result;
    while (!result)
        result = Step();
    m_flow.Finish(Paragraph(), Look(), m_defaultTab);
    return *result;
}

// Takes one token. Answers the result once the file is read.
std::optional<RtfResult> RtfParser::Step() {
    const RtfToken token = m_tokens.Next();
    const bool star = token.kind == RtfToken::Kind::Symbol && token.text[0] == '*';
    const bool afterStar = std::exchange(m_afterStar, star);
    if (token.kind != RtfToken::Kind::Text && token.kind != RtfToken::Kind::Byte)
        FlushBytes();
    switch (token.kind) {
    case RtfToken::Kind::End:
        return RtfResult::Truncated;
    case RtfToken::Kind::Open:
        if (m_groups.size() > kDeepest)
            return RtfResult::TooDeep;
        Open();
        break;
    case RtfToken::Kind::Close:
        if (m_groups.size() <= 2)
            return RtfResult::Complete;
        Close();
        break;
    case RtfToken::Kind::Word:
    case RtfToken::Kind::Symbol:
        Control(token, afterStar);
        break;
    case RtfToken::Kind::Byte:
    case RtfToken::Kind::Text:
        Bytes(token.text);
        break;
    }
    return std::nullopt;
}

void RtfParser::Open() {
    m_toSkip = 0;
    const Group inner = Top();
    m_groups.push_back(inner);
}

void RtfParser::Close() {
    m_toSkip = 0;
    if (Top().place == RtfPlace::FontTable)
        m_tables.EndFont();
    if (Top().place == RtfPlace::Label && m_groups[m_groups.size() - 2].place == RtfPlace::Body)
        CommitLabel();
    m_groups.pop_back();
}

// A blank label is left out, as its tab would push the text, unless the text hangs from it.
void RtfParser::CommitLabel() {
    const QString label = std::exchange(m_label, {});
    if (!label.trimmed().isEmpty() || Paragraph().firstLine < 0)
        m_flow.Append(label, Look());
}

void RtfParser::Control(const RtfToken& token, bool afterStar) {
    const std::string_view name(token.text.data(), static_cast<size_t>(token.text.size()));
    if (name == "bin") {
        m_tokens.Skip(std::max(0, token.number.value_or(0)));
        m_toSkip = std::max(0, m_toSkip - 1);
        return;
    }
    const RtfWord* word = FindRtfWord(name);
    if (!word && afterStar)
        Top().place = RtfPlace::Nowhere; // a group that the writer takes for dispensable
    if (!word || Top().place == RtfPlace::Nowhere)
        return;
    const bool character = word->action == RtfWord::Action(RtfTextAction::Character);
    const bool fallback = character && m_toSkip > 0;
    m_toSkip = fallback ? m_toSkip - 1 : 0;
    if (!fallback)
        std::visit([&](auto action) { Run(action, word->parameter, token.number); }, word->action);
}

void RtfParser::Run(RtfFileAction action, int parameter, RtfNumber number) {
    switch (action) {
    case RtfFileAction::CodePage:
        m_codePage = parameter != 0 ? parameter : number.value_or(0);
        break;
    case RtfFileAction::DefaultFont:
        Look().font = m_defaultFont = number.value_or(0);
        break;
    case RtfFileAction::DefaultTab:
        m_defaultTab = std::clamp(number.value_or(0), 1, kLongestRtfLength);
        break;
    case RtfFileAction::FontCharset:
        m_tables.FontCodePage(CodePageOfCharset(number.value_or(1), m_codePage));
        break;
    case RtfFileAction::FontCodePage:
        m_tables.FontCodePage(number.value_or(m_codePage));
        break;
    case RtfFileAction::ColorPart:
        m_tables.ColorPart(parameter, number.value_or(0));
        break;
    case RtfFileAction::SectionBreaks:
        m_sectionStartsPage = parameter != 0;
        break;
    }
}

void RtfParser::Run(RtfGroupAction action, int parameter, RtfNumber number) {
    switch (action) {
    case RtfGroupAction::Place:
        Top().place = static_cast<RtfPlace>(parameter);
        break;
    case RtfGroupAction::Font:
        Font(number.value_or(0));
        break;
    case RtfGroupAction::PlainCharacters:
        Look() = {.font = m_defaultFont};
        break;
    case RtfGroupAction::PlainParagraph:
        Paragraph() = {};
        Top().inTable = false;
        break;
    case RtfGroupAction::TabType:
        m_tabType = parameter;
        break;
    case RtfGroupAction::Tab:
        Tab(std::clamp(number.value_or(0), 0, kLongestRtfLength));
        break;
    case RtfGroupAction::InTable:
        Top().inTable = number != 0;
        break;
    case RtfGroupAction::FallbackLength:
        Top().fallbackLength = std::max(0, number.value_or(1));
        break;
    }
}

void RtfParser::Run(RtfCharacterAction action, int parameter, RtfNumber number) {
    Apply(action, parameter, number, Look());
}

void RtfParser::Run(RtfParagraphAction action, int parameter, RtfNumber number) {
    Apply(action, parameter, number, Paragraph());
}

void RtfParser::Run(RtfTextAction action, int parameter, RtfNumber number) {
    switch (action) {
    case RtfTextAction::Character:
        Text(QString(QChar(parameter)));
        break;
    case RtfTextAction::Unicode:
        Unicode(number.value_or('?'));
        break;
    case RtfTextAction::EndParagraph:
        EndParagraph();
        break;
    case RtfTextAction::BreakPage:
        if (InBody())
            m_flow.BreakPage(Paragraph(), Look());
        break;
    case RtfTextAction::EndSection:
        EndSection();
        break;
    case RtfTextAction::NewRow:
        m_cellEdges.clear();
        break;
    case RtfTextAction::CellEdge:
        CellEdge(std::clamp(number.value_or(0), 0, kLongestRtfLength));
        break;
    case RtfTextAction::EndCell:
        if (InBody())
            m_flow.EndCell();
        break;
    case RtfTextAction::EndRow:
        EndRow();
        break;
    }
}

void RtfParser::Bytes(QByteArrayView bytes) {
    const qsizetype skipped = std::min<qsizetype>(m_toSkip, bytes.size());
    m_toSkip -= static_cast<int>(skipped);
    if (Top().place != RtfPlace::Nowhere)
        m_bytes.append(bytes.sliced(skipped));
}

int RtfParser::CodePage() const {
    const Group& group = m_groups.back();
    if (group.place == RtfPlace::FontTable)
        return m_tables.FontCodePage();
    return m_tables.CodePageOf(group.characters.font, m_codePage);
}

// Bytes of one character may come in several tokens, so they are gathered first.
void RtfParser::FlushBytes() {
    if (m_bytes.isEmpty())
        return;
    Text(m_codePages.Decode(m_bytes, CodePage()));
    m_bytes.clear();
}

void RtfParser::Text(const QString& text) {
    switch (Top().place) {
    case RtfPlace::Body:
        m_flow.Append(text, Look());
        break;
    case RtfPlace::Label:
        m_label.append(text);
        break;
    case RtfPlace::FontTable:
        m_tables.FontText(text);
        break;
    case RtfPlace::ColorTable:
        m_tables.ColorText(text);
        break;
    case RtfPlace::Nowhere:
        break;
    }
}

void RtfParser::Font(int number) {
    Look().font = number;
    if (Top().place == RtfPlace::FontTable)
        m_tables.StartFont(number, m_codePage);
}

void RtfParser::Tab(int twips) {
    auto& tabs = Paragraph().tabs;
    if (tabs.size() < kMostTabs)
        tabs.push_back({twips, m_tabType});
    m_tabType = QTextOption::LeftTab;
}

// The units of a pair of surrogates come one by one, as negative values.
void RtfParser::Unicode(int value) {
    const auto code = static_cast<char32_t>(value < 0 ? value + 0x10000 : value);
    if (code < 0x10000)
        Text(QString(QChar(static_cast<char16_t>(code))));
    else if (code <= QChar::LastValidCodePoint)
        Text(QString::fromUcs4(&code, 1));
    m_toSkip = Top().fallbackLength;
}

void RtfParser::EndParagraph() {
    if (!InBody())
        return;
    if (Top().inTable)
        m_flow.BreakCellLine();
    else
        m_flow.EndParagraph(Paragraph(), Look());
}

void RtfParser::EndSection() {
    if (!InBody())
        return;
    m_flow.EndParagraph(Paragraph(), Look());
    if (m_sectionStartsPage)
        m_flow.BreakPage(Paragraph(), Look());
}

void RtfParser::CellEdge(int twips) {
    if (m_cellEdges.size() < kMostTabs)
        m_cellEdges.push_back(twips);
}

// The cells' left edges become the tabs of the paragraph.
void RtfParser::EndRow() {
    if (!InBody())
        return;
    RtfParagraph row;
    for (size_t i = 0; i + 1 < m_cellEdges.size(); ++i)
        row.tabs.push_back({m_cellEdges[i], QTextOption::LeftTab});
    m_flow.EndParagraph(row, Look());
}

} // namespace platform
