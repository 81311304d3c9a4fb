// SPDX-License-Identifier: GPL-3.0-or-later
// The accelerated loop itself, for the two files that build it. Everything here belongs to the file
// that includes it, as both build it for machines of different kinds.
#pragma once

#include "png/FastLoop.h"

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
    Copy16 chunk;
    std::memcpy(&chunk, from, sizeof chunk);
    std::memcpy(to, &chunk, sizeof chunk);
}

constexpr int kChunk = 16;

// For each distance below 16: how far a chunk of the repeated bytes gets without a break.
constexpr uint8_t kStep[kChunk] = {16, 16, 16, 15, 16, 15, 12, 14, 16, 9, 10, 11, 12, 13, 14, 15};

#ifdef __SSSE3__
// For each distance the places from which a chunk takes its bytes.
struct Places {
    uint8_t place[kChunk][kChunk];
    constexpr Places() : place() {
        for (int distance = 1; distance < kChunk; ++distance)
            for (int i = 0; i < kChunk; ++i)
                place[distance][i] = static_cast<uint8_t>(i % distance);
    }
};
constexpr Places kPlaces;
#endif

// Copies from a distance below a chunk, up to a chunk more than the length.
inline void CopyNear(uint8_t* out, unsigned distance, const uint8_t* end) {
    const uint8_t* from = out - distance;
    const unsigned step = kStep[distance];
#ifdef __SSSE3__
    const __m128i places =
        _mm_loadu_si128(reinterpret_cast<const __m128i*>(kPlaces.place[distance]));
    const __m128i chunk =
        _mm_shuffle_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from)), places);
    do {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out), chunk);
        out += step;
    } while (out < end);
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
    do {
        CopyChunk(out, from);
        out += kChunk;
        from += kChunk;
    } while (out < end);
}

// Bits taken from the stream but not used yet. Behind the counted ones stand more of the stream.
struct FastBits {
    const uint8_t* in;
    uint64_t bits = 0;
    unsigned count = 0;

    void Refill() { // at least 56 bits are counted then
        bits |= Load64(in) << count;
        in += (63 - count) >> 3;
        count |= 56;
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

inline bool FastLoop(FastBlock& block) {
    if (block.in.size() < kInMargin || block.out.size() < kOutMargin)
        return false;
    const uint8_t* const inStart = block.in.data();
    const uint8_t* const inFast = inStart + block.in.size() - kInMargin;
    uint8_t* const outStart = block.out.data();
    uint8_t* const outFast = outStart + block.out.size() - kOutMargin;
    const FastEntry* const lit = block.tables.literals.entries;
    const FastEntry* const dist = block.tables.distances.entries;
    constexpr uint64_t litMask = (1U << kLitBits) - 1;
    constexpr uint64_t distMask = (1U << kDistBits) - 1;

    uint8_t* out = outStart + block.outPosition;
    FastBits stream{inStart + block.inPosition / 8};
    if (stream.in >= inFast || out >= outFast)
        return false;
    stream.Refill();
    stream.Drop(block.inPosition % 8);
    bool ended = false;
    unsigned undone = 0; // bits of a symbol that is left to the plain loop

    FastEntry entry = lit[stream.bits & litMask];
    do {
        stream.Refill();
        if ((entry & kLiterals) != 0) {
            // Four looks use up at most 44 bits.
            const auto put = [&] {
                const uint32_t literals = entry >> kLiteralShift;
                std::memcpy(out, &literals, sizeof literals);
                out += (entry & kLiterals) >> kLiteralsShift;
                stream.Drop(entry & kBitsField);
                entry = lit[stream.bits & litMask];
            };
            put();
            if ((entry & kLiterals) != 0) {
                put();
                if ((entry & kLiterals) != 0) {
                    put();
                    if ((entry & kLiterals) != 0) {
                        put();
                        continue;
                    }
                }
            }
        }
        undone = 0;
        if ((entry & kExceptional) != 0) {
            if ((entry & kLink) != 0) {
                undone = entry & kBitsField;
                stream.Drop(entry & kBitsField);
                const unsigned more = entry >> kCodeShift & kCodeField;
                entry = lit[(entry >> kBaseShift) + stream.Low(more)];
                if ((entry & kLiterals) != 0) {
                    *out++ = static_cast<uint8_t>(entry >> kLiteralShift);
                    stream.Drop(entry & kBitsField);
                    stream.Refill();
                    entry = lit[stream.bits & litMask];
                    undone = 0;
                    continue;
                }
            }
            if ((entry & kExceptional) != 0) {
                ended = (entry & kEnd) != 0;
                if (ended) {
                    stream.Drop(entry & kBitsField);
                    undone = 0;
                }
                break;
            }
        }
        const unsigned length = ValueOf(stream, entry);
        undone += entry & kBitsField;
        stream.Drop(entry & kBitsField);
        stream.Refill();
        entry = dist[stream.bits & distMask];
        if ((entry & kLink) != 0) {
            undone += entry & kBitsField;
            stream.Drop(entry & kBitsField);
            const unsigned more = entry >> kCodeShift & kCodeField;
            entry = dist[(entry >> kBaseShift) + stream.Low(more)];
        }
        const unsigned distance = ValueOf(stream, entry);
        if (distance > static_cast<size_t>(out - outStart))
            break;
        stream.Drop(entry & kBitsField);
        undone = 0;
        entry = lit[stream.bits & litMask];
        CopyMatch(out, distance, length);
        out += length;
    } while (stream.in < inFast && out < outFast);

    block.inPosition = static_cast<uint64_t>(stream.in - inStart) * 8 - stream.count - undone;
    block.outPosition = static_cast<size_t>(out - outStart);
    return ended;
}

} // namespace
} // namespace png
