// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/inflate/CodePair.h"

#include <algorithm>

namespace png {

int32_t CodePair::Assign(std::span<const uint8_t> lengths, size_t literals,
                         const CodePair& before) {
    LitTable.CodeLengths.clear();
    std::ranges::copy(lengths, m_lengths.begin());
    m_literals = literals;
    m_distances = lengths.size() - literals;
    m_fastBuilt = false;
    MaxLitBits = before.MaxLitBits;
    MaxDistBits = before.MaxDistBits;
    const int32_t left = CheckCodeLengths(Literals(), MaxLitBits, MinLitBits);
    return left != 0 ? left : CheckCodeLengths(Distances(), MaxDistBits, MinDistBits);
}

void CodePair::SetBits(int32_t minLit, int32_t maxLit, int32_t minDist, int32_t maxDist) {
    MinLitBits = minLit;
    MaxLitBits = maxLit;
    MinDistBits = minDist;
    MaxDistBits = maxDist;
}

void CodePair::Fill() {
    if (!LitTable.CodeLengths.empty())
        return;
    FillCodeTable(LitTable, Literals(), MaxLitBits);
    FillCodeTable(DistTable, Distances(), MaxDistBits);
}

const FastTables& CodePair::Fast() {
    if (!m_fast)
        m_fast = std::make_unique<FastTables>();
    if (!m_fastBuilt)
        BuildFastTables(*m_fast, Literals(), Distances());
    m_fastBuilt = true;
    return *m_fast;
}

} // namespace png
