// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/rows/Deinterlace.h"

#include "png/rows/Unfilter.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <utility>
#include <vector>

namespace png {
namespace {

constexpr int32_t kBlock = 8; // pixels each way

// One of the seven reduced pictures, by its columns and rows in each block.
struct Pass {
    std::string_view columns;
    std::string_view rows;
};
constexpr std::array<Pass, 7> kPasses = {{{"1", "1"},
                                          {"5", "1"},
                                          {"15", "5"},
                                          {"37", "15"},
                                          {"1357", "37"},
                                          {"2468", "1357"},
                                          {"12345678", "2468"}}};

constexpr int32_t Digit(char digit) {
    return digit - '0';
}

// How many of the lines of a side the pattern names.
int32_t CountLines(int32_t side, std::string_view pattern) {
    const int32_t rest = side % kBlock;
    const auto partly = std::count_if(pattern.begin(), pattern.end(),
                                      [rest](char digit) { return Digit(digit) <= rest; });
    return side / kBlock * static_cast<int32_t>(pattern.size()) + static_cast<int32_t>(partly);
}

// The line of the picture, counted from 0, that is line `index` of the pass.
size_t LineOf(size_t index, std::string_view pattern) {
    return index / pattern.size() * kBlock +
           static_cast<size_t>(Digit(pattern[index % pattern.size()]) - 1);
}

template<size_t bytes>
void Scatter(uint8_t* to, const uint8_t* from, size_t pixels, size_t step) {
    for (size_t k = 0; k < pixels; ++k, to += step * bytes, from += bytes)
        std::memcpy(to, from, bytes);
}

// The picture that the passes fill.
struct Target {
    Bytes pixels;
    size_t width;
    size_t bytesPerPixel;
};

// Places the row's pixels in row `y` of the picture, in the columns of the pass.
void ScatterPassRow(Target& target, std::span<const uint8_t> row, const Pass& pass, size_t y,
                    size_t pixels) {
    const size_t step = kBlock / pass.columns.size();
    const size_t first = y * target.width + LineOf(0, pass.columns);
    uint8_t* to = target.pixels.data() + first * target.bytesPerPixel;
    if (step == 1) {
        std::copy_n(row.begin(), pixels * target.bytesPerPixel, to);
        return;
    }
    switch (target.bytesPerPixel) {
    case 1:
        return Scatter<1>(to, row.data(), pixels, step);
    case 2:
        return Scatter<2>(to, row.data(), pixels, step);
    case 3:
        return Scatter<3>(to, row.data(), pixels, step);
    case 4:
        return Scatter<4>(to, row.data(), pixels, step);
    case 6:
        return Scatter<6>(to, row.data(), pixels, step);
    case 8:
        return Scatter<8>(to, row.data(), pixels, step);
    default: // no sound file has such pixels
        for (size_t k = 0; k < pixels; ++k)
            std::copy_n(row.data() + k * target.bytesPerPixel, target.bytesPerPixel,
                        to + k * step * target.bytesPerPixel);
    }
}

// Undoes the filter; the row is the previous one of the next.
void UnfilterPassRow(Row row, FilterType filter, PreviousRow& previous, size_t distance) {
    UnfilterRow(filter, row, previous, distance);
    previous = row;
}

template<size_t bits>
using Pixels = std::array<uint8_t, 8 / bits>;

// For every byte the pixels in it, those in the high bits first.
template<size_t bits>
constexpr std::array<Pixels<bits>, 256> kUnpacked = [] {
    std::array<Pixels<bits>, 256> table{};
    for (size_t byte = 0; byte < table.size(); ++byte) {
        for (size_t k = 0; k < table[byte].size(); ++k)
            table[byte][k] = byte >> (8 - bits - k * bits) & ((1U << bits) - 1);
    }
    return table;
}();

const Pixels<1>& Unpack1Bit(uint8_t byte) {
    return kUnpacked<1>[byte];
}

const Pixels<2>& Unpack2Bit(uint8_t byte) {
    return kUnpacked<2>[byte];
}

const Pixels<4>& Unpack4Bit(uint8_t byte) {
    return kUnpacked<4>[byte];
}

template<class Unpack>
void Expand(std::span<const uint8_t> row, std::span<uint8_t> pixels, Unpack unpack) {
    const size_t perByte = unpack(0).size();
    for (size_t at = 0, i = 0; at < pixels.size(); at += perByte, ++i) {
        const auto& unpacked = unpack(row[i]);
        std::copy_n(unpacked.begin(), std::min(perByte, pixels.size() - at), &pixels[at]);
    }
}

} // namespace

int64_t PassRowBytes(int32_t width, int32_t bitsPerPixel, std::string_view pattern) {
    return (int64_t{CountLines(width, pattern)} * bitsPerPixel + 7) / 8;
}

int64_t InterlacedBytes(const Header& header) {
    int64_t total = 0;
    for (const Pass& pass : kPasses) {
        const int64_t row = PassRowBytes(header.Width, header.BitsPerPixel(), pass.columns);
        if (row > 0)
            total += (row + 1) * CountLines(header.Height, pass.rows);
    }
    return total;
}

void ExpandRowToBytes(std::span<const uint8_t> row, int32_t bitDepth, std::span<uint8_t> pixels) {
    switch (bitDepth) {
    case 1:
        return Expand(row, pixels, Unpack1Bit);
    case 2:
        return Expand(row, pixels, Unpack2Bit);
    default:
        return Expand(row, pixels, Unpack4Bit);
    }
}

Bytes Deinterlace(const Header& header, Bytes data) {
    const int32_t bits = header.BitsPerPixel();
    const auto width = static_cast<size_t>(header.Width);
    const auto distance = static_cast<size_t>(header.BytesPerPixel());
    Target target{Bytes(width * static_cast<size_t>(header.Height) * distance), width, distance};
    std::vector<uint8_t> zeros(static_cast<size_t>(header.LineBytes()));
    std::vector<uint8_t> expanded(bits < 8 ? width : 0);
    size_t pos = 0;
    for (const Pass& pass : kPasses) {
        const auto length = static_cast<size_t>(PassRowBytes(header.Width, bits, pass.columns));
        if (length == 0)
            continue;
        PreviousRow previous = zeros;
        const auto pixels = static_cast<size_t>(CountLines(header.Width, pass.columns));
        const auto rows = static_cast<size_t>(CountLines(header.Height, pass.rows));
        for (size_t i = 0; i < rows; ++i, pos += length + 1) {
            Row row(data.data() + pos + 1, length);
            UnfilterPassRow(row, FilterType{data[pos]}, previous, distance);
            if (bits < 8) {
                ExpandRowToBytes(row, bits, std::span(expanded).first(pixels));
                row = std::span(expanded).first(pixels);
            }
            ScatterPassRow(target, row, pass, LineOf(i, pass.rows), pixels);
        }
    }
    return std::move(target.pixels);
}

} // namespace png
