// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/inflate/Blocks.h"

#include "png/inflate/DeflateTables.h"
#include "png/inflate/FastLoop.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace png {
namespace {

constexpr int32_t kDamaged = -1;
constexpr int32_t kContradicted = -2;
constexpr int32_t kNothingToRepeat = -5;
constexpr int32_t kTooManyLengths = -6;
constexpr int32_t kWideLength = 258; // in Deflate64 16 more bits tell the length

// How a symbol of the code lengths is repeated.
struct Repeat {
    int32_t bits;
    size_t base;
};
constexpr int32_t kRepeatLast = 16;
constexpr std::array<Repeat, 3> kRepeats = {{{2, 3}, {3, 3}, {7, 11}}}; // symbols 16, 17, 18

constexpr std::array<uint8_t, kStaticLiterals + kStaticDistances> kStaticLengths = [] {
    std::array<uint8_t, kStaticLiterals + kStaticDistances> lengths{};
    for (size_t s = 0; s < lengths.size(); ++s)
        lengths[s] = s < 144 ? 8 : s < 256 ? 9 : s < 280 ? 7 : s < kStaticLiterals ? 8 : 5;
    return lengths;
}();

} // namespace

void Blocks::InitInflate(Bytes stream, int32_t capacity) {
    m_in.Open(std::move(stream));
    m_out.Open(capacity);
}

Bytes Blocks::Output() {
    m_in.Close();
    return m_out.Close();
}

Bytes Blocks::Stream() {
    m_out.Close();
    return m_in.Close();
}

Blocks::Next Blocks::Read(bool wideLengths, int32_t& Result) {
    const bool last = m_in.GetBits(1) != 0;
    const auto type = BlockType{m_in.GetBits(2)};
    Next next = Next::Finish;
    int32_t trees = 0;
    if (type == BlockType::Fixed)
        trees = UseStaticTrees();
    else if (type == BlockType::Dynamic)
        trees = ReadDynamicTrees();
    if (m_in.IsExhausted() || type > BlockType::Dynamic)
        Result = kDamaged;
    else if (trees != 0)
        return Next::NoCodes;
    else
        next = type == BlockType::Stored ? StoredBlock(Result) : DecodeSymbols(wideLengths, Result);
    return last ? Next::Finish : next;
}

Blocks::Next Blocks::StoredBlock(int32_t& Result) {
    if (m_in.BytesLeft() <= static_cast<int64_t>(kStoredHead)) {
        Result = kDamaged;
        return Next::Finish;
    }
    m_in.AlignToByte();
    const std::span head = m_in.TakeBytes(kStoredHead);
    const int32_t length = head[0] | head[1] << 8;
    const int32_t complement = head[2] | head[3] << 8;
    if (length != (~complement & 0xFFFF))
        Result = kContradicted;
    if (length > m_in.BytesLeft() || length - 1 > m_out.Room()) {
        Result = kDamaged;
        return Next::Finish;
    }
    m_out.Append(m_in.TakeBytes(length));
    return Next::Block;
}

int32_t Blocks::UseStaticTrees() {
    const CodePair& before = *m_codes;
    m_codes = &m_static;
    if (StaticBuilt) {
        m_static.SetBits(7, 9, 5, 5);
        return 0;
    }
    StaticBuilt = true;
    return m_static.Assign(kStaticLengths, kStaticLiterals, before);
}

