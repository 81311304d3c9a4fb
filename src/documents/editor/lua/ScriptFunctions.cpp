// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/ScriptFunctions.h"

#include "documents/editor/lua/Tokens.h"

#include <algorithm>

namespace documents {
namespace {

// The tokens of a script, without comments, and what is said of them by place.
class Reader {
public:
    explicit Reader(std::string_view text) : m_text(text), m_tokens(Tokenize(text)) {
        m_tokens.erase(std::remove_if(m_tokens.begin(), m_tokens.end(),
                                      [](const Token& token) { return token.IsComment(); }),
                       m_tokens.end());
    }

    std::size_t Size() const { return m_tokens.size(); }
    std::size_t Begin(std::size_t index) const { return m_tokens[index].begin; }
    std::string_view Word(std::size_t index) const {
        return index < Size() ? m_tokens[index].In(m_text) : std::string_view();
    }
    bool IsName(std::size_t index) const {
        return index < Size() && m_tokens[index].kind == TokenKind::Name;
    }
    bool IsLink(std::size_t index) const { return Word(index) == "." || Word(index) == ":"; }

    // Behind the last token of the name that begins with this one, as a.b:c does.
    std::size_t NameEnd(std::size_t first) const {
        std::size_t end = IsName(first) ? first + 1 : first;
        while (end > first && IsLink(end) && IsName(end + 1))
            end += 2;
        return end;
    }
    // The first token of the name that ends before this one.
    std::size_t NameStart(std::size_t end) const {
        std::size_t start = end > 0 && IsName(end - 1) ? end - 1 : end;
        while (start < end && start > 1 && IsLink(start - 1) && IsName(start - 2))
            start -= 2;
        return start;
    }
    std::string Words(std::size_t first, std::size_t end) const {
        std::string words;
        for (std::size_t index = first; index < end; ++index)
            words += Word(index);
        return words;
    }
    // In brackets; empty if there are none.
    std::string Parameters(std::size_t bracket) const {
        if (Word(bracket) != "(")
            return "";
        std::string list = "(";
        for (std::size_t index = bracket + 1; IsName(index) || Word(index) == "..."; index += 2) {
            list += list.size() > 1 ? ", " : "";
            list += Word(index);
        }
        return list + ")";
    }

private:
    std::string_view m_text;
    std::vector<Token> m_tokens;
};

} // namespace

std::vector<ScriptFunction> Functions(std::string_view text) {
    const Reader reader(text);
    std::vector<ScriptFunction> functions;
    for (std::size_t index = 0; index < reader.Size(); ++index) {
        if (reader.Word(index) != "function")
            continue;
        std::size_t first = index + 1;
        std::size_t end = reader.NameEnd(first);
        const std::string parameters = reader.Parameters(end);
        if (end == first && index > 0 && reader.Word(index - 1) == "=") {
            end = index - 1;
            first = reader.NameStart(end);
        }
        if (first < end)
            functions.push_back({reader.Words(first, end) + parameters, reader.Begin(first)});
    }
    return functions;
}

} // namespace documents
