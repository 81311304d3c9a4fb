// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/ScriptCheck.h"

#include "core/Windows1252.h"
#include "documents/editor/lua/ParserMessages.h"
#include "documents/editor/lua/ScriptParser.h"
#include "documents/editor/lua/Tokens.h"
#include "documents/editor/lua/UnclosedBlock.h"

#include <algorithm>
#include <array>
#include <utility>

namespace documents {
namespace {

constexpr char kCompiled = '\x1B';

bool IsInside(char byte) { // a UTF-8 character: not its first byte
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

// The character that begins with the byte, if the code page may have it; 0 otherwise.
char16_t Character(std::string_view utf8) {
    const auto bits = [&](std::size_t index) {
        return static_cast<unsigned>(static_cast<unsigned char>(utf8[index]));
    };
    if (bits(0) < 0x80)
        return static_cast<char16_t>(bits(0));
    if ((bits(0) & 0xE0U) == 0xC0 && utf8.size() > 1)
        return static_cast<char16_t>((bits(0) & 0x1FU) << 6U | (bits(1) & 0x3FU));
    if ((bits(0) & 0xF0U) == 0xE0 && utf8.size() > 2)
        return static_cast<char16_t>((bits(0) & 0x0FU) << 12U | (bits(1) & 0x3FU) << 6U |
                                     (bits(2) & 0x3FU));
    return 0;
}

// As the script is saved: in the code page if it fits, otherwise as it is.
std::string Saved(std::string_view utf8) {
    std::string saved;
    saved.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size(); ++at) {
        if (IsInside(utf8[at]))
            continue;
        const char16_t character = Character(utf8.substr(at, 3));
        const int byte = character == 0 ? -1 : core::ToWindows1252(character);
        if (byte < 0)
            return std::string(utf8);
        saved += static_cast<char>(byte);
    }
    return saved;
}

// Where the character ends whose last byte in the code page is before `end`.
std::size_t EndInUtf8(std::string_view utf8, std::size_t end) {
    std::size_t at = 0;
    for (std::size_t count = 0; count < end && at < utf8.size(); ++count) {
        ++at;
        while (at < utf8.size() && IsInside(utf8[at]))
            ++at;
    }
    return at;
}

bool IsSameLine(std::string_view text, const Token& before, const Token& after) {
    return LineEnds(text.substr(before.end, after.begin - before.end)) == 0;
}

// What stands where the parser stopped; comments don't count.
struct Stop {
    std::optional<Token> token; // none at the end of the script
    std::optional<Token> previous;
    bool hasElseIf = false; // in one line
};

// `end` is where the parser's last token ends, or beyond the text. What lacks its end, the parser
// can't have passed.
Stop FindStop(std::string_view text, std::size_t end) {
    Stop stop;
    Tokens tokens(text);
    while (const std::optional<Token> token = tokens.Next()) {
        if (token->IsComment() && token->closed)
            continue;
        if (token->end >= end || !token->closed) {
            stop.token = token;
            break;
        }
        if (stop.previous && stop.previous->In(text) == "else" && token->In(text) == "if")
            stop.hasElseIf = stop.hasElseIf || IsSameLine(text, *stop.previous, *token);
        stop.previous = token;
    }
    return stop;
}

bool IsFollowedByValue(std::string_view token) {
    constexpr std::array<std::string_view, 28> kTokens = {
        "=",  "==",  "~=",     "<",  "<=", ">",     ">=",    "+",     "-", "*",
        "/",  "%",   "^",      "#",  "..", ",",     "(",     "[",     "{", "and",
        "or", "not", "return", "in", "if", "while", "until", "elseif"};
    return std::find(kTokens.begin(), kTokens.end(), token) != kTokens.end();
}

// Whether the fault is shown at the token before the stop.
bool IsBehind(std::string_view text, const Stop& stop, std::string_view complaint) {
    if (!stop.previous || !stop.token)
        return stop.previous.has_value();
    const FaultPlace place = PlaceOf(complaint);
    if (place != FaultPlace::Lack || IsSameLine(text, *stop.previous, *stop.token))
        return place == FaultPlace::AtPrevious;
    return complaint != kUnexpectedSymbol || IsFollowedByValue(stop.previous->In(text));
}

Fault Describe(std::string_view text, const Stop& stop, const std::string& complaint) {
    ParserMessage said{
        complaint, kEndOfScript, {}, IsBehind(text, stop, complaint), stop.hasElseIf};
    if (stop.token)
        said.token = stop.token->In(text);
    else
        said.unclosed = UnclosedBlock(text).value_or(BlockOpener());
    if (stop.previous)
        said.previous = stop.previous->In(text);
    Wording wording = Translate(said);
    const Token place = (said.isBehind ? stop.previous : stop.token).value_or(Token());
    const std::string_view shown = place.In(text);
    const std::size_t line = LineEnds(text.substr(0, place.begin)) + 1;
    return {line,
            wording.otherLine == line ? 0 : wording.otherLine,
            place.begin,
            place.begin + std::min(shown.find_first_of("\r\n"), shown.size()),
            std::move(wording.message),
            std::move(wording.hint)};
}

// The length of a first line that begins with #, which the player leaves out too.
std::size_t Skipped(std::string_view text) {
    return text.starts_with('#') ? std::min(text.find('\n'), text.size()) : 0;
}

} // namespace

std::optional<Fault> Check(std::string_view utf8) {
    const std::size_t skipped = Skipped(utf8);
    const std::string_view text = utf8.substr(skipped);
    if (text.starts_with(kCompiled))
        return {};
    const std::string source = Saved(text);
    const std::optional<Complaint> complaint = Parse(source);
    if (!complaint)
        return {};
    const bool isAtEnd = complaint->near == kEndOfScript;
    const std::size_t end =
        source.size() == text.size() ? complaint->end : EndInUtf8(text, complaint->end);
    const Stop stop = FindStop(text, isAtEnd ? std::string_view::npos : end);
    Fault fault = Describe(text, stop, complaint->text);
    fault.begin += skipped;
    fault.end += skipped;
    return fault;
}

} // namespace documents
