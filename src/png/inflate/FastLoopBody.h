// SPDX-License-Identifier: GPL-3.0-or-later
// The accelerated loop itself, for the two files that build it. Everything here belongs to the file
// that includes it, as both build it for machines of different kinds.
#pragma once

#include "png/inflate/FastCodes.h"
#include "png/inflate/FastLoop.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#ifdef __SSSE3__
#include <tmmintrin.h>
#endif

namespace png {
namespace {

inline uint64_t Load64(const uint8_t* from) {
    uint64_t bits = 0;
    std::memcpy(&bits, from, sizeof bits);
    return bits; // the machine is a little-endian one
}

struct Copy16 {
    uint64_t half[2];
};

inline void CopyChunk(uint8_t* to, const uint8_t* from) {
    Copy16 chunk{};
    std::memcpy(&chunk, from, sizeof chunk);
    std::memcpy(to, &chunk, sizeof chunk);
}

// For each distance below 16: how far a chunk of the repeated bytes gets without a break.
constexpr uint8_t kStep[kChunk] = {16, 16, 16, 15, 16, 15, 12, 14, 16, 9, 10, 11, 12, 13, 14, 15};

#ifdef __SSSE3__
// For each distance the places from which a chunk takes its bytes.
struct Places {
    uint8_t place[kChunk][kChunk];
    constexpr Places() : place() {
        for (size_t distance = 1; distance < kChunk; ++distance)
            for (size_t i = 0; i < kChunk; ++i)
                place[distance][i] = static_cast<uint8_t>(i % distance);
    }
};
constexpr Places kPlaces;
#endif

// Copies from a distance below a chunk: at least two chunks, and up to one more than the length.
inline void CopyNear(uint8_t* out, unsigned distance, const uint8_t* end) {
    const uint8_t* from = out - distance;
    const unsigned step = kStep[distance];
#ifdef __SSSE3__
    const __m128i places =
        _mm_loadu_si128(reinterpret_cast<const __m128i*>(kPlaces.place[distance]));
    const __m128i chunk =
        _mm_shuffle_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from)), places);
    // Two chunks are enough for most lengths; a branch on those would often be guessed wrong.
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), chunk);
    do {
        out += step;
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out), chunk);
    } while (out + step < end);
#else
    uint8_t chunk[kChunk];
    for (unsigned i = 0, k = 0; i < kChunk; ++i, k = k + 1 == distance ? 0 : k + 1)
        chunk[i] = from[k];
    do {
        CopyChunk(out, chunk);
        out += step;
    } while (out < end);
#endif
}

inline void CopyMatch(uint8_t* out, unsigned distance, unsigned length) {
    const uint8_t* end = out + length;
    if (distance < kChunk) {
        CopyNear(out, distance, end);
        return;
    }
    const uint8_t* from = out - distance;
    CopyChunk(out, from);
    do {
        out += kChunk;
        from += kChunk;
        CopyChunk(out, from);
    } while (out + kChunk < end);
}

// Bits taken from the stream but not used yet. Behind the counted ones stand more of the stream.
struct FastBits {
    const uint8_t* in = nullptr;
    uint64_t bits = 0;
    unsigned count = 0;

    void Refill() { // at least kRefillBits are counted then
        bits |= Load64(in) << count;
        in += (63 - count) >> 3;
        count |= kRefillBits;
    }
    void Drop(unsigned n) {
        bits >>= n & 63;
        count -= n;
    }
    uint64_t Low(unsigned n) const { return bits & ((uint64_t{1} << (n & 63)) - 1); }
};

inline unsigned ValueOf(const FastBits& stream, FastEntry entry) {
    const unsigned code = entry >> kCodeShift & kCodeField;
    return (entry >> kBaseShift) + static_cast<unsigned>(stream.Low(entry & kBitsField) >> code);
}

// The state between two looks at the tables. The entry looked at last isn't used up yet.
struct Loop {
    enum class Next { Length, Look, Stop };

    const FastTables& tables;
    const uint8_t* const outStart = nullptr;
    FastBits stream;
    uint8_t* out = nullptr;
    FastEntry entry = 0;
    unsigned undone = 0; // bits used of a symbol that is left to the plain loop
    bool ended = false;

    void Look() { entry = tables.literals.entries[stream.Low(kLitBits)]; }
    bool Literals() const { return (entry & kLiterals) != 0; }

    // False if all looks found literals and a refill is due.
    bool PutLiterals() {
        for (int look = 0; look < kLooks; ++look) {
            if (!Literals())
                return true;
            const uint32_t literals = entry >> kLiteralShift;
            std::memcpy(out, &literals, sizeof literals);
            out += (entry & kLiterals) >> kLiteralsShift;
            stream.Drop(entry & kBitsField);
            Look();
        }
        return false;
    }

    void FollowLink(const FastEntry* table) {
        undone += entry & kBitsField;
        stream.Drop(entry & kBitsField);
        entry = table[(entry >> kBaseShift) + stream.Low(entry >> kCodeShift & kCodeField)];
    }

    Next Exception() {
        if ((entry & kLink) != 0)
            FollowLink(tables.literals.entries);
        if (Literals()) {
            *out++ = static_cast<uint8_t>(entry >> kLiteralShift);
            stream.Drop(entry & kBitsField);
            undone = 0;
            Look();
            return Next::Look;
        }
        if ((entry & kExceptional) == 0)
            return Next::Length;
        ended = (entry & kEnd) != 0;
        if (ended) {
            stream.Drop(entry & kBitsField);
            undone = 0;
        }
        return Next::Stop;
    }

    // False if the match would begin before the output does.
    bool Match() {
        const unsigned length = ValueOf(stream, entry);
        undone += entry & kBitsField;
        stream.Drop(entry & kBitsField);
        stream.Refill();
        entry = tables.distances.entries[stream.Low(kDistBits)];
        if ((entry & kLink) != 0)
            FollowLink(tables.distances.entries);
        const unsigned distance = ValueOf(stream, entry);
        if (distance > static_cast<size_t>(out - outStart))
            return false;
        stream.Drop(entry & kBitsField);
        undone = 0;
        Look(); // the table answers while the bytes are copied
        CopyMatch(out, distance, length);
        out += length;
        return true;
    }

    // One round: literals, then a length and its distance. False at the block's end and where the
    // plain loop has to go on.
    bool Round() {
        stream.Refill();
        if (!PutLiterals())
            return true;
        if ((entry & kExceptional) != 0) {
            const Next next = Exception();
            if (next != Next::Length)
                return next == Next::Look;
        }
        return Match();
    }
};

inline bool FastLoop(FastBlock& block) {
    if (block.inSize < kInMargin || block.outSize < kOutMargin)
        return false;
    const uint8_t* const inStart = block.in;
    const uint8_t* const inFast = inStart + block.inSize - kInMargin;
    uint8_t* const outStart = block.out;
    uint8_t* const outFast = outStart + block.outSize - kOutMargin;
    Loop loop{
        *block.tables, outStart, {inStart + block.inPosition / 8}, outStart + block.outPosition};
    if (loop.stream.in >= inFast || loop.out >= outFast)
        return false;
    loop.stream.Refill();
    loop.stream.Drop(block.inPosition % 8);
    loop.Look();
    while (loop.Round() && loop.stream.in < inFast && loop.out < outFast) {
    }
    block.inPosition =
        static_cast<uint64_t>(loop.stream.in - inStart) * 8 - loop.stream.count - loop.undone;
    block.outPosition = static_cast<size_t>(loop.out - outStart);
    return loop.ended;
}

} // namespace
} // namespace png
