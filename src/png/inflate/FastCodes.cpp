// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/inflate/FastCodes.h"

#include "png/inflate/DeflateTables.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace png {
namespace {

// A symbol's entry but for what its code's length adds.
constexpr std::array<FastEntry, kStaticLiterals> kLitEntries = [] {
    std::array<FastEntry, kStaticLiterals> entries{};
    for (uint32_t s = 0; s < entries.size(); ++s) {
        if (s < kEndOfBlock)
            entries[s] = s << kLiteralShift | 1U << kLiteralsShift;
        else if (s == kEndOfBlock)
            entries[s] = kEnd;
        else if (LengthBase[s - kFirstLength] == 0)
            entries[s] = kOther;
        else
            entries[s] = FastEntry{LengthBase[s - kFirstLength]} << kBaseShift |
                         LengthExtra[s - kFirstLength];
    }
    return entries;
}();
constexpr std::array<FastEntry, kStaticDistances> kDistEntries = [] {
    std::array<FastEntry, kStaticDistances> entries{};
    for (size_t s = 0; s < entries.size(); ++s)
        entries[s] = FastEntry{DistBase[s]} << kBaseShift | DistExtra[s];
    return entries;
}();

FastEntry WithLength(FastEntry entry, uint32_t length) {
    return entry + ((entry & kLiterals) != 0 ? length : length | length << kCodeShift);
}

// The next code of the same length, both with their bits in reversed order.
uint32_t NextReversed(uint32_t code, uint32_t length) {
    const uint32_t zeros = ~code & ((1U << length) - 1);
    const uint32_t bit = std::bit_floor(zeros);
    return (code & (bit - 1)) | bit;
}

// The symbols in the order of their codes, and how many there are of each length.
struct SortedSymbols {
    std::array<uint16_t, kStaticLiterals> symbols{};
    std::array<uint16_t, kLongestCode + 2> count{};

    explicit SortedSymbols(std::span<const uint8_t> lengths) {
        for (const uint8_t length : lengths)
            ++count[length];
        count[0] = 0;
        std::array<uint16_t, kLongestCode + 2> next{};
        for (size_t length = 1; length < next.size(); ++length)
            next[length] = static_cast<uint16_t>(next[length - 1] + count[length - 1]);
        for (size_t s = 0; s < lengths.size(); ++s) {
            if (lengths[s] != 0)
                symbols[next[lengths[s]]++] = static_cast<uint16_t>(s);
        }
    }
    uint32_t Longest() const {
        uint32_t length = kLongestCode;
        while (length > 1 && count[length] == 0)
            --length;
        return length;
    }
};

// Fills the first table for the codes that fit it: each length doubles what is there. Long codes
// get links to second tables, one for each beginning that they share.
void FillTable(FastEntry* table, uint32_t tableBits, std::span<const uint8_t> lengths,
               std::span<const FastEntry> entries) {
    const SortedSymbols sorted(lengths);
    const uint32_t longest = sorted.Longest();
    size_t at = 0;
    uint32_t code = 0;
    for (uint32_t length = 1; length <= tableBits; ++length) {
        for (uint16_t n = sorted.count[length]; n > 0; --n) {
            table[code] = WithLength(entries[sorted.symbols[at++]], length);
            code = NextReversed(code, length);
        }
        if (length < tableBits)
            std::memcpy(table + (size_t{1} << length), table, sizeof(FastEntry) << length);
    }
    const uint32_t secondBits = longest > tableBits ? longest - tableBits : 0;
    FastEntry* second = table + (size_t{1} << tableBits);
    uint32_t beginning = UINT32_MAX;
    for (uint32_t length = tableBits + 1; length <= longest; ++length) {
        for (uint16_t n = sorted.count[length]; n > 0; --n) {
            const uint32_t low = code & ((1U << tableBits) - 1);
            if (low != beginning) {
                second += beginning == UINT32_MAX ? 0 : size_t{1} << secondBits;
                beginning = low;
                table[low] = static_cast<FastEntry>(second - table) << kBaseShift | kLink |
                             secondBits << kCodeShift | tableBits;
            }
            // The entry counts the bits behind those of the first table.
            const FastEntry entry = WithLength(entries[sorted.symbols[at++]], length - tableBits);
            for (uint32_t i = code >> tableBits; i < 1U << secondBits;
                 i += 1U << (length - tableBits))
                second[i] = entry;
            code = NextReversed(code, length);
        }
    }
}

uint32_t BitsOf(FastEntry entry) {
    return entry & kBitsField;
}

uint32_t LiteralsOf(FastEntry entry) {
    return (entry & kLiterals) >> kLiteralsShift;
}

// Where the bits behind a literal name more of them, the entry takes them in. The entries that an
// entry looks at stand before it.
void JoinLiterals(FastEntry* table) {
    std::array<FastEntry, 1 << kLitBits> single{};
    std::copy_n(table, single.size(), single.begin());
    for (uint32_t i = 0; i < single.size(); ++i) {
        const FastEntry first = single[i];
        if (LiteralsOf(first) == 0)
            continue;
        const uint32_t bits = BitsOf(first);
        const uint32_t rest = i >> bits;
        FastEntry more = table[rest];
        if (LiteralsOf(more) != 0 && (LiteralsOf(more) == 3 || bits + BitsOf(more) > kLitBits))
            more = single[rest];
        if (LiteralsOf(more) == 0 || bits + BitsOf(more) > kLitBits)
            continue;
        const uint32_t count = 1 + LiteralsOf(more);
        const uint32_t literals = (first >> kLiteralShift) | (more >> kLiteralShift) << 8;
        table[i] = literals << kLiteralShift | count << kLiteralsShift | (bits + BitsOf(more));
    }
}

} // namespace

void BuildFastTables(FastTables& tables, std::span<const uint8_t> literals,
                     std::span<const uint8_t> distances) {
    FillTable(tables.literals.entries, kLitBits, literals, kLitEntries);
    JoinLiterals(tables.literals.entries);
    FillTable(tables.distances.entries, kDistBits, distances, kDistEntries);
}

} // namespace png
