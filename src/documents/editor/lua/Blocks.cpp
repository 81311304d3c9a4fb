// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/Blocks.h"

#include "documents/editor/lua/Tokens.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace documents {
namespace {

constexpr std::size_t kNone = SIZE_MAX;

} // namespace

Blocks::Blocks(std::string_view text) {
    Tokens tokens(text);
    while (const std::optional<Token> token = tokens.Next()) {
        if (token->kind == TokenKind::Keyword || token->kind == TokenKind::Symbol)
            Take(token->In(text), {token->begin, token->end});
    }
}

void Blocks::Take(std::string_view word, Span span) {
    enum class Role { Starts, Finishes, Continues };
    struct Row {
        std::string_view word;
        Role role;
        Family family;
    };
    using enum Role;
    constexpr std::array kRows = {
        Row{"function", Starts, kEnd},  Row{"if", Starts, kEnd},       Row{"for", Starts, kEnd},
        Row{"while", Starts, kEnd},     Row{"repeat", Starts, kUntil}, Row{"(", Starts, kRound},
        Row{"[", Starts, kSquare},      Row{"{", Starts, kCurly},      Row{"end", Finishes, kEnd},
        Row{"until", Finishes, kUntil}, Row{")", Finishes, kRound},    Row{"]", Finishes, kSquare},
        Row{"}", Finishes, kCurly},     Row{"do", Continues, kEnd},    Row{"then", Continues, kEnd},
        Row{"else", Continues, kEnd},   Row{"elseif", Continues, kEnd}};
    const auto* const row =
        std::find_if(kRows.begin(), kRows.end(), [&](const Row& one) { return one.word == word; });
    if (row == kRows.end())
        return;
    m_parts.push_back({span, kNone});
    if (row->family <= kUntil && row->role != Finishes && word != "function")
        LeaveBrackets();
    if (row->role == Starts)
        Start(row->family, word);
    else if (row->role == Finishes)
        Finish(row->family);
    else
        Continue(word);
}

// A statement can't go on inside a bracket, so those that are open lack their ends.
void Blocks::LeaveBrackets() {
    while (!m_open.empty() && m_open.back().family > kUntil)
        Pop();
}

Blocks::Open Blocks::Pop() {
    const Open last = m_open.back();
    m_open.pop_back();
    --m_counts[last.family];
    return last;
}

void Blocks::Start(Family family, std::string_view word) {
    m_open.push_back({m_parts.size() - 1, family, word, word == "for" || word == "while"});
    ++m_counts[family];
}

// What is still open inside lacks its end.
void Blocks::Finish(Family family) {
    if (m_counts[family] == 0)
        return;
    Open open = Pop();
    while (open.family != family)
        open = Pop();
    m_parts[open.part].other = m_parts.size() - 1;
    m_parts.back().other = open.part;
}

void Blocks::Continue(std::string_view word) {
    const bool isLoop = word == "do";
    Open* const block = m_open.empty() ? nullptr : &m_open.back();
    if (block && (isLoop ? block->awaitsDo : block->word == "if")) {
        m_parts.back().other = block->part;
        block->awaitsDo = false;
    } else if (isLoop) {
        Start(kEnd, word);
    }
}

std::optional<BlockMatch> Blocks::At(std::size_t position) const {
    auto part =
        std::upper_bound(m_parts.begin(), m_parts.end(), position,
                         [](std::size_t at, const Part& one) { return at < one.span.begin; });
    if (part == m_parts.begin() || (--part)->span.end < position || part->other == kNone)
        return {};
    return BlockMatch{part->span, m_parts[part->other].span};
}

} // namespace documents
