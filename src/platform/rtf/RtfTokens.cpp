// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/rtf/RtfTokens.h"

#include <algorithm>

namespace platform {
namespace {

constexpr int kLargestNumber = 1'000'000'000; // larger ones count as this

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Of a hexadecimal digit, or -1.
int HexValue(char c) {
    if (IsDigit(c))
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool IsLineEnd(char c) {
    return c == '\r' || c == '\n';
}

bool EndsText(char c) {
    return c == '\\' || c == '{' || c == '}' || IsLineEnd(c);
}

} // namespace

QByteArrayView RtfTokens::Take(qsizetype count) {
    const QByteArrayView taken = m_bytes.sliced(m_at, count);
    m_at += count;
    return taken;
}

bool RtfTokens::Skip(qsizetype count) {
    const qsizetype there = std::min(count, m_bytes.size() - m_at);
    m_at += there;
    return there == count;
}

RtfToken RtfTokens::Next() {
    while (HasMore() && IsLineEnd(Peek()))
        ++m_at;
    if (!HasMore())
        return {};
    switch (Peek()) {
    case '{':
        return {RtfToken::Kind::Open, Take(1)};
    case '}':
        return {RtfToken::Kind::Close, Take(1)};
    case '\\':
        return Control();
    default:
        return Text();
    }
}

RtfToken RtfTokens::Text() {
    const auto rest = m_bytes.sliced(m_at);
    const auto* end = std::find_if(rest.begin(), rest.end(), EndsText);
    return {RtfToken::Kind::Text, Take(end - rest.begin())};
}

RtfToken RtfTokens::Control() {
    ++m_at; // the backslash
    if (!HasMore())
        return {};
    if (Peek() == '\'')
        return HexByte();
    if (!IsLetter(Peek()))
        return {RtfToken::Kind::Symbol, Take(1)};
    const auto rest = m_bytes.sliced(m_at);
    const auto* end = std::find_if_not(rest.begin(), rest.end(), IsLetter);
    RtfToken word{RtfToken::Kind::Word, Take(end - rest.begin())};
    word.number = Number();
    if (Peek() == ' ')
        ++m_at; // belongs to the word
    return word;
}

std::optional<int> RtfTokens::Number() {
    const qsizetype start = m_at;
    const bool negative = Peek() == '-';
    if (negative)
        ++m_at;
    if (!IsDigit(Peek())) {
        m_at = start;
        return std::nullopt;
    }
    qint64 value = 0;
    for (; IsDigit(Peek()); ++m_at)
        value = std::min<qint64>(value * 10 + (Peek() - '0'), kLargestNumber);
    return static_cast<int>(negative ? -value : value);
}

// What isn't two hexadecimal digits gives an empty text.
RtfToken RtfTokens::HexByte() {
    ++m_at; // the quote
    const int high = HexValue(Peek());
    const int low = high < 0 || m_at + 1 == m_bytes.size() ? -1 : HexValue(m_bytes[m_at + 1]);
    if (low < 0)
        return {RtfToken::Kind::Byte, {}};
    m_at += 2;
    m_byte = static_cast<char>(high * 16 + low);
    return {RtfToken::Kind::Byte, QByteArrayView(&m_byte, 1)};
}

} // namespace platform
