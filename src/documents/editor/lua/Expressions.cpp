// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/Expressions.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>
#include <string>

namespace documents {
namespace {

using Meaning = Expressions::Meaning;

struct WordRow {
    std::string_view word;
    ValueKind kind;
};

// What an expression is that begins so.
constexpr std::array kStarts = {
    WordRow{"true", ValueKind::Boolean}, WordRow{"false", ValueKind::Boolean},
    WordRow{"not", ValueKind::Boolean},  WordRow{"function", ValueKind::Function},
    WordRow{"{", ValueKind::Table},      WordRow{"#", ValueKind::Number},
    WordRow{"-", ValueKind::Number},
};

// What an operator makes of what stands before it.
constexpr std::array kOperators = {
    WordRow{"+", ValueKind::Number},   WordRow{"-", ValueKind::Number},
    WordRow{"*", ValueKind::Number},   WordRow{"/", ValueKind::Number},
    WordRow{"%", ValueKind::Number},   WordRow{"^", ValueKind::Number},
    WordRow{"..", ValueKind::Text},    WordRow{"<", ValueKind::Boolean},
    WordRow{">", ValueKind::Boolean},  WordRow{"<=", ValueKind::Boolean},
    WordRow{">=", ValueKind::Boolean}, WordRow{"==", ValueKind::Boolean},
    WordRow{"~=", ValueKind::Boolean}, WordRow{"and", ValueKind::Any},
};

// Words that no list of arguments holds, but in the body of a function.
constexpr std::array<std::string_view, 11> kStatements = {
    "local", "if", "then", "do", "while", "repeat", "return", "for", "else", "elseif", "until"};

bool IsStatement(std::string_view word) {
    return std::find(kStatements.begin(), kStatements.end(), word) != kStatements.end();
}

template<class Rows>
const WordRow* Find(const Rows& rows, std::string_view word) {
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const WordRow& row) { return row.word == word; });
    return found == rows.end() ? nullptr : &*found;
}

// People name a picture image, and a sound sound.
Meaning LikeItsName(std::string_view name) {
    std::string capital(name);
    capital[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(capital[0])));
    const Library* library = FindLibrary(capital);
    return {library && library->kind != ValueKind::Nothing ? library->kind : ValueKind::Any, {}};
}

} // namespace

const Call* FindCall(const Meaning& receiver, char link, std::string_view name) {
    const Call* method = link == ':' ? FindMethod(receiver.kind, name) : nullptr;
    return method || receiver.library.empty() ? method : FindCall(receiver.library, name);
}

Expressions::Expressions(std::string_view text) : m_text(text) {
    const std::vector<Token> all = Tokenize(text);
    std::copy_if(all.begin(), all.end(), std::back_inserter(m_tokens),
                 [](const Token& token) { return !token.IsComment(); });
    if (!all.empty() && all.back().end == text.size())
        m_endsInText = all.back().kind == TokenKind::LineComment || !all.back().closed;
}

bool Expressions::IsName(std::size_t place) const {
    return place < Size() && At(place).kind == TokenKind::Name;
}

bool Expressions::IsSymbol(std::size_t place, std::string_view symbol) const {
    return place < Size() && At(place).kind == TokenKind::Symbol && Text(place) == symbol;
}

bool Expressions::IsWord(std::size_t place, std::string_view word) const {
    return place < Size() && At(place).kind == TokenKind::Keyword && Text(place) == word;
}

char Expressions::LinkBefore(std::size_t place) const {
    const bool linked = place > 0 && (IsSymbol(place - 1, ".") || IsSymbol(place - 1, ":"));
    return linked ? Text(place - 1)[0] : '\0';
}

// 1 for an opening bracket, -1 for a closing one.
int Expressions::Nesting(std::size_t place) const {
    if (At(place).kind != TokenKind::Symbol)
        return 0;
    const char symbol = Text(place)[0];
    constexpr std::string_view kOpeners = "([{";
    constexpr std::string_view kClosers = ")]}";
    return kOpeners.find(symbol) != std::string_view::npos   ? 1
           : kClosers.find(symbol) != std::string_view::npos ? -1
                                                             : 0;
}

// The bracket that a closing one belongs to, or Size().
std::size_t Expressions::Opener(std::size_t closer) const {
    int depth = 0;
    for (std::size_t at = closer + 1; at-- > 0;) {
        depth -= Nesting(at);
        if (depth == 0)
            return at;
    }
    return Size();
}

// Behind the bracket that closes an opening one, or Size().
std::size_t Expressions::EndOfGroup(std::size_t opener) const {
    int depth = 0;
    for (std::size_t at = opener; at < Size(); ++at) {
        depth += Nesting(at);
        if (depth == 0)
            return at + 1;
    }
    return Size();
}

// Behind all fields, indices and arguments of what begins with a name or a parenthesis.
std::size_t Expressions::EndOfSuffixes(std::size_t start) const {
    std::size_t at = IsName(start) ? start + 1 : EndOfGroup(start);
    while (at < Size()) {
        if (IsSymbol(at, "(") || IsSymbol(at, "["))
            at = EndOfGroup(at);
        else if (At(at).IsString())
            ++at;
        else if ((IsSymbol(at, ".") || IsSymbol(at, ":")) && IsName(at + 1))
            at += 2;
        else
            break;
    }
    return at;
}

