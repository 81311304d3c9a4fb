// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <bitset>
#include <utility>
#include <vector>

namespace documents {

/// The characters that one place of a Lua pattern takes. The ends of lines are never among them.
class CharacterSet {
public:
    /// Adds nothing if `last` is below `first`.
    void Add(char32_t first, char32_t last);
    /// Adds what the letter stands for behind a %, a capital for all others; itself if it names no
    /// class.
    void AddClass(char32_t letter);
    void Invert() { m_inverted = !m_inverted; }

    bool HasNul() const { return m_ascii[0] != m_inverted; }
    /// The same set in the notation of QRegularExpression.
    QString Pattern() const;

private:
    std::bitset<128> m_ascii;
    std::vector<std::pair<char32_t, char32_t>> m_others;
    bool m_inverted = false;
};

} // namespace documents
