// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/Tokens.h"

#include <algorithm>
#include <array>

namespace documents {
namespace {

constexpr std::array<std::string_view, 21> kKeywords = {
    "and",   "break", "do",  "else", "elseif", "end",    "false", "for",  "function", "if",   "in",
    "local", "nil",   "not", "or",   "repeat", "return", "then",  "true", "until",    "while"};
constexpr std::array<std::string_view, 6> kSymbols = {"...", "..", "==", "~=", "<=", ">="};

bool IsDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

bool IsNameStart(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_';
}

bool IsNamePart(char byte) {
    return IsNameStart(byte) || IsDigit(byte);
}

bool IsBlank(char byte) {
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

bool IsLineEnd(char byte) {
    return byte == '\n' || byte == '\r';
}

bool IsInside(char byte) { // a UTF-8 character: not its first byte
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

} // namespace

std::span<const std::string_view> Keywords() {
    return kKeywords;
}

bool IsKeyword(std::string_view word) {
    constexpr std::size_t kLongest = 8;
    return word.size() > 1 && word.size() <= kLongest &&
           std::find(kKeywords.begin(), kKeywords.end(), word) != kKeywords.end();
}

char Tokens::Ahead(std::size_t distance) const {
    return m_at + distance < m_text.size() ? m_text[m_at + distance] : '\0';
}

template<class Predicate>
void Tokens::SkipWhile(Predicate isPart) {
    while (m_at < m_text.size() && isPart(m_text[m_at]))
        ++m_at;
}

// The length of a "[==[" here, or 0.
std::size_t Tokens::LongBracket() const {
    if (Ahead() != '[')
        return 0;
    std::size_t length = 1;
    while (Ahead(length) == '=')
        ++length;
    return Ahead(length) == '[' ? length + 1 : 0;
}

void Tokens::SkipLong(std::size_t bracket, Token& token) {
    m_at += bracket;
    while ((m_at = m_text.find(']', m_at)) != std::string_view::npos) {
        const std::size_t start = m_at++;
        SkipWhile([](char byte) { return byte == '='; });
        if (Ahead() == ']' && m_at - start + 1 == bracket) {
            ++m_at;
            return;
        }
    }
    m_at = m_text.size();
    token.closed = false;
}

void Tokens::SkipString(Token& token) {
    const char quote = m_text[m_at++];
    for (; m_at < m_text.size() && !IsLineEnd(m_text[m_at]); ++m_at) {
        if (m_text[m_at] == quote) {
            ++m_at;
            return;
        }
        if (m_text[m_at] == '\\') // of a CR LF it takes both
            m_at += Ahead(1) == '\r' && Ahead(2) == '\n' ? 2 : 1;
    }
    m_at = std::min(m_at, m_text.size());
    token.closed = false;
}

void Tokens::SkipComment(Token& token, std::size_t bracket) {
    token.kind = bracket == 0 ? TokenKind::LineComment : TokenKind::LongComment;
    if (bracket == 0)
        SkipWhile([](char byte) { return !IsLineEnd(byte); });
    else
        SkipLong(bracket, token);
}

void Tokens::SkipNumber() {
    SkipWhile([](char byte) { return IsDigit(byte) || byte == '.'; });
    if (Ahead() == 'e' || Ahead() == 'E')
        m_at += Ahead(1) == '+' || Ahead(1) == '-' ? 2 : 1;
    SkipWhile(IsNamePart);
}

void Tokens::SkipSymbol() {
    const std::string_view rest = m_text.substr(m_at, 3);
    const auto* const symbol =
        std::find_if(kSymbols.begin(), kSymbols.end(),
                     [&](std::string_view known) { return rest.starts_with(known); });
    if (symbol != kSymbols.end()) {
        m_at += symbol->size();
    } else {
        ++m_at;
        SkipWhile(IsInside);
    }
}

void Tokens::Skip(Token& token) {
    const char first = m_text[m_at];
    if (IsNameStart(first)) {
        SkipWhile(IsNamePart);
        const bool isKeyword = IsKeyword(m_text.substr(token.begin, m_at - token.begin));
        token.kind = isKeyword ? TokenKind::Keyword : TokenKind::Name;
    } else if (IsDigit(first) || (first == '.' && IsDigit(Ahead(1)))) {
        token.kind = TokenKind::Number;
        SkipNumber();
    } else if (first == '"' || first == '\'') {
        token.kind = TokenKind::String;
        SkipString(token);
    } else if (first == '#' && m_at == 0) {
        SkipComment(token, 0);
    } else if (first == '-' && Ahead(1) == '-') {
        m_at += 2;
        SkipComment(token, LongBracket());
    } else if (const std::size_t bracket = LongBracket()) {
        token.kind = TokenKind::LongString;
        SkipLong(bracket, token);
    } else {
        SkipSymbol();
    }
}

std::optional<Token> Tokens::Next() {
    SkipWhile(IsBlank);
    if (m_at >= m_text.size())
        return {};
    Token token;
    token.begin = m_at;
    Skip(token);
    token.end = m_at;
    return token;
}

std::vector<Token> Tokenize(std::string_view text) {
    std::vector<Token> all;
    Tokens tokens(text);
    while (const std::optional<Token> token = tokens.Next())
        all.push_back(*token);
    return all;
}

} // namespace documents
