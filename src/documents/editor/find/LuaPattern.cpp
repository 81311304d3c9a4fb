// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/find/LuaPattern.h"

#include "documents/editor/find/CharacterSet.h"

#include <algorithm>

namespace documents {
namespace {

constexpr size_t kMostCaptures = 32; // of Lua
const QString kLineStart = QStringLiteral("(?<![^\\r\\n])");
const QString kLineEnd = QStringLiteral("(?![^\\r\\n])");

QString One(char32_t character) {
    CharacterSet set;
    set.Add(character, character);
    return set.Pattern();
}

} // namespace

LuaPattern::LuaPattern(QStringView lua) : m_lua(lua.toString().toStdU32String()) {
    Translate();
    if (m_fault.isEmpty() &&
        std::find(m_captures.begin(), m_captures.end(), Capture::Open) != m_captures.end())
        Refuse(u"falta el ) de una captura");
}

QString LuaPattern::GroupName(int capture) {
    return QStringLiteral("c%1").arg(capture);
}

char32_t LuaPattern::Peek(size_t ahead) const {
    return m_at + ahead < m_lua.size() ? m_lua[m_at + ahead] : 0;
}

bool LuaPattern::Eat(char32_t wanted) {
    const bool eaten = m_at < m_lua.size() && m_lua[m_at] == wanted;
    m_at += eaten ? 1 : 0;
    return eaten;
}

void LuaPattern::Translate() {
    if (Eat(U'^'))
        m_expression += kLineStart;
    while (m_fault.isEmpty() && m_at < m_lua.size())
        TranslateItem();
}

void LuaPattern::TranslateItem() {
    if (Eat(U'('))
        OpenCapture();
    else if (Eat(U')'))
        CloseCapture();
    else if (Peek() == U'$' && m_at + 1 == m_lua.size())
        m_expression += kLineEnd, ++m_at;
    else if (Peek() != U'%' || !TranslateEscape())
        AddSingle();
}

// False if what follows the % is a single character or a class.
bool LuaPattern::TranslateEscape() {
    const char32_t letter = Peek(1);
    const bool digit = letter >= U'0' && letter <= U'9';
    if (letter != U'b' && letter != U'f' && !digit)
        return false;
    m_at += 2;
    if (digit)
        AddReference(letter);
    else if (letter == U'b')
        AddBalanced();
    else
        AddFrontier();
    return true;
}

void LuaPattern::OpenCapture() {
    if (m_captures.size() == kMostCaptures)
        return Refuse(u"hay más de 32 capturas");
    m_captures.push_back(Peek() == U')' ? Capture::Position : Capture::Open);
    m_expression += QStringLiteral("(?<%1>").arg(GroupName(Captures()));
    if (m_captures.back() == Capture::Position)
        m_expression += u')', ++m_at;
}

void LuaPattern::CloseCapture() {
    const auto open = std::find(m_captures.rbegin(), m_captures.rend(), Capture::Open);
    if (open == m_captures.rend())
        return Refuse(u"sobra un ) sin su (");
    *open = Capture::Closed;
    m_expression += u')';
}

void LuaPattern::AddReference(char32_t digit) {
    const auto number = static_cast<size_t>(digit - U'0');
    if (number == 0 || number > m_captures.size() || m_captures[number - 1] == Capture::Open)
        return Refuse(u"% y un número remiten a una captura que no está antes");
    // A position is no text that could come again.
    m_expression += m_captures[number - 1] == Capture::Position
                        ? QStringLiteral("(?!)")
                        : QStringLiteral("\\k<%1>").arg(GroupName(static_cast<int>(number)));
}

void LuaPattern::AddBalanced() {
    if (m_at + 2 > m_lua.size())
        return Refuse(u"detrás de %b faltan los dos caracteres");
    const char32_t first = Peek();
    const char32_t last = Peek(1);
    m_at += 2;
    CharacterSet inner;
    inner.Add(first, first);
    inner.Add(last, last);
    inner.Invert();
    const QString nested = QStringLiteral("(?<b%1>%2(?:%3++|(?&b%1))*+%4)");
    const QString flat = QStringLiteral("(?<b%1>%2%3*+%4)");
    m_expression += (first == last ? flat : nested)
                        .arg(++m_balanced)
                        .arg(One(first), inner.Pattern(), One(last));
}

// What lies beyond an end of the line counts as a NUL.
void LuaPattern::AddFrontier() {
    if (Peek() != U'[')
        return Refuse(u"detrás de %f falta un conjunto entre [ ]");
    CharacterSet set = ReadSet();
    const QString inside = set.Pattern();
    const bool beyond = set.HasNul();
    set.Invert();
    const QString outside = set.Pattern();
    m_expression += beyond ? QStringLiteral("(?<=%1)(?!%1)").arg(outside)
                           : QStringLiteral("(?<!%1)(?=%1)").arg(inside);
}

void LuaPattern::AddSingle() {
    m_expression += ReadSingle().Pattern();
    const char32_t times = Peek();
    if (times != U'*' && times != U'+' && times != U'?' && times != U'-')
        return;
    ++m_at;
    m_expression +=
        times == U'-' ? QStringLiteral("*?") : QString(QChar(static_cast<char16_t>(times)));
}

CharacterSet LuaPattern::ReadSingle() {
    if (Peek() == U'[')
        return ReadSet();
    CharacterSet set;
    const char32_t first = m_lua[m_at++];
    if (first == U'.')
        set.Invert();
    else if (first != U'%')
        set.Add(first, first);
    else if (m_at == m_lua.size())
        Refuse(u"detrás del último % falta algo");
    else
        set.AddClass(m_lua[m_at++]);
    return set;
}

// Where the set's ] stands; `at` is behind its [ and ^. The first character is never it.
size_t LuaPattern::EndOfSet(size_t at) const {
    for (size_t first = at; at < m_lua.size(); ++at) {
        if (m_lua[at] == U']' && at > first)
            return at;
        if (m_lua[at] == U'%')
            ++at;
    }
    return m_lua.size();
}

CharacterSet LuaPattern::ReadSet() {
    CharacterSet set;
    ++m_at;
    if (Eat(U'^'))
        set.Invert();
    const size_t end = EndOfSet(m_at);
    if (end >= m_lua.size())
        Refuse(u"falta el ] de un conjunto");
    while (m_at < end) {
        const char32_t first = m_lua[m_at++];
        if (first == U'%') { // even one behind "a-%", which takes the ] then, as Lua has it
            set.AddClass(m_lua[m_at++]);
        } else if (Peek() == U'-' && m_at + 1 < end) {
            set.Add(first, m_lua[m_at + 1]);
            m_at += 2;
        } else {
            set.Add(first, first);
        }
    }
    m_at = end + 1;
    return set;
}

} // namespace documents
