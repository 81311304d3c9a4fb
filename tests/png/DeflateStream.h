// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/CodeTable.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

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
    Stream& Literals(const std::string& bytes) {
        for (const char byte : bytes)
            Literal(static_cast<unsigned char>(byte));
        return *this;
    }
    Stream& End() { return Literal(256); }
    /// A match in the fixed codes. The symbols are reckoned, for the reader has tables of them.
    Stream& Match(uint32_t length, uint32_t distance) {
        const Part back = PartOf(distance - 1, 1);
        if (length == 258)
            return Literal(285).Code(back.symbol, 5).Bits(back.value, back.bits);
        const Part size = PartOf(length - 3, 2);
        return Literal(257 + size.symbol)
            .Bits(size.value, size.bits)
            .Code(back.symbol, 5)
            .Bits(back.value, back.bits);
    }
    Stream& Stored(bool last, const std::string& bytes) {
        return Stored(last, bytes, uint32_t(bytes.size()), ~uint32_t(bytes.size()));
    }
    Stream& Stored(bool last, const std::string& bytes, uint32_t length, uint32_t complement) {
        Bits(last, 1).Bits(0, 2);
        m_count = m_bytes.size() * 8;
        Bits(length, 16).Bits(complement, 16);
        for (const char byte : bytes)
            Bits(static_cast<unsigned char>(byte), 8);
        return *this;
    }
    /// The head of a dynamic block with the lengths of its codes, each in 4 bits.
    Stream& Codes(bool last, const std::vector<uint8_t>& literals,
                  const std::vector<uint8_t>& distances) {
        Bits(last, 1).Bits(2, 2).Bits(uint32_t(literals.size()) - 257, 5);
        Bits(uint32_t(distances.size()) - 1, 5).Bits(15, 4).Bits(0, 9); // not 16, 17, 18
        for (int length = 0; length < 16; ++length)
            Bits(4, 3);
        for (const auto* lengths : {&literals, &distances}) {
            for (const uint8_t length : *lengths)
                Code(length, 4);
        }
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
    struct Part {
        uint32_t symbol, value;
        int bits;
    };
    // Every number of extra bits has 2 or 4 symbols, for 1 or 2 bits below the highest one.
    static Part PartOf(uint32_t value, int below) {
        const int bits = std::max(0, int(std::bit_width(value)) - 1 - below);
        return {(uint32_t(bits) << below) + (value >> bits), value & ((1U << bits) - 1), bits};
    }

    std::string m_bytes;
    size_t m_count = 0;
};

} // namespace recipes
