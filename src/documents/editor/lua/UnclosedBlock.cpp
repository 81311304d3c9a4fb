// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/UnclosedBlock.h"

#include "documents/editor/lua/ScriptParser.h"
#include "documents/editor/lua/Tokens.h"

#include <algorithm>
#include <array>
#include <vector>

namespace documents {
namespace {

constexpr std::size_t kTabColumns = 4;

template<std::size_t Count>
bool IsOneOf(const std::array<std::string_view, Count>& words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

constexpr std::array<std::string_view, 8> kOpeners = {"function", "if", "for", "while",
                                                      "repeat",   "(",  "[",   "{"};
constexpr std::array<std::string_view, 5> kClosers = {"end", "until", ")", "]", "}"};
// Of a block's lines those that begin as its first one does.
constexpr std::array<std::string_view, 6> kEdges = {"end", "until", "else", "elseif", "then", "do"};

struct Block {
    std::string_view word;
    std::size_t line;
    std::size_t indent; // of the line
    bool awaitsDo;
    bool isDeeper; // its second line is indented more than its first

    bool IsBracket() const { return !(word.front() >= 'a' && word.front() <= 'z'); }
};

class Reader {
public:
    std::optional<BlockOpener> Read(std::string_view text) {
        Tokens tokens(text);
        std::size_t end = 0;
        while (const std::optional<Token> token = tokens.Next()) {
            const std::size_t lines = LineEnds(text.substr(end, token->begin - end));
            m_line += lines;
            if (!token->IsComment()) {
                if ((lines > 0 || end == 0) && IsLeft(text, *token))
                    return BlockOpener{m_open.back().word, m_open.back().line};
                Take(token->In(text));
            }
            m_line += LineEnds(token->In(text));
            end = token->end;
        }
        return {};
    }

private:
    // Whether the innermost block ends before the token, which begins a line.
    bool IsLeft(std::string_view text, const Token& token) {
        m_indent = Indent(text, token.begin);
        if (m_open.empty() || m_open.back().IsBracket())
            return false;
        Block& block = m_open.back();
        if (m_indent > block.indent)
            block.isDeeper = true;
        const bool isEdge = IsOneOf(kEdges, token.In(text));
        return block.isDeeper && (isEdge ? m_indent < block.indent : m_indent <= block.indent);
    }

    static std::size_t Indent(std::string_view text, std::size_t at) {
        std::size_t columns = 0;
        for (; at > 0 && (text[at - 1] == ' ' || text[at - 1] == '\t'); --at)
            columns += text[at - 1] == '\t' ? kTabColumns : 1;
        return columns;
    }

    void Take(std::string_view word) {
        if (word == "do" && !m_open.empty() && m_open.back().awaitsDo)
            m_open.back().awaitsDo = false;
        else if (word == "do" || IsOneOf(kOpeners, word))
            m_open.push_back({word, m_line, m_indent, word == "for" || word == "while", false});
        else if (!m_open.empty() && IsOneOf(kClosers, word))
            m_open.pop_back();
    }

    std::vector<Block> m_open;
    std::size_t m_line = 1;
    std::size_t m_indent = 0; // of the line
};

} // namespace

std::optional<BlockOpener> UnclosedBlock(std::string_view text) {
    return Reader().Read(text);
}

} // namespace documents
