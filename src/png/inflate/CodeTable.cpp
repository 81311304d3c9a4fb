// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/inflate/CodeTable.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace png {
namespace {

using Counts = std::array<int32_t, kMaxCodeBits + 1>;

Counts CountLengths(std::span<const uint8_t> lengths) {
    Counts count{};
    for (const uint8_t length : lengths)
        ++count[length];
    return count;
}

// The first code of each length.
Counts FirstCodes(Counts count) {
    count[0] = 0;
    Counts next{};
    for (size_t bits = 1; bits < next.size(); ++bits)
        next[bits] = (next[bits - 1] + count[bits - 1]) * 2;
    return next;
}

} // namespace

uint32_t ReverseBits(uint32_t value, int count) {
    uint32_t reversed = 0;
    for (int bit = 0; bit < count; ++bit)
        reversed |= (value >> bit & 1U) << (count - 1 - bit);
    return reversed;
}

int32_t CheckCodeLengths(std::span<const uint8_t> lengths, int32_t& MaxBits, int32_t& MinBits) {
    const Counts count = CountLengths(lengths);
    MinBits = kMaxCodeBits;
    for (int32_t bits = kMaxCodeBits; bits > 0; --bits) {
        if (count[static_cast<size_t>(bits)] == 0)
            continue;
        MaxBits = std::max(MaxBits, bits);
        MinBits = bits;
    }
    int32_t left = 1;
    for (int32_t bits = 1; bits <= MaxBits && left >= 0; ++bits)
        left = 2 * left - count[static_cast<size_t>(bits)];
    return left;
}

void FillCodeTable(CodeTable& table, std::span<const uint8_t> lengths, int32_t MaxBits) {
    table.CodeLengths.assign(size_t{1} << MaxBits, 0);
    table.CodeSymbols.assign(size_t{1} << MaxBits, 0);
    Counts next = FirstCodes(CountLengths(lengths));
    for (size_t symbol = 0; symbol < lengths.size(); ++symbol) {
        const uint8_t length = lengths[symbol];
        if (length == 0)
            continue;
        const uint32_t index = ReverseBits(static_cast<uint32_t>(next[length]++), length);
        table.CodeLengths[index] = length;
        table.CodeSymbols[index] = static_cast<uint16_t>(symbol);
    }
}

int32_t CreateCodeTable(CodeTable& table, std::span<const uint8_t> lengths, int32_t& MaxBits,
                        int32_t& MinBits) {
    const int32_t left = CheckCodeLengths(lengths, MaxBits, MinBits);
    if (left >= 0)
        FillCodeTable(table, lengths, MaxBits);
    return left;
}

} // namespace png
