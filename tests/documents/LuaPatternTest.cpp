// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/find/LuaPattern.h"

#include "documents/editor/find/Search.h"

#include <gtest/gtest.h>
#include <lua.hpp>
#include <memory>
#include <random>

using namespace Qt::StringLiterals;
using namespace documents;

namespace {

constexpr const char* kFind = "local line, pattern = ...\n"
                              "local hits, at = {}, 1\n"
                              "while at <= #line do\n"
                              "  local from, to = line:find(pattern, at)\n"
                              "  if not from then break end\n"
                              "  if to >= from then hits[#hits + 1] = from - 1 .. '-' .. to end\n"
                              "  if pattern:sub(1, 1) == '^' then break end\n"
                              "  at = math.max(to, from) + 1\n"
                              "end\n"
                              "return table.concat(hits, ' ')";

// What Lua itself finds in the line that isn't empty; "refused" for a pattern that it can't use.
std::string Lua(const std::string& line, const std::string& pattern) {
    const std::unique_ptr<lua_State, void (*)(lua_State*)> lua(luaL_newstate(), lua_close);
    luaL_openlibs(lua.get());
    EXPECT_EQ(luaL_loadstring(lua.get(), kFind), 0);
    lua_pushlstring(lua.get(), line.data(), line.size());
    lua_pushlstring(lua.get(), pattern.data(), pattern.size());
    return lua_pcall(lua.get(), 2, 1, 0) == 0 ? lua_tostring(lua.get(), -1) : "refused";
}

std::string Ours(const std::string& line, const std::string& pattern) {
    const Search search({QString::fromStdString(pattern), false, false, true});
    if (!search.Fault().isEmpty())
        return "refused";
    std::string found;
    for (const Hit& hit : search.In(QByteArray::fromStdString(line)).hits)
        found +=
            (found.empty() ? "" : " ") + std::to_string(hit.from) + '-' + std::to_string(hit.to);
    return found;
}

std::string Draw(std::mt19937& random, std::initializer_list<const char*> pieces, int most) {
    std::string drawn;
    for (auto left = random() % static_cast<unsigned>(most) + 1; left > 0; --left)
        drawn += pieces.begin()[random() % pieces.size()];
    return drawn;
}

} // namespace

TEST(LuaPatternTest, FindsWhatLuaFinds) {
    std::mt19937 random(5);
    int found = 0;
    for (int i = 0; i < 6000; ++i) {
        const std::string line = Draw(
            random,
            {"a", "b", "A", "1", " ", "(", ")", "]", "-", "%", "$", "^", "_", "ab", "\t", "\x7F"},
            12);
        const std::string pattern =
            Draw(random,
                 {"a",      "b",    ".",     "%a",    "%d",    "%l",    "%s",   "%u",     "%w",
                  "%x",     "%p",   "%c",    "%z",    "%A",    "%D",    "%S",   "%W",     "%Z",
                  "*",      "+",    "?",     "-",     "^",     "$",     "(",    ")",      "()",
                  "(a)",    "(.-)", "%1",    "%2",    "%b()",  "%bab",  "%baa", "%f[%w]", "%f[^a]",
                  "[ab]",   "[^b]", "[%w_]", "[^%s]", "[a-z]", "[z-a]", "[]]",  "[^]a]",  "[a-]",
                  "[%a-z]", "[",    "]",     "%",     "%%",    "%f",    "%q",   "[a-%%]"},
                 5);
        const std::string expected = Lua(line, pattern);
        const std::string ours = Ours(line, pattern);
        found += ours != "refused" && !ours.empty() ? 1 : 0;
        // Lua doesn't see a fault that it doesn't come to.
        if (ours == "refused" && expected != "refused")
            continue;
        EXPECT_EQ(ours, expected) << "'" << line << "' '" << pattern << "'";
    }
    EXPECT_GT(found, 800);
}

TEST(LuaPatternTest, EachFaultIsNamed) {
    const std::pair<QString, QString> patterns[] = {
        {u"x%"_s, u"detrás del último % falta algo"_s},
        {u"[a%]"_s, u"falta el ] de un conjunto"_s},
        {u"[]"_s, u"falta el ] de un conjunto"_s},
        {u"(()"_s, u"falta el ) de una captura"_s},
        {u"a)"_s, u"sobra un ) sin su ("_s},
        {u"%ba"_s, u"detrás de %b faltan los dos caracteres"_s},
        {u"%fa"_s, u"detrás de %f falta un conjunto entre [ ]"_s},
        {u"(a%1)"_s, u"% y un número remiten a una captura que no está antes"_s},
        {u"()"_s.repeated(33), u"hay más de 32 capturas"_s},
        {u"()"_s.repeated(32) + u"[%]]%)%b[]"_s, QString()},
    };
    for (const auto& [pattern, fault] : patterns)
        EXPECT_EQ(LuaPattern(pattern).Fault(), fault) << pattern.toStdString();
}

TEST(LuaPatternTest, StaysInsideOfItsLine) {
    EXPECT_EQ(Ours("a\r\nb\rc\nd", "^.$"), "0-1 3-4 5-6 7-8");
    EXPECT_EQ(Ours("a \r\n b", "%s+"), "1-2 4-5");
    EXPECT_EQ(Ours("a\nb", "[^x]+"), "0-1 2-3");
    EXPECT_EQ(Ours("a\nb\r\n", "%W+"), "");
    EXPECT_EQ(Ours("(\n)", "%b()"), "");
    EXPECT_EQ(Ours("a\nb", "%f[%z]"), ""); // found, but empty
    EXPECT_EQ(Ours("ab\ncd", "%w%f[%z]"), "1-2 4-5");
    EXPECT_EQ(Ours("a\nb", "[\t-z]+"), "0-1 2-3");
    EXPECT_EQ(Ours("\xC3\xB1\xC3\xB1x", ".x"), "2-5"); // whole characters
    EXPECT_EQ(Ours("\xC3\xB1x", "[\xC3\xB1-\xC3\xBC]x"), "0-3");
}
