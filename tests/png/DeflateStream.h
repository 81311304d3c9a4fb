// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/inflate/CodeTable.h"
#include "png/inflate/Inflate.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <optional>
#include <string>
#include <tuple>
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
        const Part size = length == 258 ? Part{28, 0, 0} : PartOf(length - 3, 2);
        Literal(257 + size.symbol).Bits(size.value, size.bits);
        return Code(back.symbol, 5).Bits(back.value, back.bits);
    }
    /// The complement of the length is wrong by some bits.
    Stream& Stored(bool last, const std::string& bytes, uint32_t wrong = 0) {
        Bits(last, 1).Bits(0, 2);
        m_count = m_bytes.size() * 8;
        Bits(uint32_t(bytes.size()), 16).Bits(~uint32_t(bytes.size()) ^ wrong, 16);
        for (const char byte : bytes)
            Bits(static_cast<unsigned char>(byte), 8);
        return *this;
    }
    /// The head of a dynamic block with the lengths of its codes, 257 of them for literals.
    Stream& Codes(bool last, const std::vector<uint8_t>& lengths) {
        std::vector<uint32_t> direct(19, 4);
        std::fill_n(direct.begin(), 3, 0); // not 16, 17, 18
        Dynamic(last, lengths.size() - 257, direct);
        for (const uint8_t length : lengths)
            Code(length, 4);
        return *this;
    }
    /// The head of a dynamic block: the lengths of the code length codes, in their order.
    Stream& Dynamic(bool last, size_t distances, const std::vector<uint32_t>& lengths) {
        Bits(last, 1).Bits(2, 2).Bits(0, 5).Bits(uint32_t(distances) - 1, 5);
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

/// What one call of Inflate leaves behind: data, result, message.
using Outcome = std::tuple<std::string, int32_t, std::string>;

/// An inflater for each of the loops, which must agree; it keeps what it keeps between streams.
class Loops {
public:
    Loops() {
        m_inflaters[1].Use(png::Inflater::Loop::Portable);
        m_inflaters[2].Use(png::Inflater::Loop::Plain);
    }
    /// None if they don't agree.
    std::optional<Outcome> Decoded(const std::string& stream, int32_t expected, bool wide = false) {
        std::array<Outcome, 3> outcomes;
        for (size_t i = 0; i < outcomes.size(); ++i) {
            auto& [bytes, result, message] = outcomes[i];
            m_inflaters[i].MessageBox([&told = message](const std::string& text) { told = text; });
            png::Bytes data({reinterpret_cast<const uint8_t*>(stream.data()), stream.size()});
            int32_t room = expected;
            m_inflaters[i].Inflate(data, room, wide, result);
            bytes.assign(data.begin(), data.end());
        }
        const bool agree = outcomes[0] == outcomes[1] && outcomes[0] == outcomes[2];
        return agree ? std::optional(outcomes[0]) : std::nullopt;
    }

private:
    std::array<png::Inflater, 3> m_inflaters;
};

} // namespace recipes
