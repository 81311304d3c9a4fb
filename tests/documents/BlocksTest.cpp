// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/Blocks.h"
#include "documents/editor/lua/ScriptFunctions.h"

#include <chrono>
#include <gtest/gtest.h>
#include <string>

using namespace documents;

namespace {

// Marks the word at the first | of the script, which is taken out, and its other side.
std::string Match(std::string script) {
    const std::size_t caret = script.find('|');
    script.erase(caret, 1);
    const auto match = Blocks(script).At(caret);
    if (!match)
        return "";
    const bool isFirst = match->here.begin < match->other.begin;
    const Span first = isFirst ? match->here : match->other;
    const Span second = isFirst ? match->other : match->here;
    script.insert(second.end, ">").insert(second.begin, "<");
    return script.insert(first.end, ">").insert(first.begin, "<");
}

std::string Names(std::string_view script) {
    std::string names;
    for (const ScriptFunction& function : Functions(script))
        names += function.name + "@" + std::to_string(function.position) + " ";
    return names;
}

} // namespace

TEST(BlocksTest, AWordFindsItsOtherSide) {
    EXPECT_EQ(Match("|if a then b() else c() end"), "<if> a then b() else c() <end>");
    EXPECT_EQ(Match("if a then b() else c() en|d"), "<if> a then b() else c() <end>");
    EXPECT_EQ(Match("if a then b() elseif| c then end"), "<if> a then b() <elseif> c then end");
    EXPECT_EQ(Match("for i in f(function() do end end) do x() end|"),
              "<for> i in f(function() do end end) do x() <end>");
    EXPECT_EQ(Match("for i in f(function() |do end end) do x() end"),
              "for i in f(function() <do> <end> end) do x() end");
    EXPECT_EQ(Match("while a |do do end end"), "<while> a <do> do end end");
    EXPECT_EQ(Match("repeat repeat until a until| b"), "<repeat> repeat until a <until> b");
    EXPECT_EQ(Match("f({a[1]}|)"), "f<(>{a[1]}<)>");
    EXPECT_EQ(Match("f|(x)"), "f<(>x<)>");
    EXPECT_EQ(Match("--[[ if ]] |do x = 'end' end"), "--[[ if ]] <do> x = 'end' <end>");
    for (const char* none :
         {"|", "x| = 1", "if a |x", "end|", "e|nd do", "(|]", "elseif| x", "if  |  a end"})
        EXPECT_EQ(Match(none), "") << none;
}

TEST(BlocksTest, AMissingEndLeavesTheOthersTheirs) {
    EXPECT_EQ(Match("function f() if a then end|"), "function f() <if> a then <end>");
    EXPECT_EQ(Match("|function f() if a then end"), "");
    EXPECT_EQ(Match("f(1\nif a then (x) end|"), "f(1\n<if> a then (x) <end>");
    EXPECT_EQ(Match("f(function() g(1 en|d)"), "f(<function>() g(1 <end>)");
    EXPECT_EQ(Match("while a do repeat b() end|"), "<while> a do repeat b() <end>");
    EXPECT_EQ(Match("if (a then b() else| end"), "<if> (a then b() <else> end");
    EXPECT_EQ(Match("do ) ] } until end|"), "<do> ) ] } until <end>");
}

TEST(BlocksTest, AFunctionIsListedByItsName) {
    EXPECT_EQ(Names("local function f(a, ...) end function a.b:c() end"),
              "f(a, ...)@15 a.b:c()@38 ");
    EXPECT_EQ(Names("x.y = function(z) end local g = -- h\nfunction() end"), "x.y(z)@0 g()@28 ");
    EXPECT_EQ(Names("t = { k = function() end, ['l'] = function() end }"), "k()@6 ");
    EXPECT_EQ(Names("f(function() end) -- function g()\n'function h()' function"), "");
    EXPECT_EQ(Names("function f function g( function a.b. function"), "f@9 g()@20 a.b@32 ");
}

TEST(BlocksTest, BrokenTextTakesNoLonger) {
    const auto start = std::chrono::steady_clock::now();
    for (const char* piece : {"(", "]", "([", "do ", "if ", "end ", "for (", "then ", "a.",
                              "=function ", "function a(", "(]"}) {
        std::string text;
        while (text.size() < 1 << 17)
            text += piece;
        EXPECT_FALSE(Blocks("(" + text + "{]").At(0)) << piece;
        Functions(text);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}
