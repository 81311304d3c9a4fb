// SPDX-License-Identifier: GPL-3.0-or-later
// The tables of the accelerated decoding. One look at them by the next bits of the stream gives a
// symbol with all that belongs to it, or up to three literals.
#pragma once

#include "png/inflate/DeflateTables.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace png {

// An entry, from its lowest bit:
//   6 bits  how many bits it uses up, extra bits included
//   2 bits  how many literals it holds; then 24 bits hold them, the first one lowest
// and if it holds none:
//   4 bits  how long the code is without the extra bits; for a link, the bits of the second table
//   3 bits  kLink, kEnd, kOther
//   1 bit   unused
//   16 bits base of the length or distance; for a link, where the second table starts
using FastEntry = uint32_t;

inline constexpr FastEntry kBitsField = 63;
inline constexpr int kLiteralsShift = 6;
inline constexpr FastEntry kLiterals = 3U << kLiteralsShift;
inline constexpr int kLiteralShift = 8;
inline constexpr size_t kMostLiterals = 3;
inline constexpr int kCodeShift = 8;
inline constexpr FastEntry kCodeField = 15;
inline constexpr FastEntry kLink = 1U << 12;  ///< to a second table, for long codes
inline constexpr FastEntry kEnd = 1U << 13;   ///< end of the block
inline constexpr FastEntry kOther = 1U << 14; ///< a symbol for which the plain loop stands in
inline constexpr FastEntry kExceptional = kLink | kEnd | kOther;
inline constexpr int kBaseShift = 16;

inline constexpr int kLitBits = 10;
inline constexpr int kDistBits = 9;
inline constexpr int kLongestCode = 15;

// The first table and the second ones behind it. At least two symbols share one of those.
struct FastLitTable {
    FastEntry entries[(1 << kLitBits) + (kStaticLiterals / 2 << (kLongestCode - kLitBits))];
};
struct FastDistTable {
    FastEntry entries[(1 << kDistBits) + (kStaticDistances / 2 << (kLongestCode - kDistBits))];
};

struct FastTables {
    FastLitTable literals;
    FastDistTable distances;
};

/// Builds the tables of two complete sets of code lengths.
void BuildFastTables(FastTables& tables, std::span<const uint8_t> literals,
                     std::span<const uint8_t> distances);

} // namespace png
