// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/CodeTable.h"

#include <cstdint>
#include <initializer_list>
#include <string>

namespace recipes {

/// Writes a DEFLATE stream bit by bit.
class Stream {
public:
    Stream& Bits(uint32_t value, int count) {
        for (int bit = 0; bit < count; ++bit, ++m_count) {
            if (m_count % 8 == 0)
                m_bytes.push_back('\0');
            m_bytes.back() = char(m_bytes.back() | (value >> bit & 1U) << m_count % 8);
        }
        return *this;
    }
    Stream& Code(uint32_t value, int count) { return Bits(png::ReverseBits(value, count), count); }
    Stream& Fixed(bool last) { return Bits(last, 1).Bits(1, 2); }
    /// A symbol of the fixed codes.
    Stream& Literal(uint32_t symbol) {
        if (symbol < 144)
            return Code(0x30 + symbol, 8);
        if (symbol < 256)
            return Code(0x190 + symbol - 144, 9);
        return symbol < 280 ? Code(symbol - 256, 7) : Code(0xC0 + symbol - 280, 8);
    }
    Stream& Stored(bool last, uint32_t length, uint32_t complement, const std::string& bytes) {
        Bits(last, 1).Bits(0, 2);
        m_count = m_bytes.size() * 8;
        Bits(length, 16).Bits(complement, 16);
        for (const char byte : bytes)
            Bits(static_cast<unsigned char>(byte), 8);
        return *this;
    }
    /// The head of a dynamic block: the lengths of the code length codes, in their order.
    Stream& Dynamic(uint32_t literals, uint32_t distances,
                    std::initializer_list<uint32_t> lengths) {
        Bits(1, 1).Bits(2, 2).Bits(literals - 257, 5).Bits(distances - 1, 5);
        Bits(uint32_t(lengths.size()) - 4, 4);
        for (const uint32_t length : lengths)
            Bits(length, 3);
        return *this;
    }
    std::string Take() const { return m_bytes; }

private:
    std::string m_bytes;
    size_t m_count = 0;
};

} // namespace recipes
