// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/inflate/Inflate.h"

#include "DeflateStream.h"
#include "PngFile.h"

#include <cstring>
#include <gtest/gtest.h>
#include <malloc.h>

// The linker lets the decoder take its memory here: what it leaves unset is each time filled in
// another way, so that the loops don't agree by chance.
extern "C" void* RealRealloc(void* memory, size_t size) asm("__real_realloc");
extern "C" void* FilledRealloc(void* memory, size_t size) asm("__wrap_realloc");

void* FilledRealloc(void* memory, size_t size) {
    static int fill = 0;
    const size_t before = memory == nullptr ? 0 : malloc_usable_size(memory);
    auto* taken = static_cast<char*>(RealRealloc(memory, size));
    if (taken != nullptr && size > before)
        std::memset(taken + before, fill += 37, size - before);
    return taken;
}

namespace {

using namespace recipes;

Outcome Read(const std::string& data, int32_t result = 0) {
    return {data, result, ""};
}

std::optional<Outcome> Inflated(const std::string& stream, int32_t expected = 1000) {
    return Loops().Decoded(stream, expected);
}

const std::string kChecksum = "\1\2\3\4"; // stands behind the stream in every file
const std::string kMore(99, 'x');         // as much that the accelerated loops run

// Codes of 1 to 15 bits: bytes 0 to 14 have one bit more each, the end of the block as many as the
// last.
Stream& LongCodes(Stream& stream) {
    std::vector<uint8_t> lengths(257);
    for (uint8_t i = 0; i < 15; ++i)
        lengths[i] = uint8_t(i + 1);
    lengths[256] = 15;
    lengths.resize(259, 1);
    return stream.Codes(false, lengths);
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
    std::string text = Bytes(65000, 256, random);
    Stream stream;
    stream.Stored(false, text).Fixed(true);
    const auto add = [&](uint32_t length, uint32_t distance) {
        const std::string next = Bytes(std::min(distance, 40U), 256, random);
        for (uint32_t i = 0; i < length; ++i)
            text += text[text.size() - distance];
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
        for (const uint32_t next : {distance + 1, distance + distance / 2 + 1, distance * 2})
            add(9, next);
    }
    stream.End();
    for (const int more : {999, -100}) // with and without more room
        EXPECT_TRUE(Read(text) == Inflated(stream.Take() + kChecksum, int32_t(text.size()) + more));
    Stream wide;
    wide.Fixed(true).Literals("x").Literal(285).Bits(704, 16).Code(0, 5).End();
    Stream none; // the length of a symbol that has none
    none.Fixed(true).Literals("a").Literal(286).Code(0, 5).Literals("b").End();
    EXPECT_EQ(Read("ab"), Inflated(none.Take() + kMore));
    for (const std::string& behind : {kChecksum, kMore})
        EXPECT_EQ(Read(std::string(708, 'x')), Loops().Decoded(wide.Take() + behind, 1000, true));
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
    const Stream tooFar = start(true).Match(3, 2), reserved = start(false).End().Bits(7, 3);
    for (const Stream& stream : {tooFar, reserved, start(true).Literal(284).Bits(0, 3)})
        EXPECT_EQ(Read("a", -1), Inflated(stream.Take()));
    for (const Stream& stream : {tooFar, reserved})
        EXPECT_EQ(Read("a", -1), Inflated(stream.Take() + std::string(63, '\0')));
    EXPECT_EQ(Read("a", -1), Inflated(start(true).Take())); // no end
    EXPECT_EQ(Read("", -1), Inflated(""));
    EXPECT_EQ(Read("abc", -2), Inflated(Stream().Stored(true, "abc", 1).Take()));
    const std::string stored = Stream().Stored(false, "ab").Take();
    EXPECT_EQ(Read("", -1), Inflated(stored.substr(0, stored.size() - 1)));
    for (const char head : {'\0', '\7'}) // the block isn't the last one, but no other comes
        EXPECT_EQ(Read("ab", -1), Inflated(stored + head));
}

TEST(InflateTest, CodesThatCannotBeBuiltLeaveTheStream) {
    // The lengths of the codes of a, b and the end; then one literal and the end.
    const auto codes = [](uint8_t a, uint8_t b, uint8_t end, size_t distances) {
        std::vector<uint8_t> lengths(257);
        lengths['a'] = a, lengths['b'] = b, lengths[256] = end;
        lengths.resize(257 + distances, 1);
        return Stream().Codes(true, lengths).Bits(2, 2);
    };
    // The lengths of the codes for 16, 18, 0 and 1 in a code of lengths.
    const auto head = [](uint32_t repeat, uint32_t nulls, uint32_t zero, uint32_t one) {
        std::vector<uint32_t> lengths(18);
        lengths[0] = repeat, lengths[2] = nulls, lengths[3] = zero, lengths[17] = one;
        return Stream().Dynamic(true, 2, lengths);
    };
    Stream few = head(0, 2, 0, 1);
    few.Bits(0, 1).Code(2, 2).Bits(127, 7).Code(2, 2).Bits(106, 7).Bits(0, 3).Bits(2, 2);
    const Stream first = head(1, 1, 0, 0).Bits(0, 8); // nothing to repeat
    const Stream past = head(1, 1, 0, 0).Bits(1, 1).Bits(127, 7).Bits(1, 1).Bits(127, 7);
    const std::string behind(400, '\0');
    for (const Stream& stream : {codes(1, 0, 1, 1), codes(1, 0, 1, 3), codes(1, 1, 1, 2),
                                 codes(2, 0, 1, 2), few, head(0, 1, 1, 1), first, past}) {
        const std::string bytes = stream.Take() + behind;
        EXPECT_EQ((Outcome{bytes, 0, "Error in tree creation (Static)"}), Inflated(bytes));
    }
    EXPECT_EQ(Read("a"), Inflated(codes(1, 0, 1, 2).Take() + behind)); // such ones can
    EXPECT_EQ(Read("", -1), Inflated(past.Take().substr(0, 9)));       // it only ends early
}

// Streams by zlib, whole, cut, changed, and read with a buffer too small for them; the same objects
// for all, as one decoder reads many files.
TEST(InflateTest, AllLoopsReadWhatZlibWrites) {
    std::mt19937 random(7);
    Loops loops;
    for (int round = 0; round < 200 && !HasFailure(); ++round) {
        const size_t size = 1 + random() % (round % 10 == 0 ? 70000 : 3000);
        const std::string text = Bytes(size, 1 + random() % 256, random, 3);
        const std::string stream = Deflated(text, int(random() % 10)).substr(2);
        EXPECT_EQ(Read(text), loops.Decoded(stream, int32_t(size)));
        EXPECT_TRUE(loops.Decoded(stream, int32_t(random() % size) - 100));
        for (int damage = 0; damage < 5; ++damage) {
            std::string changed = stream.substr(0, 1 + random() % stream.size());
            char& byte = changed[random() % changed.size()];
            byte = char(byte ^ 1 << random() % 8);
            EXPECT_TRUE(loops.Decoded(changed, int32_t(size)));
        }
    }
}

} // namespace
