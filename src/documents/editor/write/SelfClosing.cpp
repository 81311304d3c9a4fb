// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/write/SelfClosing.h"

#include <cctype>
#include <string_view>

namespace documents {
namespace {

using std::string_view;

constexpr string_view kOpeners = "([{\"'";
constexpr string_view kClosers = ")]}\"'";
// Before these, and at the line end, a closer does no harm.
constexpr string_view kRoom = " \t)]},;";

bool IsQuote(char character) {
    return character == '"' || character == '\'';
}

// Letters beyond ASCII too: a quote behind one belongs to a text.
bool IsWordPart(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return std::isalnum(value) != 0 || byte == '_' || value >= 0x80;
}

} // namespace

bool SelfClosing::IsPart(char character) {
    return kOpeners.find(character) != string_view::npos ||
           kClosers.find(character) != string_view::npos;
}

char SelfClosing::CloserOf(char opener) {
    const size_t at = kOpeners.find(opener);
    return at == string_view::npos ? '\0' : kClosers[at];
}

bool SelfClosing::HasRoom(char opener, const Place& place) {
    if (!place.after.isEmpty() && kRoom.find(place.after.front()) == string_view::npos)
        return false;
    const char last = place.before.isEmpty() ? ' ' : place.before.back();
    return !IsQuote(opener) || (!IsWordPart(last) && last != opener);
}

void SelfClosing::Closed(char closer, const Place& place) {
    if (place.line != m_line)
        m_closers.clear();
    m_line = place.line;
    m_closers.push_back({closer, place.after.size() + 1});
}

bool SelfClosing::IsOurs(const Place& place) {
    if (place.line != m_line)
        m_closers.clear();
    // What the caret has passed isn't waited for any more.
    while (!m_closers.empty() && m_closers.back().toLineEnd > place.after.size())
        m_closers.pop_back();
    return !m_closers.empty() && m_closers.back().toLineEnd == place.after.size() &&
           m_closers.back().character == place.after.front();
}

bool SelfClosing::SkipsOver(char typed, const Place& place) {
    if (!IsOurs(place) || place.after.front() != typed)
        return false;
    m_closers.pop_back();
    return true;
}

bool SelfClosing::IsEmptyPair(const Place& place) {
    if (place.before.isEmpty() || place.after.isEmpty() ||
        CloserOf(place.before.back()) != place.after.front())
        return false;
    return IsOurs(place) || !IsQuote(place.after.front());
}

} // namespace documents
