// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/inflate/BitReader.h"

#include "png/inflate/DeflateTables.h"

#include <algorithm>

namespace png {

void BitReader::Open(Bytes stream) {
    InStream = std::move(stream);
    InPos = 0;
    BitBuffer = 0;
    BitCount = 0;
    m_exhausted = false;
}

int32_t BitReader::GetBits(int32_t n) {
    NeedBits(n);
    if (BitCount < n) {
        m_exhausted = true;
        return 0;
    }
    const int32_t bits = BitBuffer & BitMask[static_cast<size_t>(n)];
    DropBits(n);
    return bits;
}

int32_t BitReader::DecodeSymbol(const CodeTable& table, int32_t minBits, int32_t maxBits) {
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

void BitReader::AlignToByte() {
    InPos -= BitCount / 8;
    BitBuffer = 0;
    BitCount = 0;
}

std::span<const uint8_t> BitReader::TakeBytes(int64_t count) {
    const auto bytes =
        InStream.View().subspan(static_cast<size_t>(InPos), static_cast<size_t>(count));
    InPos += count;
    return bytes;
}

void BitReader::Seek(uint64_t bitPosition) {
    InPos = static_cast<int64_t>(bitPosition / 8);
    BitBuffer = 0;
    BitCount = 0;
    static_cast<void>(GetBits(static_cast<int32_t>(bitPosition % 8)));
}

} // namespace png
