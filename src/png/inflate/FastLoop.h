// SPDX-License-Identifier: GPL-3.0-or-later
// The accelerated loop. It is built once for every machine and once for those with BMI2 and SSSE3.
#pragma once

#include "png/inflate/BitReader.h"
#include "png/inflate/DeflateTables.h"
#include "png/inflate/FastCodes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace png {

/// Where the accelerated loop works. Positions in the stream are in bits.
struct FastBlock {
    const FastTables* tables;
    const uint8_t* in;
    size_t inSize;
    uint8_t* out;
    size_t outSize;
    uint64_t inPosition;
    size_t outPosition;
};

/// Decodes as long as both ends are far enough away and nothing is odd, and moves the positions on.
/// Answers true if the block's end was read. `fastest` allows instructions that not all machines
/// have.
bool DecodeFast(FastBlock& block, bool fastest);

bool FastLoopPlain(FastBlock& block);
bool FastLoopBmi2(FastBlock& block);

// A round of the loop refills before its literals and before its distance; the first round has one
// refill before it. A refill reads eight bytes and leaves room for less than one.
inline constexpr size_t kRefillBytes = sizeof(uint64_t);
inline constexpr int kRefillBits = 8 * kRefillBytes - 8;
inline constexpr size_t kRefills = 3;
inline constexpr int kLooks = 4; ///< at literals, between two refills
static_assert(kLooks * kLitBits + kLitBits <= kRefillBits);
static_assert((kLooks - 1) * kLitBits + kLongestCode + std::ranges::max(LengthExtra) <=
              kRefillBits);
static_assert(kLongestCode + std::ranges::max(DistExtra) + kLitBits <= kRefillBits);

/// Bytes that must lie behind the position in the stream, or DecodeFast does nothing. Behind the
/// block's end there remain as many as the plain loop looks at there.
inline constexpr size_t kInMargin = kRefills * kRefillBytes + BitReader::kMostAhead + kStoredHead;
static_assert(kInMargin > kRefills * (kRefillBytes - 1) + BitReader::kMostAhead + kStoredHead);

inline constexpr size_t kChunk = 16; ///< what a match is copied by, at least two of them

/// Bytes for which there must be room in the output: those of one round, and of a chunk that ends
/// behind the match.
inline constexpr size_t kOutMargin = kLooks * kMostLiterals + kLongestMatch + kChunk;
static_assert(kOutMargin >= kLooks * kMostLiterals + 2 * kChunk);

} // namespace png
