// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/Inflate.h"

#include "DeflateStream.h"
#include "PngFile.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <malloc.h>
#include <utility>

// The linker lets the decoder take its memory here: what it leaves unset is never by chance what
// another buffer held.
extern "C" void* RealRealloc(void* memory, size_t size) asm("__real_realloc");
extern "C" void* FilledRealloc(void* memory, size_t size) asm("__wrap_realloc");

static int fill = 0xE7;

void* FilledRealloc(void* memory, size_t size) {
    const size_t before = memory == nullptr ? 0 : malloc_usable_size(memory);
    auto* taken = static_cast<char*>(RealRealloc(memory, size));
    if (taken != nullptr && size > before)
        std::memset(taken + before, fill, size - before);
    return taken;
}

namespace {

using recipes::Stream;

// What one call of Inflate leaves behind.
struct Outcome {
    std::string data;
    int32_t result = 0;
    std::string message;
    bool operator==(const Outcome&) const = default;
};

Outcome Read(const std::string& data, int32_t result = 0) {
    return {data, result, ""};
}

Outcome Decode(png::Inflater& inflater, const std::string& stream, int32_t expected,
               bool wide = false) {
    Outcome outcome;
    inflater.MessageBox([&](const std::string& text) { outcome.message = text; });
    png::Bytes data(std::span(reinterpret_cast<const uint8_t*>(stream.data()), stream.size()));
    inflater.Inflate(data, expected, wide, outcome.result);
    outcome.data.assign(data.begin(), data.end());
    return outcome;
}

// The loops that must agree; each keeps what an inflater keeps between streams.
struct Loops {
    png::Inflater plain, portable, fastest;
    Loops() {
        plain.Use(png::Inflater::Loop::Plain);
        portable.Use(png::Inflater::Loop::Portable);
    }
    Outcome Decoded(const std::string& stream, int32_t expected, bool wide = false) {
        fill = 0x5A;
        const Outcome outcome = Decode(plain, stream, expected, wide);
        fill = 0xC3;
        EXPECT_EQ(outcome, Decode(portable, stream, expected, wide));
        fill = 0xE7;
        EXPECT_EQ(outcome, Decode(fastest, stream, expected, wide));
        return outcome;
    }
};

Outcome Inflated(const std::string& stream, int32_t expected = 1000, bool wide = false) {
    return Loops().Decoded(stream, expected, wide);
}

const std::string kTreeMessage = "Error in tree creation (Static)";
// What stands behind the stream in every file.
const std::string kChecksum = "\1\2\3\4";
// As much that the accelerated loops run.
const std::string kMore(99, 'x');

TEST(InflateTest, FixedBlocksAndMatches) {
    Stream stream;
    stream.Fixed(false).Literals("a").Match(258, 1).End();
    stream.Fixed(true).Literals("b").Match(3, 2).End();
    EXPECT_EQ(Read(std::string(259, 'a') + "baba"), Inflated(stream.Take() + kChecksum));
    Stream wide;
    wide.Fixed(true).Literals("x").Literal(285).Bits(704, 16).Code(0, 5).End();
    for (const std::string& behind : {kChecksum, kMore})
        EXPECT_EQ(Read(std::string(708, 'x')), Inflated(wide.Take() + behind, 1000, true));
}

TEST(InflateTest, StoredBlocks) {
    EXPECT_EQ(Read(""), Inflated(Stream().Stored(true, "").Take() + kChecksum));
    EXPECT_EQ(Read("abc", -2), Inflated(Stream().Stored(true, "abc", 3, 0).Take()));
    EXPECT_EQ(Read("", -1), Inflated(Stream().Stored(true, "ab", 3, ~3U).Take()));
    // No block is the last one; the next head isn't there.
    EXPECT_EQ(Read("ab", -1), Inflated(Stream().Stored(false, "ab").Take() + '\0'));
    EXPECT_EQ(Read("ab", -1), Inflated(Stream().Stored(false, "ab").Take() + '\7'));
}

// Codes of 1 to 15 bits: bytes 0 to 14 have one bit more each, the end of the block as many as the
// last.
Stream& LongCodes(Stream& stream) {
    std::vector<uint8_t> literals(257);
    for (uint8_t i = 0; i < 15; ++i)
        literals[i] = uint8_t(i + 1);
    literals[256] = 15;
    return stream.Codes(false, literals, {1, 1});
}

// A stored block begins with the next byte, though the loop may have read further, and how near the
// end it may begin depends on that. Long codes make it read ahead, those of other streams, too.
TEST(InflateTest, StoredBlocksAfterOthers) {
    for (int zeros = 0; zeros < 8; ++zeros) {
        Stream stream;
        LongCodes(stream).Bits(0, zeros).Bits(0x7FFF, 15).Fixed(false).Literals("b").End();
        stream.Stored(false, "cd").Fixed(false).Literals("e").End().Fixed(true).Literals("f").End();
        const std::string expected = std::string(size_t(zeros), '\0') + "bcdef";
        for (const std::string& behind : {kChecksum, kMore})
            EXPECT_EQ(Read(expected), Inflated(stream.Take() + behind)) << zeros;
    }
    Stream stream, codes;
    stream.Fixed(false).Literals("a").End().Stored(true, "");
    LongCodes(codes).Bits(0x7FFF, 15);
    Loops first, second; // the fixed codes are built before the long ones, or behind them
    EXPECT_EQ(Read("a", -1), first.Decoded(stream.Take(), 9));
    for (Loops* loops : {&first, &second})
        EXPECT_EQ(Read("", -1), loops->Decoded(codes.Take(), 9));
    EXPECT_EQ(Read("a"), first.Decoded(stream.Take() + '\0', 9));
    EXPECT_EQ(Read("a", -1), second.Decoded(stream.Take() + '\0', 9));
}

TEST(InflateTest, MatchesOfEveryLengthAndDistance) {
    std::mt19937 random(3);
    const auto bytes = [&](size_t count) {
        std::string made(count, '\0');
        std::ranges::generate(made, [&] { return char(random()); });
        return made;
    };
    std::string text = bytes(65000);
    Stream stream;
    stream.Stored(false, text).Fixed(true);
    const auto add = [&](uint32_t length, uint32_t distance) {
        for (uint32_t i = 0; i < length; ++i)
            text += text[text.size() - distance];
        const std::string next = bytes(std::min(distance, 40U));
        text += next;
        stream.Match(length, distance).Literals(next);
    };
    for (uint32_t distance = 1; distance <= 40; ++distance) {
        for (uint32_t length = 3; length <= 258; length += length < 70 ? 1 : 47)
            add(length, distance);
    }
    for (uint32_t length = 3; length <= 258; ++length)
        add(length, 50);
    for (uint32_t distance = 1; distance < 65536; distance *= 2) { // where the symbols change
        add(9, distance + 1);
        add(9, distance + distance / 2 + 1);
        add(9, distance * 2);
    }
    stream.End();
    const auto size = int32_t(text.size());
    for (const int32_t expected : {size + 999, size - 100}) // with and without more room
        EXPECT_TRUE(Read(text) == Inflated(stream.Take() + kChecksum, expected));
}

// One byte more than the capacity still finds a place; more bytes are cut at the capacity.
TEST(InflateTest, TheOutputHasItsEnd) {
    for (const int32_t expected : {0, 1900}) {
        for (const size_t more : {0, 1, 2, 50}) {
            const size_t capacity = size_t(expected) + 100;
            const std::string text(capacity + more, 'a');
            const auto cut = Read(text.substr(0, more < 2 ? text.size() : capacity));
            Stream literals, match, stored;
            literals.Fixed(true).Literals(text).End();
            match.Fixed(true).Literals(text.substr(80)).Match(80, 1).End();
            stored.Stored(true, text);
            EXPECT_EQ(cut, Inflated(literals.Take() + kMore, expected)) << more;
            EXPECT_EQ(cut, Inflated(match.Take() + kMore, expected)) << more;
            EXPECT_EQ(more < 2 ? cut : Read("", -1), Inflated(stored.Take() + kMore, expected));
        }
    }
}

TEST(InflateTest, DamagedBlocksKeepWhatCameBefore) {
    const auto start = [](bool last) { return Stream().Fixed(last).Literals("a"); };
    for (const std::string& behind : {std::string(), std::string(63, '\0')}) {
        const auto after = [&](Stream& stream) { return Inflated(stream.Take() + behind); };
        EXPECT_EQ(Read("a", -1), after(start(true).Match(3, 2))); // too far
        EXPECT_EQ(Read("a", -1), after(start(false).End().Bits(7, 3)));
    }
    EXPECT_EQ(Read("ab", -1), Inflated(start(true).Literals("b").Take())); // no end
    EXPECT_EQ(Read("a", -1), Inflated(start(true).Literal(284).Bits(0, 3).Take()));
    EXPECT_EQ(Read("", -1), Inflated(""));
}

TEST(InflateTest, CodesThatCannotBeBuiltLeaveTheStream) {
    const auto codes = [](std::initializer_list<std::pair<size_t, int>> literals,
                          const std::vector<uint8_t>& distances) {
        std::vector<uint8_t> lengths(257);
        for (const auto& [symbol, length] : literals)
            lengths[symbol] = uint8_t(length);
        return Stream().Codes(true, lengths, distances).Bits(2, 2); // one literal and the end
    };
    const std::string behind(400, '\0');
    EXPECT_EQ(Read("a"), Inflated(codes({{'a', 1}, {256, 1}}, {1, 1}).Take() + behind));
    // Code length symbols, as the order 16, 17, 18, 0, ... has them: too few, too many; then 16
    // comes first, or 18 leads past the end.
    const auto heads = [](std::initializer_list<uint32_t> lengths) {
        return Stream().Dynamic(257, 2, lengths);
    };
    Stream few = heads({0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1});
    few.Bits(0, 1).Code(2, 2).Bits(127, 7).Code(2, 2).Bits(106, 7).Bits(0, 3).Bits(2, 2);
    Stream many = heads({0, 0, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1});
    Stream past = heads({1, 0, 1, 0}).Bits(1, 1).Bits(127, 7).Bits(1, 1).Bits(127, 7);
    for (const Stream& stream :
         {codes({{'a', 1}, {256, 1}}, {1}), codes({{'a', 1}, {256, 1}}, {1, 1, 1}),
          codes({{'a', 1}, {'b', 1}, {256, 1}}, {1, 1}), codes({{'a', 2}, {256, 1}}, {1, 1}), few,
          many, heads({1, 0, 1, 0}).Bits(0, 8), past}) {
        const std::string bytes = stream.Take() + behind;
        EXPECT_EQ((Outcome{bytes, 0, kTreeMessage}), Inflated(bytes));
    }
    EXPECT_EQ(Read("", -1), Inflated(past.Take().substr(0, 4))); // it only ends early
}

// Streams by zlib, whole, cut, changed, and read with a buffer too small for them: as zlib reads
// them, and the same with all loops; the same objects for all, as one decoder reads many files.
TEST(InflateTest, AllLoopsReadWhatZlibWrites) {
    std::mt19937 random(7);
    Loops loops;
    for (int round = 0; round < 200; ++round) {
        std::string text(1 + random() % (round % 10 == 0 ? 70000 : 3000), '\0');
        const uint32_t letters = 1 + random() % 256;
        for (size_t i = 0; i < text.size(); ++i)
            text[i] = char(i > 40 && random() % 4 != 0 ? text[i - 1 - random() % 2 * 37]
                                                       : random() % letters);
        const std::string stream = recipes::Deflated(text, int(random() % 10)).substr(2);
        const auto size = int32_t(text.size());
        ASSERT_EQ(Read(text), loops.Decoded(stream, size));
        loops.Decoded(stream, int32_t(random() % text.size()) - 100);
        for (int damage = 0; damage < 5 && !HasFailure(); ++damage) {
            std::string changed = stream.substr(0, 1 + random() % stream.size());
            changed[random() % changed.size()] ^= char(1 << random() % 8);
            loops.Decoded(changed, size);
        }
    }
}

} // namespace
