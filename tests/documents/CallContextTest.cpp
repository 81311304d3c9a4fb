// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/CallContext.h"

#include "documents/editor/lua/Offers.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace documents {
namespace {

// What the name that the text ends with means, as library.name.
std::string Named(const std::string& text) {
    const Call* named = ContextAtEnd(text).named;
    return named ? std::string(named->library).append(".").append(named->name) : "";
}

TEST(CallContextTest, KnowsACallByWhatStandsBeforeIt) {
    const std::pair<const char*, const char*> rows[] = {
        {"print", ".print"},
        {"x = screen.flip", "screen.flip"},
        {"screen:blit", "Image.blit"},
        {"Controls.read():up", "Controls.up"},
        {"Image:save", "Image.save"},
        {"Socket:createServerSocket", "Socket.createServerSocket"},
        {"img = Image.load('a.png') img:width", "Image.width"},
        {"local img -- nota\nimg = Image.load 'a.png'\nimg:width", "Image.width"},
        {"voz = Sound.load('a'):play() voz:pan", "Voice.pan"},
        {"a = Sound.load('a') b = a b:play", "Sound.play"},
        {"img = Sound.load('a') img = Image.load('a') img = nil img:play", ""},
        {"self.img = Image.load('a') self.img:blit", "Image.blit"},
        {"x.img = Image.load('a') img:play", "Sound.play"}, // not of the same img
        {"I = Image i = I.load('a') i:play", ""},
        {"t = 'a' .. b t:upper", "string.upper"},
        {"('x'):rep", "string.rep"},
        {"c = (img or screen):pixel(1, 2) c:play", ""},
        {"imagen = a.b[2].c imagen:frequency", "Voice.frequency"}, // nobody else has it
        {"otra.blit", ""},
        {"a = a a:play", "Sound.play"},
    };
    for (const auto& [text, name] : rows)
        EXPECT_EQ(Named(text), name) << text;
    std::string chain = "a0 = Image.load('a')";
    for (int i = 1; i < 5000; ++i)
        chain += "\na" + std::to_string(i) + " = a" + std::to_string(i - 1);
    EXPECT_EQ(Named(chain + " a4999:blit"), "Image.blit");
}

// The enclosing call and the parameter, as name/index.
std::string Enclosing(const std::string& text) {
    const CallContext context = ContextAtEnd(text);
    return !context.call
               ? ""
               : std::string(context.call->name) + "/" + std::to_string(context.parameter);
}

TEST(CallContextTest, KnowsTheCallAroundAPlaceAndItsParameter) {
    EXPECT_EQ(Enclosing("screen:blit(1, f(2, 3), "), "blit/2");
    EXPECT_EQ(Enclosing("screen:print(0, 0, 'a, b"), "print/2");
    EXPECT_EQ(Enclosing("print({1, 2, {3, "), "print/0");
    EXPECT_EQ(Enclosing("pcall(function(a, b) if a then f(1, 2) end end, "), "pcall/1");
    EXPECT_EQ(Enclosing("print(Color.new(1, math.min(2, 3), "), "new/2");
    EXPECT_EQ(Enclosing("print(1)"), "");
    EXPECT_EQ(Enclosing("print((1 + 2) * (3"), "print/0");
    EXPECT_EQ(Enclosing("pcall(function() local a, b = 1, "), "");
    EXPECT_EQ(Enclosing("function print(a, "), "");
    EXPECT_EQ(Enclosing("print(desconocida(1, "), "");
    EXPECT_EQ(ContextAtEnd("a = 1 screen:blit(1, ").open, 13U);
    EXPECT_FALSE(ContextAtEnd("x --[[ nota").isCode);
    EXPECT_FALSE(ContextAtEnd("x -- pri").isCode);
    EXPECT_FALSE(ContextAtEnd("f(\"pri").isCode);
    EXPECT_TRUE(ContextAtEnd("-- nota\npri").isCode);
    EXPECT_EQ(ContextAtEnd("12").word + ContextAtEnd("'a'").word + ContextAtEnd("").word, "");
}

std::vector<std::string> Offers(const std::string& before, const std::string& behind = "") {
    return OffersAt(ContextAtEnd(before), before + behind, before.size());
}

TEST(CallContextTest, OffersWhatFits) {
    using List = std::vector<std::string>;
    EXPECT_EQ(Offers("Image."), (List{"createEmpty", "load"}));
    EXPECT_EQ(Offers("s = Sound.load('a') s:"), List{"play"});
    EXPECT_EQ(Offers("screen.F", " Feo"), List{"flip"});
    EXPECT_EQ(Offers("pr", " prado = 1 Primo() -- prosa"), (List{"print", "Primo", "prado"}));
    EXPECT_EQ(Offers("wh", " whisky"), (List{"while", "whisky"}));
    EXPECT_EQ(Offers("nave.vi", " nave.vida = 3 vi"), (List{"vi", "vida"}));
    EXPECT_EQ(Offers("SOCKET = 1 Socket:c"), (List{"close", "connect", "createServerSocket"}));
    const List all = Offers("otra:");
    for (const char* method : {"blit", "play", "pan", "upper", "seek", "accept"})
        EXPECT_EQ(std::count(all.begin(), all.end(), method), 1) << method;
    EXPECT_EQ(std::count(all.begin(), all.end(), "flip"), 0);
}

} // namespace
} // namespace documents
