// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace documents {

enum class TokenKind {
    Name,
    Keyword,
    Number, ///< as far as Lua reads it as one, malformed or not
    String, ///< in quotes, which it includes
    LongString,
    LineComment, ///< without the line end; a first line that begins with # is one too
    LongComment,
    Symbol, ///< an operator, or any one character that nothing of Lua begins with
};

/// A piece of a script, from the byte `begin` to before `end`; never empty.
struct Token {
    TokenKind kind = TokenKind::Symbol;
    std::size_t begin = 0;
    std::size_t end = 0;
    /// False for what lacks its end: a string stops at the line end then, a long one, or a long
    /// comment, at the end of the text.
    bool closed = true;

    std::string_view In(std::string_view text) const { return text.substr(begin, end - begin); }
    bool IsComment() const {
        return kind == TokenKind::LineComment || kind == TokenKind::LongComment;
    }
    bool IsString() const { return kind == TokenKind::String || kind == TokenKind::LongString; }
};

/// Cuts a script of UTF-8 into tokens, with blanks between them; any text can be cut, in linear
/// time. Bytes from 0x80 on belong to no name, as on the console.
class Tokens {
public:
    /// `from` is where a token begins, or a blank. The text must live on.
    explicit Tokens(std::string_view text, std::size_t from = 0) : m_text(text), m_at(from) {}

    /// The next one, or nothing at the end of the text.
    std::optional<Token> Next();

private:
    char Ahead(std::size_t distance = 0) const;
    std::size_t LongBracket() const;
    void SkipLong(std::size_t bracket, Token& token);
    void SkipString(Token& token);
    void SkipComment(Token& token, std::size_t bracket);
    void SkipNumber();
    void SkipSymbol();
    void Skip(Token& token);
    template<class Predicate>
    void SkipWhile(Predicate isPart);

    std::string_view m_text;
    std::size_t m_at;
};

std::vector<Token> Tokenize(std::string_view text);

std::span<const std::string_view> Keywords();
bool IsKeyword(std::string_view word);

} // namespace documents
