// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/write/Indentation.h"

#include "documents/editor/lua/Tokens.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

namespace documents {
namespace {

using std::string_view;

constexpr size_t kWidestStep = 8;

// What closes a block and the words that open it.
struct Pair {
    string_view closer;
    std::array<string_view, 3> openers;
};
constexpr std::array kPairs = {
    Pair{"end", {"do", "function", "if"}},
    Pair{"until", {"repeat"}},
    Pair{"else", {"if"}},
    Pair{"elseif", {"if"}},
    Pair{"}", {"{"}},
    Pair{")", {"("}},
};
// Those that stand between an opener and its end.
constexpr std::array<string_view, 2> kMiddles = {"else", "elseif"};
// Behind these at the end of a line the next one goes further in.
constexpr std::array<string_view, 6> kLineOpeners = {"then", "do", "else", "repeat", "{", "("};

template<class Range>
bool Has(const Range& words, string_view word) {
    return !word.empty() && std::find(words.begin(), words.end(), word) != words.end();
}

bool Opens(string_view word) {
    return std::any_of(kPairs.begin(), kPairs.end(),
                       [&](const Pair& pair) { return Has(pair.openers, word); });
}

const Pair* PairOf(string_view closer) {
    const auto pair = std::find_if(kPairs.begin(), kPairs.end(),
                                   [&](const Pair& one) { return one.closer == closer; });
    return pair == kPairs.end() ? nullptr : &*pair;
}

string_view IndentOf(string_view line) {
    return line.substr(0, std::min(line.find_first_not_of(" \t"), line.size()));
}

bool IsBlank(string_view line) {
    return IndentOf(line).size() == line.size();
}

string_view Chars(QByteArrayView bytes) {
    return {bytes.data(), static_cast<size_t>(bytes.size())};
}

QByteArray ToBytes(string_view text) {
    return {text.data(), static_cast<qsizetype>(text.size())};
}

// The line with the byte at `position`, without its line end.
string_view LineAt(string_view text, size_t position) {
    const size_t before =
        position == 0 ? string_view::npos : text.find_last_of("\r\n", position - 1);
    const size_t start = before == string_view::npos ? 0 : before + 1;
    return text.substr(start, text.find_first_of("\r\n", position) - start);
}

// The last line of a text that ends in a line end.
string_view LastLine(string_view text) {
    text.remove_suffix(text.size() > 1 && text.substr(text.size() - 2) == "\r\n" ? 2 : 1);
    return LineAt(text, text.size());
}

string_view LastFilledLine(string_view text) {
    const size_t last = text.find_last_not_of("\r\n");
    return last == string_view::npos ? string_view() : LineAt(text, last);
}

// The words and symbols of a text; a string or comment counts as nothing.
class Code {
public:
    explicit Code(string_view text) : m_text(text) {
        Tokens tokens(text);
        while (const std::optional<Token> token = tokens.Next()) {
            m_open = token->end == text.size() && IsOpen(*token);
            if (!token->IsComment())
                m_tokens.push_back(*token);
        }
    }
    size_t Count() const { return m_tokens.size(); }
    bool EndsInQuote() const { return m_open; }
    size_t Begin(size_t index) const { return m_tokens[index].begin; }
    string_view Word(size_t index) const {
        const Token& token = m_tokens[index];
        return token.IsString() ? string_view() : token.In(m_text);
    }
    bool IsNamePart(size_t index) const {
        const string_view word = Word(index);
        return m_tokens[index].kind == TokenKind::Name || word == "." || word == ":";
    }
    // The opener that the closer before token `end` belongs to, by counting; nothing is checked.
    std::optional<size_t> Opener(size_t end) const {
        int depth = 0;
        for (size_t i = end; i-- > 0;) {
            const string_view word = Word(i);
            if (Opens(word) && depth-- == 0)
                return i;
            if (PairOf(word) && !Has(kMiddles, word))
                ++depth;
        }
        return std::nullopt;
    }

private:
    static bool IsOpen(const Token& token) {
        return token.kind == TokenKind::LineComment || !token.closed;
    }

