// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>

namespace core {

/// Windows-1252 as the WHATWG Encoding Standard defines it (https://encoding.spec.whatwg.org): the
/// five bytes without a character (81, 8D, 8F, 90, 9D) stand for the C1 controls of the same value.

/// The characters of the bytes 80 to 9F; all other bytes are Latin-1.
inline constexpr std::array<char16_t, 32> kWindows1252Upper = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char16_t FromWindows1252(uint8_t byte) {
    return byte >= 0x80 && byte < 0xA0 ? kWindows1252Upper[byte - 0x80U] : byte;
}

/// The byte for a character, or -1.
constexpr int ToWindows1252(char16_t character) {
    if (character < 0x80 || (character >= 0xA0 && character < 0x100))
        return character;
    for (unsigned i = 0; i < kWindows1252Upper.size(); ++i) {
        if (kWindows1252Upper[i] == character)
            return static_cast<int>(0x80 + i);
    }
    return -1;
}

} // namespace core
