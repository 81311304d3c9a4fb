// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/inflate/BitReader.h"
#include "png/inflate/CodeTable.h"
#include "png/inflate/DeflateTables.h"
#include "png/inflate/FastCodes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace png {

/// The codes of a block: one of literals and lengths, one of distances. Their tables are made once
/// they are needed, as a block may be very short.
class CodePair {
public:
    /// The tables, which must outlive the pair, are without lengths until they are made.
    CodePair(CodeTable& literals, CodeTable& distances)
        : LitTable(literals), DistTable(distances) {}

    /// Takes the lengths of all codes, those of so many literals and lengths first. Answers 0, or
    /// something else if one of the two sets isn't complete. The longest codes count as no shorter
    /// than those of the pair that was used before.
    int32_t Assign(std::span<const uint8_t> lengths, size_t literals, const CodePair& before);
    /// Counts the codes as exactly so long, whatever came before.
    void SetBits(int32_t minLit, int32_t maxLit, int32_t minDist, int32_t maxDist);
    /// Makes the tables of the two below, unless they are there.
    void Fill();
    int32_t DecodeLiteral(BitReader& stream) const {
        return stream.DecodeSymbol(LitTable, MinLitBits, MaxLitBits);
    }
    int32_t DecodeDistance(BitReader& stream) const {
        return stream.DecodeSymbol(DistTable, MinDistBits, MaxDistBits);
    }
    /// The tables of the accelerated loop, for a pair that is complete.
    const FastTables& Fast();

private:
    std::span<const uint8_t> Literals() const { return std::span(m_lengths).first(m_literals); }
    std::span<const uint8_t> Distances() const {
        return std::span(m_lengths).subspan(m_literals, m_distances);
    }

    CodeTable& LitTable;
    CodeTable& DistTable;
    int32_t MinLitBits = 0;
    int32_t MaxLitBits = 0;
    int32_t MinDistBits = 0;
    int32_t MaxDistBits = 0;

    std::array<uint8_t, kStaticLiterals + kStaticDistances> m_lengths{};
    size_t m_literals = 0;
    size_t m_distances = 0;
    std::unique_ptr<FastTables> m_fast; ///< stays for the next lengths
    bool m_fastBuilt = false;
};

} // namespace png