int32_t Blocks::ReadDynamicTrees() {
    const auto literals = size_t{257} + static_cast<size_t>(m_in.GetBits(5));
    const auto distances = size_t{1} + static_cast<size_t>(m_in.GetBits(5));
    const auto ordered = size_t{4} + static_cast<size_t>(m_in.GetBits(4));
    std::array<uint8_t, CodeOrder.size()> orderedLengths{};
    for (size_t i = 0; i < ordered; ++i)
        orderedLengths[CodeOrder[i]] = static_cast<uint8_t>(m_in.GetBits(3));
    CodeTable table;
    int32_t minBits = 0;
    int32_t maxBits = 0;
    if (CreateCodeTable(table, orderedLengths, maxBits, minBits) != 0)
        return kDamaged;
    std::array<uint8_t, kStaticLiterals + kStaticDistances> buffer{};
    const auto lengths = std::span(buffer).first(literals + distances);
    const int32_t failure = ReadCodeLengths(lengths, table, minBits, maxBits);
    if (failure != 0)
        return failure;
    const CodePair& before = *m_codes;
    m_codes = &m_dynamic;
    return m_dynamic.Assign(lengths, literals, before);
}

int32_t Blocks::ReadCodeLengths(std::span<uint8_t> lengths, const CodeTable& table, int32_t minBits,
                                int32_t maxBits) {
    for (size_t i = 0; i < lengths.size() && !m_in.IsExhausted();) {
        const int32_t symbol = m_in.DecodeSymbol(table, minBits, maxBits);
        if (symbol < kRepeatLast) {
            lengths[i++] = static_cast<uint8_t>(symbol);
            continue;
        }
        if (symbol == kRepeatLast && i == 0)
            return kNothingToRepeat;
        const uint8_t value = symbol == kRepeatLast ? lengths[i - 1] : uint8_t{0};
        const Repeat& repeat = kRepeats[static_cast<size_t>(symbol - kRepeatLast)];
        const auto count = repeat.base + static_cast<size_t>(m_in.GetBits(repeat.bits));
        if (i + count > lengths.size())
            return kTooManyLengths;
        std::fill_n(lengths.begin() + static_cast<ptrdiff_t>(i), count, value);
        i += count;
    }
    return 0;
}

// One symbol at a time, as far as the accelerated loop doesn't go.
Blocks::Next Blocks::DecodeSymbols(bool wideLengths, int32_t& Result) {
    for (;;) {
        if (m_loop != Loop::Plain && !wideLengths && RunAhead())
            return Next::Block;
        m_codes->Fill();
        const int32_t symbol = m_codes->DecodeLiteral(m_in);
        if (m_in.IsExhausted())
            break;
        if (symbol == kEndOfBlock)
            return Next::Block;
        if (symbol < kEndOfBlock) {
            if (!m_out.Put(static_cast<uint8_t>(symbol)))
                return Next::Finish;
            continue;
        }
        const auto s = static_cast<size_t>(symbol - kFirstLength);
        int32_t length = LengthBase[s] + m_in.GetBits(LengthExtra[s]);
        if (wideLengths && length == kWideLength)
            length = m_in.GetBits(16) + 3;
        const auto d = static_cast<size_t>(m_codes->DecodeDistance(m_in));
        if (m_in.IsExhausted())
            break;
        const int32_t distance = DistBase[d] + m_in.GetBits(DistExtra[d]);
        if (m_in.IsExhausted() || distance > m_out.Size())
            break;
        if (!m_out.CopyMatch(length, distance))
            return Next::Finish;
    }
    Result = kDamaged;
    return Next::Finish;
}

// Lets the accelerated loop go as far as it can. Answers whether it read the block's end.
bool Blocks::RunAhead() {
    if (m_in.BytesLeft() < static_cast<int64_t>(kInMargin) ||
        m_out.Room() < static_cast<int64_t>(kOutMargin))
        return false;
    const std::span<const uint8_t> in = m_in.Stream();
    const std::span<uint8_t> out = m_out.Buffer();
    const uint64_t start = m_in.BitPosition();
    FastBlock block = {&m_codes->Fast(),
                       in.data(),
                       in.size(),
                       out.data(),
                       out.size(),
                       start,
                       static_cast<size_t>(m_out.Size())};
    const bool ended = DecodeFast(block, m_loop == Loop::Fastest);
    if (block.inPosition == start)
        return false;
    m_in.Seek(block.inPosition);
    m_out.Advance(block.outPosition);
    return ended;
}

} // namespace png