Meaning Expressions::EndingAt(std::size_t end) const {
    if (end == 0 || --m_steps <= 0)
        return {};
    const std::size_t last = end - 1;
    switch (At(last).kind) {
    case TokenKind::Name:
        return OfName(last);
    case TokenKind::Number:
        return {ValueKind::Number, {}};
    case TokenKind::String:
    case TokenKind::LongString: // maybe the argument of a call
        return last > 0 && IsName(last - 1) ? Result(last - 1) : Meaning{ValueKind::Text, {}};
    default:
        return OfGroup(last);
    }
}

// Of arguments, of parentheses around an expression, or of a table.
Meaning Expressions::OfGroup(std::size_t closer) const {
    if (IsSymbol(closer, "}"))
        return {ValueKind::Table, {}};
    const std::size_t opener = IsSymbol(closer, ")") ? Opener(closer) : Size();
    if (opener == Size())
        return {};
    const bool calls = opener > 0 && (IsName(opener - 1) || Nesting(opener - 1) < 0);
    if (!calls)
        return EndingAt(closer);
    return IsName(opener - 1) ? Result(opener - 1) : Meaning{};
}

Meaning Expressions::Result(std::size_t name) const {
    const Call* call = Named(name);
    return {call ? call->result : ValueKind::Any, {}};
}

const Call* Expressions::Named(std::size_t name) const {
    const char link = LinkBefore(name);
    if (link == '\0')
        return FindCall("", Text(name));
    return FindCall(EndingAt(name - 1), link, Text(name));
}

Meaning Expressions::OfName(std::size_t name) const {
    if (LinkBefore(name) != '\0')
        return OfField(name);
    if (const auto assigned = Assigned(name, 1))
        return *assigned;
    const Library* library = FindLibrary(Text(name));
    return library ? Meaning{library->kind, library->name} : LikeItsName(Text(name));
}

Meaning Expressions::OfField(std::size_t name) const {
    const Meaning owner = EndingAt(name - 1);
    if (!owner.library.empty()) {
        const Call* call = FindCall(owner, '.', Text(name));
        return {call && call->form == CallForm::Value ? call->result : ValueKind::Any, {}};
    }
    const std::size_t start = StartOfPath(name);
    return Assigned(start, name + 1 - start).value_or(Meaning{});
}

std::size_t Expressions::StartOfPath(std::size_t name) const {
    while (name >= 2 && LinkBefore(name) == '.' && IsName(name - 2))
        name -= 2;
    return name;
}

// Whether the same names as those from `path` on stand there, with a = behind them.
bool Expressions::Assigns(std::size_t at, std::size_t path, std::size_t length) const {
    if (!IsSymbol(at + length, "=") || LinkBefore(at) != '\0')
        return false;
    for (std::size_t i = 0; i < length; ++i)
        if (Text(at + i) != Text(path + i))
            return false;
    return true;
}

// The last one before it that isn't nil.
std::optional<Meaning> Expressions::Assigned(std::size_t path, std::size_t length) const {
    for (std::size_t at = path; at-- > 0;) {
        const std::size_t value = at + length + 1;
        if (value >= path || !Assigns(at, path, length))
            continue;
        if (const auto meaning = StartingAt(value))
            return meaning;
    }
    return {};
}

// Nothing for nil.
std::optional<Meaning> Expressions::StartingAt(std::size_t start) const {
    if (start >= Size() || IsWord(start, "nil"))
        return {};
    if (IsName(start) || IsSymbol(start, "("))
        return Combined(start);
    if (const WordRow* row = At(start).IsString() ? nullptr : Find(kStarts, Text(start)))
        return Meaning{row->kind, {}};
    return EndingAt(start + 1);
}

Meaning Expressions::Combined(std::size_t start) const {
    const std::size_t end = EndOfSuffixes(start);
    const WordRow* row = end < Size() ? Find(kOperators, Text(end)) : nullptr;
    return row ? Meaning{row->kind, {}} : EndingAt(end);
}

// Whether a name is that of a function which is written there.
bool Expressions::IsDefined(std::size_t name) const {
    while (LinkBefore(name) != '\0' && name >= 2)
        name -= 2;
    return name > 0 && IsWord(name - 1, "function");
}

// Going backwards: whether it's in the body of a function among the arguments.
bool Expressions::IsInBlock(std::size_t place, int& blocks) const {
    const bool inside = blocks > 0;
    const bool opens = IsWord(place, "function") || IsWord(place, "if") || IsWord(place, "do");
    blocks += IsWord(place, "end") ? 1 : inside && opens ? -1 : 0;
    return inside || blocks > 0;
}

std::optional<Expressions::OpenCall> Expressions::Enclosing() const {
    OpenCall found;
    int depth = 0;
    int blocks = 0;
    for (std::size_t at = Size(); at-- > 0;) {
        if (IsInBlock(at, blocks))
            continue;
        if (depth == 0 && At(at).kind == TokenKind::Keyword && IsStatement(Text(at)))
            return {};
        depth -= Nesting(at);
        found.commas += depth == 0 && IsSymbol(at, ",") ? 1 : 0;
        if (depth >= 0)
            continue;
        // An opening bracket that nothing closes.
        if (at > 0 && IsSymbol(at, "(") && IsName(at - 1)) {
            found.open = at;
            return IsDefined(at - 1) ? std::nullopt : std::optional(found);
        }
        found.commas = 0;
        depth = 0;
    }
    return {};
}

} // namespace documents
