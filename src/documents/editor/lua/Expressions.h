// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/lua/Calls.h"
#include "documents/editor/lua/Tokens.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace documents {

/// What the expressions of a script stand for, as far as its text tells. Places are indices of
/// tokens, among which no comments are. The text must live on.
class Expressions {
public:
    /// The value of an expression: its kind, and its library if it's the table of one.
    struct Meaning {
        ValueKind kind = ValueKind::Any;
        std::string_view library;
    };
    /// Parentheses of a call that are open at the end of the text.
    struct OpenCall {
        std::size_t open = 0;
        std::size_t commas = 0;
    };

    explicit Expressions(std::string_view text);

    std::size_t Size() const { return m_tokens.size(); }
    const Token& At(std::size_t place) const { return m_tokens[place]; }
    std::string_view Text(std::size_t place) const { return At(place).In(m_text); }
    bool IsName(std::size_t place) const;
    /// Whether the text ends within a comment or a string.
    bool EndsInText() const { return m_endsInText; }

    /// What ends just before the place.
    Meaning EndingAt(std::size_t end) const;
    /// The call that a name means, by what stands before it; null for an unknown one.
    const Call* Named(std::size_t name) const;
    /// The '.' or ':' just before the place, or 0.
    char LinkBefore(std::size_t place) const;
    /// The innermost at the end of the text.
    std::optional<OpenCall> Enclosing() const;

private:
    bool IsSymbol(std::size_t place, std::string_view symbol) const;
    bool IsWord(std::size_t place, std::string_view word) const;
    int Nesting(std::size_t place) const;
    std::size_t Opener(std::size_t closer) const;
    std::size_t EndOfGroup(std::size_t opener) const;
    std::size_t EndOfSuffixes(std::size_t start) const;
    std::size_t StartOfPath(std::size_t name) const;
    bool Assigns(std::size_t at, std::size_t path, std::size_t length) const;
    std::optional<Meaning> Assigned(std::size_t path, std::size_t length) const;
    std::optional<Meaning> StartingAt(std::size_t start) const;
    Meaning Combined(std::size_t start) const;
    Meaning OfName(std::size_t name) const;
    Meaning OfField(std::size_t name) const;
    Meaning OfGroup(std::size_t closer) const;
    Meaning Result(std::size_t name) const;
    bool IsDefined(std::size_t name) const;
    bool IsInBlock(std::size_t place, int& blocks) const;

    std::string_view m_text;
    std::vector<Token> m_tokens;
    bool m_endsInText = false;
    mutable int m_steps = 64; // that are left: a script may assign in long chains
};

/// The call by its name and what stands before it; null for an unknown one.
const Call* FindCall(const Expressions::Meaning& receiver, char link, std::string_view name);

} // namespace documents
