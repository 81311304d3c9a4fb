// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/Inflate.h"

#include "DeflateStream.h"
#include "PngFile.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

namespace {

using recipes::Stream;

// What one call of Inflate leaves behind.
struct Outcome {
    std::string data;
    int32_t result = 0;
    std::string message;
    bool operator==(const Outcome&) const = default;
};

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
        const Outcome outcome = Decode(plain, stream, expected, wide);
        EXPECT_EQ(outcome, Decode(portable, stream, expected, wide));
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

TEST(InflateTest, FixedBlocksAndMatches) {
    Stream stream;
    stream.Fixed(false).Literal('a').Literal(285).Code(0, 5).Literal(256); // 258 of distance 1
    stream.Fixed(true).Literal('b').Literal(257).Code(1, 5).Literal(256);  // distance 2
    EXPECT_EQ((Outcome{std::string(259, 'a') + "baba", 0, ""}),
              Inflated(stream.Take() + kChecksum));

    // Distances of Deflate64, and its length.
    std::string far(50000, '\0');
    for (size_t i = 0; i < far.size(); ++i)
        far[i] = char(i * i >> 7);
    Stream wide;
    wide.Stored(false, 50000, ~50000U, far);
    wide.Fixed(true).Literal(257).Code(30, 5).Bits(1, 14);
    wide.Literal(257).Code(31, 5).Bits(2, 14).Literal(256);
    std::string expected = far + far.substr(50000 - 32770, 3);
    expected += expected.substr(50003 - 49155, 3);
    EXPECT_EQ((Outcome{expected, 0, ""}), Inflated(wide.Take(), 60000));
    Stream longer;
    longer.Fixed(true).Literal('x').Literal(285).Bits(697, 16).Code(0, 5).Literal(256);
    EXPECT_EQ((Outcome{std::string(701, 'x'), 0, ""}), Inflated(longer.Take(), 1000, true));
}

TEST(InflateTest, StoredBlocks) {
    EXPECT_EQ((Outcome{"", 0, ""}),
              Inflated(Stream().Stored(true, 0, 0xFFFF, "").Take() + kChecksum));
    EXPECT_EQ((Outcome{"abc", -2, ""}), Inflated(Stream().Stored(true, 3, 0, "abc").Take()));
    EXPECT_EQ((Outcome{"", -1, ""}), Inflated(Stream().Stored(true, 3, ~3U, "ab").Take()));
    EXPECT_EQ((Outcome{"", -1, ""}),
              Inflated(Stream().Stored(true, 200, ~200U, std::string(200, 'x')).Take(), 50));
    // No block is the last one; the next head isn't there.
    EXPECT_EQ((Outcome{"ab", -1, ""}),
              Inflated(Stream().Stored(false, 2, ~2U, "ab").Take() + '\0'));
    EXPECT_EQ((Outcome{"ab", -1, ""}),
              Inflated(Stream().Stored(false, 2, ~2U, "ab").Take() + '\7'));
}

// How near the end a stored block may begin depends on how far the codes so far made the loop read
// ahead, and codes of another stream count for that.
TEST(InflateTest, StoredBlocksAtTheEnd) {
    std::string text;
    for (size_t i = 0, count = 1, next = 1; i < 20; ++i, count = std::exchange(next, next + count))
        text.append(count, char('a' + i)); // codes as long as they get
    std::ranges::shuffle(text, std::mt19937(1));
    const auto size = int32_t(text.size());
    Stream stream;
    stream.Fixed(false).Literal('a').Literal(256).Stored(true, 0, 0xFFFF, "");
    Loops fresh;
    EXPECT_EQ((Outcome{"a", -1, ""}), fresh.Decoded(stream.Take(), 9));
    EXPECT_EQ((Outcome{"a", 0, ""}), Loops().Decoded(stream.Take() + '\0', 9));
    Loops used;
    used.Decoded(recipes::Deflated(text, 6, Z_HUFFMAN_ONLY).substr(2), size);
    EXPECT_EQ((Outcome{"a", -1, ""}), used.Decoded(stream.Take() + '\0', 9));
}

TEST(InflateTest, DamagedBlocksKeepWhatCameBefore) {
    const auto start = [] { return Stream().Fixed(true).Literal('a'); };
    EXPECT_EQ((Outcome{"a", -1, ""}), Inflated(start().Literal(257).Code(1, 5).Take())); // too far
    EXPECT_EQ((Outcome{"ab", -1, ""}), Inflated(start().Literal('b').Take()));           // no end
    EXPECT_EQ((Outcome{"a", -1, ""}), Inflated(start().Literal(284).Bits(0, 3).Take()));
    EXPECT_EQ((Outcome{"", -1, ""}), Inflated(""));
    // The output is cut at 100 bytes more than expected.
    EXPECT_EQ((Outcome{std::string(105, 'a'), 0, ""}),
              Inflated(start().Literal(285).Code(0, 5).Literal(256).Take(), 5));
}

TEST(InflateTest, CodesThatCannotBeBuiltLeaveTheStream) {
    // Code length symbols: 0 and 1 of one bit, or 16 and 18, as the order 16, 17, 18, 0, ... has
    // them.
    const auto zerosAndOnes = [](uint32_t literals) {
        return Stream().Dynamic(literals, 1,
                                {0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1});
    };
    Stream lone = zerosAndOnes(257); // two literals, but a single distance code
    lone.Bits(1, 1).Bits(0, 32).Bits(0, 32).Bits(0, 32).Bits(0, 32).Bits(0, 32).Bits(0, 32);
    lone.Bits(0, 32).Bits(0, 31).Bits(1, 1).Bits(1, 1);
    Stream many = zerosAndOnes(257);
    many.Bits(7, 3);
    Stream repeatFirst = Stream().Dynamic(257, 1, {1, 0, 1, 0});
    repeatFirst.Bits(0, 8);
    Stream repeatPast = Stream().Dynamic(257, 1, {1, 0, 1, 0});
    repeatPast.Bits(1, 1).Bits(127, 7).Bits(1, 1).Bits(127, 7);
    Stream incomplete = Stream().Dynamic(257, 1, {2, 0, 1, 0});
    for (const Stream& stream : {lone, many, repeatFirst, repeatPast, incomplete}) {
        const std::string bytes = stream.Take() + std::string(400, '\0');
        EXPECT_EQ((Outcome{bytes, 0, kTreeMessage}), Inflated(bytes)) << &stream - &lone;
    }
    EXPECT_EQ((Outcome{"", -1, ""}),
              Inflated(repeatPast.Take().substr(0, 4))); // it only ends early
}

// Streams by zlib, whole, cut, changed, and read with a buffer too small for them: as zlib reads
// them, and the same with all loops; the same objects for all, as one decoder reads many files.
TEST(InflateTest, AllLoopsReadWhatZlibWrites) {
    std::mt19937 random(7);
    Loops loops;
    for (int round = 0; round < 300; ++round) {
        std::string text(1 + random() % (round % 10 == 0 ? 200000 : 3000), '\0');
        const uint32_t letters = 1 + random() % 256;
        for (size_t i = 0; i < text.size(); ++i)
            text[i] = char(i > 40 && random() % 4 != 0 ? text[i - 1 - random() % 2 * 37]
                                                       : random() % letters);
        const std::string stream = recipes::Deflated(text, int(random() % 10)).substr(2);
        const auto size = int32_t(text.size());
        ASSERT_EQ((Outcome{text, 0, ""}), loops.Decoded(stream, size));
        loops.Decoded(stream, int32_t(random() % text.size()) - 100);
        for (int damage = 0; damage < 5 && !HasFailure(); ++damage) {
            std::string changed = stream.substr(0, 1 + random() % stream.size());
            changed[random() % changed.size()] ^= char(1 << random() % 8);
            loops.Decoded(changed, size);
        }
    }
}

} // namespace