    string_view m_text;
    std::vector<Token> m_tokens;
    bool m_open = false;
};

// Whether the bracket at the end closes what a function takes: function a.b:c(x)
bool EndsFunctionHead(const Code& code) {
    const std::optional<size_t> bracket = code.Opener(code.Count() - 1);
    if (!bracket || code.Word(*bracket) != "(")
        return false;
    size_t at = *bracket;
    while (at > 0 && code.IsNamePart(at - 1))
        --at;
    return at > 0 && code.Word(at - 1) == "function";
}

bool OpensBlock(const Code& code) {
    if (code.Count() == 0)
        return false;
    const string_view word = code.Word(code.Count() - 1);
    return Has(kLineOpeners, word) || (word == ")" && EndsFunctionHead(code));
}

string_view FirstWord(string_view line) {
    const std::optional<Token> token = Tokens(line).Next();
    return token ? token->In(line) : string_view();
}

// The blanks by which a line is further in than the one before it, if they can be a step.
string_view Step(string_view before, string_view indent) {
    const bool further = indent.size() > before.size() && indent.substr(0, before.size()) == before;
    const string_view step = further ? indent.substr(before.size()) : string_view();
    const bool blanks = step.size() <= kWidestStep && step.find('\t') == string_view::npos;
    return blanks || step == "\t" ? step : string_view();
}

} // namespace

QByteArray IndentUnit(QByteArrayView text, const QByteArray& fallback) {
    const string_view lines = Chars(text);
    std::map<string_view, int> counts;
    string_view before;
    for (size_t at = 0; at < lines.size();) {
        const string_view line = LineAt(lines, at);
        at += line.size() + 1;
        if (IsBlank(line))
            continue;
        const string_view indent = IndentOf(line);
        if (const string_view step = Step(std::exchange(before, indent), indent); !step.empty())
            ++counts[step];
    }
    const auto fewer = [](const auto& a, const auto& b) { return a.second < b.second; };
    const auto most = std::max_element(counts.begin(), counts.end(), fewer);
    return most == counts.end() ? fallback : ToBytes(most->first);
}

bool IsCloser(QByteArrayView word) {
    return PairOf(Chars(word)) != nullptr;
}

bool EndsInQuote(QByteArrayView text) {
    return Code(Chars(text)).EndsInQuote();
}

NewLine BeginLine(QByteArrayView lines, QByteArrayView line, const QByteArray& unit) {
    const string_view above = Chars(lines);
    const string_view rest = Chars(line);
    const string_view cut = LastLine(above);
    if (IsBlank(cut) && !IsBlank(rest)) // within the indent
        return {ToBytes(cut) + ToBytes(IndentOf(rest))};
    const string_view last = LastFilledLine(above);
    const QByteArray indent = ToBytes(IndentOf(last));
    const Code code(above);
    if (code.EndsInQuote() || code.Count() == 0)
        return {indent};
    const bool opens =
        OpensBlock(code) && above.data() + code.Begin(code.Count() - 1) >= last.data();
    const bool closes = PairOf(FirstWord(rest)) != nullptr;
    if (opens && closes)
        return {indent + unit, indent};
    if (opens)
        return {indent + unit};
    return {closes ? CloserIndent(lines, line).value_or(indent) : indent};
}

std::optional<QByteArray> CloserIndent(QByteArrayView lines, QByteArrayView line) {
    const string_view above = Chars(lines);
    const Pair* pair = PairOf(FirstWord(Chars(line)));
    const Code code(above);
    if (!pair || code.EndsInQuote())
        return std::nullopt;
    const std::optional<size_t> opener = code.Opener(code.Count());
    if (!opener || !Has(pair->openers, code.Word(*opener)))
        return std::nullopt;
    return ToBytes(IndentOf(LineAt(above, code.Begin(*opener))));
}

} // namespace documents
