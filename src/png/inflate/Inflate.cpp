// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/inflate/Inflate.h"

#include "png/inflate/DeflateTables.h"

#include <algorithm>
#include <cstring>

namespace png {
namespace {

constexpr int32_t kSpare = 100;
constexpr int32_t kStored = 0;
constexpr int32_t kReserved = 3;
constexpr int32_t kDamaged = -1;
constexpr int32_t kContradicted = -2;
constexpr int32_t kWideLength = 258; // in Deflate64 16 more bits tell the length

// How a symbol of the code lengths is repeated.
struct Repeat {
    int32_t bits;
    size_t base;
};
constexpr std::array<Repeat, 3> kRepeats = {{{2, 3}, {3, 3}, {7, 11}}}; // symbols 16, 17, 18

constexpr std::array<uint8_t, kStaticLiterals> kStaticLitLengths = [] {
    std::array<uint8_t, kStaticLiterals> lengths{};
    for (size_t s = 0; s < lengths.size(); ++s)
        lengths[s] = s < 144 ? 8 : s < 256 ? 9 : s < 280 ? 7 : 8;
    return lengths;
}();
constexpr std::array<uint8_t, kStaticDistances> kStaticDistLengths = [] {
    std::array<uint8_t, kStaticDistances> lengths{};
    lengths.fill(5);
    return lengths;
}();

} // namespace

void Inflater::Inflate(Bytes& Data, int32_t& ExpectedSize, bool WideLengths, int32_t& Result) {
    ExpectedSize += kSpare;
    Result = 0;
    InStream = std::move(Data);
    InitInflate(ExpectedSize);
    Next next = Next::Block;
    for (bool last = false; next == Next::Block && !last;) {
        last = GetBits(1) != 0;
        const int32_t type = GetBits(2);
        if (m_exhausted || type == kReserved) {
            Result = kDamaged;
            break;
        }
        if (type == kStored) {
            next = StoredBlock(Result);
            continue;
        }
        const int32_t trees = type == 1 ? UseStaticTrees() : ReadDynamicTrees();
        if (m_exhausted) {
            Result = kDamaged;
            break;
        }
        if (trees != 0) {
            if (m_message)
                m_message("Error in tree creation (Static)");
            Data = std::move(InStream);
            OutStream = Bytes();
            return;
        }
        next = DecodeBlock(WideLengths, Result);
    }
    InStream = Bytes();
    OutStream.Resize(static_cast<size_t>(OutPos));
    OutStream.Trim();
    Data = std::move(OutStream);
}

void Inflater::InitInflate(int32_t capacity) {
    m_capacity = capacity;
    OutStream = Bytes(static_cast<size_t>(m_capacity) + 1);
    LitTable = CodeTable();
    DistTable = CodeTable();
    OutPos = 0;
    InPos = 0;
    BitBuffer = 0;
    BitCount = 0;
    m_exhausted = false;
}

Inflater::Next Inflater::StoredBlock(int32_t& Result) {
    const int64_t last = static_cast<int64_t>(InStream.size()) - 1;
    if (InPos + 4 > last) {
        Result = kDamaged;
        return Next::Finish;
    }
    InPos -= BitCount / 8;
    BitBuffer = 0;
    BitCount = 0;
    const uint8_t* head = InStream.data() + InPos;
    const int32_t length = head[0] | head[1] << 8;
    const int32_t complement = head[2] | head[3] << 8;
    InPos += 4;
    if (length != (~complement & 0xFFFF))
        Result = kContradicted;
    if (InPos + length - 1 > last || OutPos + length - 1 > m_capacity) {
        Result = kDamaged;
        return Next::Finish;
    }
    if (length > 0)
        std::memcpy(OutStream.data() + OutPos, InStream.data() + InPos,
                    static_cast<size_t>(length));
    InPos += length;
    OutPos += length;
    return Next::Block;
}

// Those of the fixed codes are built once: blocks of them may be very short.
const FastTables* Inflater::BlockFastTables() {
    std::unique_ptr<FastTables>& tables = m_static ? m_staticFast : m_fast;
    if (m_static && tables)
        return tables.get();
    if (!tables)
        tables = std::make_unique<FastTables>();
    BuildFastTables(*tables, m_litLengths, m_distLengths);
    return tables.get();
}

// Lets the accelerated loop go as far as it can. Answers whether it read the block's end.
bool Inflater::RunAhead() {
    if (InPos + static_cast<int64_t>(kInMargin) > static_cast<int64_t>(InStream.size()) ||
        OutPos + static_cast<int64_t>(kOutMargin) > m_capacity)
        return false;
    if (m_blockFast == nullptr)
        m_blockFast = BlockFastTables();
    const auto start = static_cast<uint64_t>(InPos * 8 - BitCount);
    FastBlock block = {m_blockFast,
                       InStream.data(),
                       InStream.size(),
                       OutStream.data(),
                       OutStream.size(),
                       start,
                       static_cast<size_t>(OutPos)};
    const bool ended = DecodeFast(block, m_loop == Loop::Fastest);
    if (block.inPosition == start)
        return false;
    OutPos = static_cast<int64_t>(block.outPosition);
    InPos = static_cast<int64_t>(block.inPosition / 8);
    BitBuffer = 0;
    BitCount = 0;
    const auto used = static_cast<int32_t>(block.inPosition % 8);
    if (used != 0)
        static_cast<void>(GetBits(used));
    return ended;
}

// The plain loop, one symbol at a time, as far as the accelerated one doesn't go.
Inflater::Next Inflater::DecodeBlock(bool wideLengths, int32_t& Result) {
    m_blockFast = nullptr;
    for (;;) {
        if (m_loop != Loop::Plain && !wideLengths && RunAhead())
            return Next::Block;
        FillTables();
        const int32_t symbol = DecodeSymbol(*m_litTable, MinLitBits, MaxLitBits);
        if (m_exhausted)
            break;
        if (symbol == kEndOfBlock)
            return Next::Block;
        if (symbol < kEndOfBlock) {
            if (OutPos > m_capacity) {
                OutPos = m_capacity;
                return Next::Finish;
            }
            OutStream[static_cast<size_t>(OutPos++)] = static_cast<uint8_t>(symbol);
            continue;
        }
        const auto s = static_cast<size_t>(symbol - kFirstLength);
        int32_t length = LengthBase[s] + GetBits(LengthExtra[s]);
        if (wideLengths && length == kWideLength)
            length = GetBits(16) + 3;
        const auto d = static_cast<size_t>(DecodeSymbol(*m_distTable, MinDistBits, MaxDistBits));
        if (m_exhausted)
            break;
        const int32_t distance = DistBase[d] + GetBits(DistExtra[d]);
        if (m_exhausted || distance > OutPos)
            break;
        if (CopyMatch(length, distance) == Next::Finish)
            return Next::Finish;
    }
    Result = kDamaged;
    return Next::Finish;
}

Inflater::Next Inflater::CopyMatch(int32_t length, int32_t distance) {
    for (; length > 0; --length) {
        if (OutPos > m_capacity) {
            OutPos = m_capacity;
            return Next::Finish;
        }
        OutStream[static_cast<size_t>(OutPos)] = OutStream[static_cast<size_t>(OutPos - distance)];
        ++OutPos;
    }
    return Next::Block;
}

void Inflater::FillTables() {
    if (m_filled)
        return;
    FillCodeTable(LitTable, m_litLengths, MaxLitBits);
    FillCodeTable(DistTable, m_distLengths, MaxDistBits);
    m_filled = true;
}

int32_t Inflater::UseStaticTrees() {
    m_litLengths = kStaticLitLengths;
    m_distLengths = kStaticDistLengths;
    int32_t left = 0;
    if (StaticBuilt) {
        MinLitBits = 7;
        MaxLitBits = 9;
        MinDistBits = 5;
        MaxDistBits = 5;
    } else {
        if (CreateCodeTable(StaticLitTable, m_litLengths, MaxLitBits, MinLitBits) != 0)
            return kDamaged;
        left = CreateCodeTable(StaticDistTable, m_distLengths, MaxDistBits, MinDistBits);
        StaticBuilt = true;
    }
    m_static = true;
    m_litTable = &StaticLitTable;
    m_distTable = &StaticDistTable;
    m_filled = true;
    return left;
}

int32_t Inflater::ReadDynamicTrees() {
    const auto literals = size_t{257} + static_cast<size_t>(GetBits(5));
    const auto distances = size_t{1} + static_cast<size_t>(GetBits(5));
    const auto ordered = size_t{4} + static_cast<size_t>(GetBits(4));
    std::array<uint8_t, CodeOrder.size()> orderedLengths{};
    for (size_t i = 0; i < ordered; ++i)
        orderedLengths[CodeOrder[i]] = static_cast<uint8_t>(GetBits(3));
    CodeTable table;
    int32_t minBits = 0;
    int32_t maxBits = 0;
    if (CreateCodeTable(table, orderedLengths, maxBits, minBits) != 0)
        return kDamaged;
    const auto lengths = std::span(m_lengths).first(literals + distances);
    const int32_t failure = ReadCodeLengths(lengths, table, minBits, maxBits);
    if (failure != 0)
        return failure;
    m_litLengths = lengths.first(literals);
    m_distLengths = lengths.subspan(literals);
    m_litTable = &LitTable;
    m_distTable = &DistTable;
    m_filled = false;
    m_static = false;
    if (CheckCodeLengths(m_litLengths, MaxLitBits, MinLitBits) != 0)
        return kDamaged;
    return CheckCodeLengths(m_distLengths, MaxDistBits, MinDistBits);
}

int32_t Inflater::ReadCodeLengths(std::span<uint8_t> lengths, const CodeTable& table,
                                  int32_t minBits, int32_t maxBits) {
    for (size_t i = 0; i < lengths.size() && !m_exhausted;) {
        const int32_t symbol = DecodeSymbol(table, minBits, maxBits);
        if (symbol < 16) {
            lengths[i++] = static_cast<uint8_t>(symbol);
            continue;
        }
        if (symbol == 16 && i == 0)
            return -5;
        const uint8_t value = symbol == 16 ? lengths[i - 1] : uint8_t{0};
        const Repeat& repeat = kRepeats[static_cast<size_t>(symbol - 16)];
        const auto count = repeat.base + static_cast<size_t>(GetBits(repeat.bits));
        if (i + count > lengths.size())
            return -6;
        std::fill_n(lengths.begin() + static_cast<ptrdiff_t>(i), count, value);
        i += count;
    }
    return 0;
}

int32_t Inflater::DecodeSymbol(const CodeTable& table, int32_t minBits, int32_t maxBits) {
    NeedBits(maxBits);
    for (int32_t length = minBits; length <= std::min(maxBits, BitCount); ++length) {
        const auto i = static_cast<size_t>(BitBuffer & BitMask[static_cast<size_t>(length)]);
        if (table.CodeLengths[i] == length) {
            DropBits(length);
            return table.CodeSymbols[i];
        }
    }
    m_exhausted = true;
    return 0;
}

void Inflater::NeedBits(int32_t n) {
    while (BitCount < n && InPos < static_cast<int64_t>(InStream.size())) {
        BitBuffer |= InStream[static_cast<size_t>(InPos++)] << BitCount;
        BitCount += 8;
    }
}

void Inflater::DropBits(int32_t n) {
    BitBuffer >>= n;
    BitCount -= n;
}

int32_t Inflater::GetBits(int32_t n) {
    NeedBits(n);
    if (BitCount < n) {
        m_exhausted = true;
        return 0;
    }
    const int32_t bits = BitBuffer & BitMask[static_cast<size_t>(n)];
    DropBits(n);
    return bits;
}

} // namespace png
