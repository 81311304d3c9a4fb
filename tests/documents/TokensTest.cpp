// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/Tokens.h"

#include <chrono>
#include <gtest/gtest.h>
#include <string>

using namespace documents;

namespace {

// Each token as its kind's letter and its text; with a ! if it lacks its end.
std::string Cut(std::string_view text) {
    std::string cut;
    for (const Token& token : Tokenize(text)) {
        cut += cut.empty() ? "" : " ";
        cut += "nkdsSlcy"[static_cast<int>(token.kind)];
        cut += token.closed ? ":" : "!";
        cut += token.In(text);
    }
    return cut;
}

} // namespace

TEST(TokensTest, EachPieceIsAsLuaReadsIt) {
    EXPECT_EQ(Cut("#!/x -- y\nlocal _a1=endo..'x'"),
              "l:#!/x -- y k:local n:_a1 y:= n:endo y:.. s:'x'");
    EXPECT_EQ(Cut("0xFF 3e-2+.5 0xe+1 3..2 a.b a...<=~=="),
              "d:0xFF d:3e-2 y:+ d:.5 d:0xe y:+ d:1 d:3..2 n:a y:. n:b n:a y:... y:<= y:~= y:=");
    EXPECT_EQ(Cut("'a\\'b' \"\\\\\" 'a\\\r\nb' 'a\\\nb"),
              "s:'a\\'b' s:\"\\\\\" s:'a\\\r\nb' s!'a\\\nb");
    EXPECT_EQ(Cut("'abc\rx 'y\\"), "s!'abc n:x s!'y\\");
    EXPECT_EQ(Cut("[[a\n]b]] [=[ ]] ]==] ]=] t[a[1]] [==x"),
              "S:[[a\n]b]] S:[=[ ]] ]==] ]=] n:t y:[ n:a y:[ d:1 y:] y:] y:[ y:== n:x");
    EXPECT_EQ(Cut("a--b\rc--[[d\n]]e--[=d\n--[[f]"),
              "n:a l:--b n:c c:--[[d\n]] n:e l:--[=d c!--[[f]");
    EXPECT_EQ(Cut("año ! \x80\xFF"), "n:a y:ñ n:o y:! y:\x80 y:\xFF");
    EXPECT_EQ(Cut(" \t\r\n\f"), "");
}

TEST(TokensTest, BrokenTextTakesNoLonger) {
    const auto start = std::chrono::steady_clock::now();
    for (const char* piece :
         {"=", "[", "[=", "]", "'", "--[=[]", "\\", "a", ".", "ñ", "0", "[[]="}) {
        std::string text = "[=====";
        while (text.size() < 1 << 18)
            text += piece;
        std::size_t end = 0;
        for (const Token& token : Tokenize(text)) {
            ASSERT_EQ(token.begin, end) << piece;
            ASSERT_GT(token.end, token.begin) << piece;
            end = token.end;
        }
        EXPECT_EQ(end, text.size()) << piece;
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}
