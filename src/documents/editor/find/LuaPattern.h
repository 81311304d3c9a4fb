// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <string>
#include <vector>

namespace documents {

class CharacterSet;

/// A pattern of Lua 5.1's string library in the notation of QRegularExpression. It matches what
/// string.find would in a single line: ^ and $ are the line's start and end, and nothing crosses a
/// line end. Its classes hold ASCII characters only; a dot is a character, not a byte.
class LuaPattern {
public:
    explicit LuaPattern(QStringView lua);

    /// Why the pattern is none, in Spanish; empty if it is one.
    const QString& Fault() const { return m_fault; }
    const QString& Expression() const { return m_expression; }
    int Captures() const { return static_cast<int>(m_captures.size()); }
    /// The name of the group that is the capture of that number, from 1.
    static QString GroupName(int capture);

private:
    enum class Capture { Open, Closed, Position };

    void Translate();
    void TranslateItem();
    bool TranslateEscape();
    void OpenCapture();
    void CloseCapture();
    void AddReference(char32_t digit);
    void AddBalanced();
    void AddFrontier();
    void AddSingle();
    CharacterSet ReadSingle();
    CharacterSet ReadSet();
    size_t EndOfSet(size_t at) const;
    void Refuse(const char16_t* why) { m_fault = QString::fromUtf16(why); }
    /// The character so far behind the current one; 0 behind the end.
    char32_t Peek(size_t ahead = 0) const;
    bool Eat(char32_t wanted);

    std::u32string m_lua;
    size_t m_at = 0;
    std::vector<Capture> m_captures;
    int m_balanced = 0;
    QString m_expression;
    QString m_fault;
};

} // namespace documents
