// SPDX-License-Identifier: GPL-3.0-or-later
// What is fixed in DEFLATE (RFC 1951, 3.2.3 to 3.2.7,
// https://www.rfc-editor.org/rfc/rfc1951#section-3).
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace png {

/// The types of blocks; any other is reserved.
enum class BlockType : int32_t { Stored = 0, Fixed = 1, Dynamic = 2 };

inline constexpr int32_t kEndOfBlock = 256;
inline constexpr int32_t kFirstLength = 257;
inline constexpr size_t kStoredHead = 4; ///< bytes before those of a stored block
inline constexpr size_t kStaticLiterals = 288;
inline constexpr size_t kStaticDistances = 32;

// Per length symbol, counted from 257. The symbols behind 285 don't occur in a sound stream.
inline constexpr std::array<uint8_t, 32> LengthExtra = {
    0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0, 0, 0, 0};
inline constexpr std::array<uint16_t, 32> LengthBase = {
    3,  4,  5,  6,  7,  8,  9,  10,  11,  13,  15,  17,  19,  23, 27, 31,
    35, 43, 51, 59, 67, 83, 99, 115, 131, 163, 195, 227, 258, 0,  0,  0};

inline constexpr size_t kLongestMatch = 258;
static_assert(kLongestMatch == std::ranges::max(LengthBase));
// A length and a distance of one bit each are the shortest match.
inline constexpr size_t kMostGrowth = kLongestMatch * 8 / 2;

// Per distance symbol; the last two are those of Deflate64.
inline constexpr std::array<uint8_t, 32> DistExtra = {0,  0,  0,  0,  1,  1,  2,  2,  3,  3, 4,
                                                      4,  5,  5,  6,  6,  7,  7,  8,  8,  9, 9,
                                                      10, 10, 11, 11, 12, 12, 13, 13, 14, 14};
inline constexpr std::array<uint16_t, 32> DistBase = {
    1,    2,    3,    4,    5,    7,     9,     13,    17,    25,   33,
    49,   65,   97,   129,  193,  257,   385,   513,   769,   1025, 1537,
    2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577, 32769, 49153};

// The order in which the lengths of the code length codes arrive.
inline constexpr std::array<uint8_t, 19> CodeOrder = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                      11, 4,  12, 3, 13, 2, 14, 1, 15};

inline constexpr std::array<int32_t, 17> PowerOfTwo = [] {
    std::array<int32_t, 17> table{};
    for (size_t n = 0; n < table.size(); ++n)
        table[n] = 1 << n;
    return table;
}();
inline constexpr std::array<int32_t, 17> BitMask = [] {
    std::array<int32_t, 17> table{};
    for (size_t n = 0; n < table.size(); ++n)
        table[n] = PowerOfTwo[n] - 1;
    return table;
}();

} // namespace png
