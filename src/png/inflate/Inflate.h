// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/format/Bytes.h"
#include "png/inflate/CodeTable.h"
#include "png/inflate/DeflateTables.h"
#include "png/inflate/FastCodes.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

namespace png {

/// Shows a message to the user.
using MessageHook = std::function<void(const std::string& text)>;

/// Turns a raw DEFLATE stream (RFC 1951) into bytes, from one whole buffer into another. It differs
/// from the standard: every set of code lengths must be complete; distance symbols 30 and 31 are
/// those of Deflate64; and the size of the output is fixed in advance.
class Inflater {
public:
    /// `Data` holds the stream and receives the bytes. ExpectedSize, at least -100, is raised by
    /// 100 and is the most that is put out; what comes beyond is left out. WideLengths gives length
    /// symbol 285 its Deflate64 meaning. Result: 0 done, -1 the stream is damaged or ends early and
    /// Data holds what came before, -2 the length of a stored block is contradicted. If the codes
    /// of a block can't be built, the message is shown and Data keeps the stream.
    void Inflate(Bytes& Data, int32_t& ExpectedSize, bool WideLengths, int32_t& Result);

    void MessageBox(MessageHook hook) { m_message = std::move(hook); }
    /// Which loop decodes as far as it can: the plain one, the accelerated one for all machines, or
    /// the fastest that this machine has. The outcome is the same.
    enum class Loop { Plain, Portable, Fastest };
    void Use(Loop loop) { m_loop = loop; }

private:
    enum class Next { Block, Finish };

    void InitInflate(int32_t capacity);
    void FillTables();
    const FastTables* BlockFastTables();
    bool RunAhead();
    Next DecodeBlock(bool wideLengths, int32_t& Result);
    Next StoredBlock(int32_t& Result);
    Next CopyMatch(int32_t length, int32_t distance);
    int32_t UseStaticTrees();
    int32_t ReadDynamicTrees();
    int32_t ReadCodeLengths(std::span<uint8_t> lengths, const CodeTable& table, int32_t minBits,
                            int32_t maxBits);
    int32_t DecodeSymbol(const CodeTable& table, int32_t minBits, int32_t maxBits);
    void NeedBits(int32_t n);
    void DropBits(int32_t n);
    int32_t GetBits(int32_t n);

    Bytes OutStream; ///< indices 0 to m_capacity; also the window of the distances
    int64_t OutPos = 0;
    Bytes InStream;
    int64_t InPos = 0;
    int32_t BitBuffer = 0; ///< bits taken but not yet used, the lowest first
    int32_t BitCount = 0;
    CodeTable LitTable;
    CodeTable DistTable;
    CodeTable StaticLitTable;
    CodeTable StaticDistTable;
    int32_t MinLitBits = 0;
    int32_t MaxLitBits = 0;
    int32_t MinDistBits = 0;
    int32_t MaxDistBits = 0;
    bool StaticBuilt = false;

    // The lengths of the block's codes. Tables are made of them once they are needed; a block of
    // fixed codes may be very short, so it only points to its own.
    std::array<uint8_t, kStaticLiterals + kStaticDistances> m_lengths{};
    std::span<const uint8_t> m_litLengths;
    std::span<const uint8_t> m_distLengths;
    const CodeTable* m_litTable = nullptr;
    const CodeTable* m_distTable = nullptr;
    bool m_filled = false;
    std::unique_ptr<FastTables> m_fast;
    std::unique_ptr<FastTables> m_staticFast;
    const FastTables* m_blockFast = nullptr;
    bool m_static = false;

    int64_t m_capacity = 0;
    bool m_exhausted = false; ///< bits were wanted that the stream doesn't have
    Loop m_loop = Loop::Fastest;
    MessageHook m_message;
};

} // namespace png
