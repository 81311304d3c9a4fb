// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace png {

/// The longest code length that the tables have room for.
inline constexpr int kMaxCodeBits = 16;

/// The codes of a set of symbols (RFC 1951, 3.2.2), each in the one place that its bits in reversed
/// order name. Every other place holds length 0.
struct CodeTable {
    std::vector<uint8_t> CodeLengths;
    std::vector<uint16_t> CodeSymbols;
};

/// The low `count` bits of `value` in reversed order.
uint32_t ReverseBits(uint32_t value, int count);

/// Looks at a set of code lengths, each at most 15; 0 means that a symbol doesn't occur. MaxBits
/// rises to the longest length and never falls; MinBits becomes the shortest. Answers 0 for a
/// complete set, else how many codes are left over or, negative, lack.
int32_t CheckCodeLengths(std::span<const uint8_t> lengths, int32_t& MaxBits, int32_t& MinBits);

/// Fills the table of symbols 0 to `lengths.size()` - 1, for codes of up to MaxBits.
void FillCodeTable(CodeTable& table, std::span<const uint8_t> lengths, int32_t MaxBits);

/// Both in one. With too many codes the table stays as it was.
int32_t CreateCodeTable(CodeTable& table, std::span<const uint8_t> lengths, int32_t& MaxBits,
                        int32_t& MinBits);

} // namespace png
