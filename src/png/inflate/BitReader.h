// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/format/Bytes.h"
#include "png/inflate/CodeTable.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

namespace png {

/// Takes bits from a whole DEFLATE stream, those of a byte from the lowest on (RFC 1951, 3.1.1).
class BitReader {
public:
    /// The most whole bytes that can be taken but not used yet.
    static constexpr size_t kMostAhead = sizeof(int32_t);

    /// Begins a stream.
    void Open(Bytes stream);
    /// Ends it and gives it back.
    Bytes Close() { return std::move(InStream); }

    /// Takes bytes until there are `n` bits, at most 16, or no more bytes.
    void NeedBits(int32_t n) {
        while (BitCount < n && InPos < static_cast<int64_t>(InStream.size())) {
            BitBuffer |= InStream[static_cast<size_t>(InPos++)] << BitCount;
            BitCount += 8;
        }
    }
    void DropBits(int32_t n) {
        BitBuffer >>= n;
        BitCount -= n;
    }
    /// The next `n` bits, at most 16; 0 if there are fewer, and the reader is exhausted then.
    int32_t GetBits(int32_t n);
    /// The symbol of the next code, for codes of minBits to maxBits; 0 if there is none, and the
    /// reader is exhausted then.
    int32_t DecodeSymbol(const CodeTable& table, int32_t minBits, int32_t maxBits);
    /// Bits were wanted that the stream doesn't have.
    bool IsExhausted() const { return m_exhausted; }

    std::span<const uint8_t> Stream() const { return InStream.View(); }
    /// The bytes that haven't been taken yet.
    int64_t BytesLeft() const { return static_cast<int64_t>(InStream.size()) - InPos; }
    /// Gives back the whole bytes that weren't used and drops what is left of the one before.
    void AlignToByte();
    /// The next bytes, behind an alignment; there must be so many.
    std::span<const uint8_t> TakeBytes(int64_t count);
    /// How many bits were used; and the same again for a position behind it.
    uint64_t BitPosition() const { return static_cast<uint64_t>(InPos * 8 - BitCount); }
    void Seek(uint64_t bitPosition);

private:
    Bytes InStream;
    int64_t InPos = 0;
    int32_t BitBuffer = 0; ///< bits taken but not yet used, the lowest first
    int32_t BitCount = 0;
    bool m_exhausted = false;
};

} // namespace png
