// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/inflate/Inflate.h"

namespace png {

void Inflater::Inflate(Bytes& Data, int32_t& ExpectedSize, bool WideLengths, int32_t& Result) {
    ExpectedSize += kSpare;
    Result = 0;
    m_blocks.InitInflate(std::move(Data), ExpectedSize);
    Blocks::Next next = Blocks::Next::Block;
    while (next == Blocks::Next::Block)
        next = m_blocks.Read(WideLengths, Result);
    if (next == Blocks::Next::NoCodes && m_message)
        m_message("Error in tree creation (Static)");
    Data = next == Blocks::Next::NoCodes ? m_blocks.Stream() : m_blocks.Output();
}

} // namespace png
