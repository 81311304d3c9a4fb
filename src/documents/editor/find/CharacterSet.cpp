// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/find/CharacterSet.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace documents {
namespace {

constexpr char32_t kLastAscii = 0x7F;
constexpr char32_t kLastOfAll = 0x10FFFF;

struct Class {
    char32_t letter;
    int (*holds)(int);
};

constexpr std::array kClasses = {
    Class{U'a', std::isalpha},
    Class{U'c', std::iscntrl},
    Class{U'd', std::isdigit},
    Class{U'l', std::islower},
    Class{U'p', std::ispunct},
    Class{U's', std::isspace},
    Class{U'u', std::isupper},
    Class{U'w', std::isalnum},
    Class{U'x', std::isxdigit},
    Class{U'z', [](int character) { return static_cast<int>(character == 0); }},
};

bool IsCapital(char32_t letter) {
    return letter >= U'A' && letter <= U'Z';
}

QString Span(char32_t first, char32_t last) {
    return QStringLiteral("\\x{%1}-\\x{%2}").arg(first, 0, 16).arg(last, 0, 16);
}

} // namespace

void CharacterSet::Add(char32_t first, char32_t last) {
    for (char32_t one = first; one <= std::min(last, kLastAscii); ++one)
        m_ascii.set(one);
    if (last > kLastAscii && first <= last)
        m_others.emplace_back(std::max<char32_t>(first, kLastAscii + 1), last);
}

void CharacterSet::AddClass(char32_t letter) {
    const bool others = IsCapital(letter);
    const char32_t name = others ? letter + (U'a' - U'A') : letter;
    const auto* found = std::find_if(kClasses.begin(), kClasses.end(),
                                     [&](const Class& one) { return one.letter == name; });
    if (found == kClasses.end())
        return Add(letter, letter);
    for (size_t one = 0; one < m_ascii.size(); ++one) {
        if ((found->holds(static_cast<int>(one)) != 0) != others)
            m_ascii.set(one);
    }
    if (others)
        m_others.emplace_back(kLastAscii + 1, kLastOfAll);
}

QString CharacterSet::Pattern() const {
    std::bitset<128> ascii = m_ascii;
    ascii['\r'] = ascii['\n'] = m_inverted;
    QString spans;
    for (size_t first = 0; first < ascii.size(); ++first) {
        size_t last = first;
        while (last < ascii.size() && ascii[last])
            ++last;
        if (last == first)
            continue;
        spans += Span(static_cast<char32_t>(first), static_cast<char32_t>(last - 1));
        first = last;
    }
    for (const auto& [first, last] : m_others)
        spans += Span(first, last);
    if (spans.isEmpty())
        return QStringLiteral("[^%1]").arg(Span(0, kLastOfAll));
    return (m_inverted ? QStringLiteral("[^") : QStringLiteral("[")) + spans + u']';
}

} // namespace documents
