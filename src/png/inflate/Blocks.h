// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/format/Bytes.h"
#include "png/inflate/BitReader.h"
#include "png/inflate/CodePair.h"
#include "png/inflate/CodeTable.h"
#include "png/inflate/Window.h"

#include <cstdint>
#include <span>

namespace png {

/// Reads the blocks of a DEFLATE stream (RFC 1951, 3.2.3), one after the other.
class Blocks {
public:
    /// See Inflater::Use.
    enum class Loop { Plain, Portable, Fastest };
    /// What follows a block: another one or the end, of the stream or by damage; NoCodes: the end,
    /// as the block's codes can't be built.
    enum class Next { Block, Finish, NoCodes };

    Blocks() = default;
    Blocks(const Blocks&) = delete;
    Blocks& operator=(const Blocks&) = delete;

    void Use(Loop loop) { m_loop = loop; }
    /// Begins a stream of which at most `capacity` bytes are put out.
    void InitInflate(Bytes stream, int32_t capacity);
    /// Reads a block. NoCodes: its codes can't be built. Result, 0 at first, tells of damage as
    /// that of Inflate does.
    Next Read(bool wideLengths, int32_t& Result);
    /// Ends the stream and gives back what was put out, or the stream itself.
    Bytes Output();
    Bytes Stream();

private:
    Next StoredBlock(int32_t& Result);
    int32_t UseStaticTrees();
    int32_t ReadDynamicTrees();
    int32_t ReadCodeLengths(std::span<uint8_t> lengths, const CodeTable& table, int32_t minBits,
                            int32_t maxBits);
    Next DecodeSymbols(bool wideLengths, int32_t& Result);
    bool RunAhead();

    BitReader m_in;
    Window m_out;
    CodeTable LitTable;
    CodeTable DistTable;
    CodeTable StaticLitTable;
    CodeTable StaticDistTable;
    CodePair m_dynamic{LitTable, DistTable};
    CodePair m_static{StaticLitTable, StaticDistTable};
    bool StaticBuilt = false;
    CodePair* m_codes = &m_dynamic; ///< those of the block
    Loop m_loop = Loop::Fastest;
};

} // namespace png
