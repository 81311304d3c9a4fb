// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/rtf/RtfParser.h"

namespace platform {
namespace {

constexpr size_t kDeepest = 1000;      // groups in groups
constexpr qsizetype kLongestName = 64; // of a font

} // namespace

RtfResult RtfParser::Read() {
    m_groups.emplace_back(); // around the file's own
    std::optional<RtfResult> result;
    while (!result)
        result = Step();
    m_flow.Finish(Paragraph(), Look(), m_defaultTab);
    return *result;
}

// Nothing while the file goes on.
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
    if (Top().place == Place::FontTable)
        CommitFont();
    if (Top().place == Place::Label && m_groups[m_groups.size() - 2].place == Place::Body)
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
    static const OrderTable orders = MakeOrders();
    const auto found = orders.find(name);
    if (found == orders.end() && afterStar)
        Top().place = Place::Nowhere; // a group that the writer takes for dispensable
    if (found == orders.end() || Top().place == Place::Nowhere)
        return;
    const Order& order = found->second;
    const bool fallback = order.run == &RtfParser::Character && m_toSkip > 0;
    m_toSkip = fallback ? m_toSkip - 1 : 0;
    if (!fallback)
        (this->*order.run)(order.fixed, token.number);
}

void RtfParser::Bytes(QByteArrayView bytes) {
    const qsizetype skipped = std::min<qsizetype>(m_toSkip, bytes.size());
    m_toSkip -= static_cast<int>(skipped);
    if (Top().place != Place::Nowhere)
        m_bytes.append(bytes.sliced(skipped));
}

int RtfParser::CodePage() const {
    const Group& group = m_groups.back();
    if (group.place == Place::FontTable)
        return m_font.codePage;
    const auto page = m_fontPages.find(group.characters.font);
    return page == m_fontPages.end() ? m_codePage : page->second;
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
    case Place::Body:
        m_flow.Append(text, Look());
        break;
    case Place::Label:
        m_label.append(text);
        break;
    case Place::FontTable:
        FontTableText(text);
        break;
    case Place::ColorTable:
        ColorTableText(text);
        break;
    case Place::Nowhere:
        break;
    }
}

void RtfParser::FontTableText(const QString& text) {
    for (const QChar c : text) {
        if (c == u';')
            CommitFont();
        else if (m_font.name.size() < kLongestName)
            m_font.name.append(c);
    }
}

void RtfParser::CommitFont() {
    const QString name = std::exchange(m_font.name, {}).trimmed();
    if (name.isEmpty() || m_fontPages.size() == RtfFormats::kMost)
        return;
    m_formats.AddFont(m_font.number, name);
    m_fontPages.try_emplace(m_font.number, m_font.codePage);
}

void RtfParser::ColorTableText(const QString& text) {
    for (qsizetype i = text.count(u';'); i > 0; --i)
        m_formats.AddColor(std::exchange(m_color, std::nullopt));
}

} // namespace platform
