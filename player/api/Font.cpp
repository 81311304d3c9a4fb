// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Typeface.h"

#include "player/Color.h"
#include "player/Encoding.h"
#include "player/LuaHost.h"
#include "player/Memory.h"
#include "player/Picture.h"
#include "player/Player.h"
#include "player/ScriptError.h"
#include "player/Userdata.h"
#include "player/api/Api.h"
#include "player/api/Image.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

namespace player {
namespace {

// What a font takes besides its file: FreeType's tables and the glyphs that are kept.
constexpr size_t kOverhead = size_t{1} << 20;
constexpr size_t kSystemFile = size_t{1} << 20;
constexpr size_t kLongestText = size_t{1} << 20;

struct FontValue {
    static constexpr const char* kName = "Font";
    std::unique_ptr<Typeface> face;
    Share share;
};

Typeface& CheckFont(lua_State* L, int index) {
    return *Type<FontValue>::Check(L, index).face;
}

int LoadFont(lua_State* L, Player& player) {
    const std::string name = Text(L, 1);
    std::string bytes = player.folder.Read(name, player.memory.Free());
    Share share = Reserve(L, bytes.size() + kOverhead);
    auto face = Typeface::Open(std::move(bytes));
    if (!face)
        throw ScriptError(name + ": no es una fuente");
    Type<FontValue>::Push(L, {std::move(face), std::move(share)});
    return 1;
}

template<bool monospaced>
int Create(lua_State* L, Player&) {
    Share share = Reserve(L, kSystemFile + kOverhead);
    auto face = Typeface::OpenSystem(monospaced);
    if (!face)
        throw ScriptError("el sistema no tiene ninguna fuente");
    Type<FontValue>::Push(L, {std::move(face), std::move(share)});
    return 1;
}

void Sized(bool done) {
    if (!done)
        throw ScriptError("la fuente no admite ese tamaño");
}

// Font:setCharSize(width, height, dpiX, dpiY), in points
int SetCharSize(lua_State* L, Player&) {
    Typeface& face = CheckFont(L, 1);
    const double width = Number(L, 2);
    const double height = Given(L, 3) ? Number(L, 3) : 0;
    Sized(face.SetPoints(width, height, Integer(L, 4, 0), Integer(L, 5, 0)));
    return 0;
}

int SetPixelSizes(lua_State* L, Player&) {
    Sized(CheckFont(L, 1).SetPixels(Integer(L, 2), Integer(L, 3, 0)));
    return 0;
}

// What goes far beyond the screen would only take time and memory.
std::u32string Words(lua_State* L, int index) {
    return Decode(Text(L, index).substr(0, kLongestText));
}

// A table with the fields width and height.
int GetTextSize(lua_State* L, Player&) {
    const TextSize size = CheckFont(L, 1).Measure(Words(L, 2));
    lua_createtable(L, 0, 2);
    lua_pushinteger(L, size.width);
    lua_setfield(L, -2, "width");
    lua_pushinteger(L, size.height);
    lua_setfield(L, -2, "height");
    return 1;
}

// image:fontPrint(font, x, y, text, [color]); y is the top of the line.
int FontPrint(lua_State* L, Player&) {
    Picture& picture = CheckPicture(L, 1);
    Typeface& face = CheckFont(L, 2);
    const int y = Integer(L, 4) + face.Ascent();
    const Pixel color = CheckColor(L, 6, kBlack);
    face.Draw(picture, Integer(L, 3), y, Words(L, 5), color);
    return 0;
}

constexpr luaL_Reg kFunctions[] = {
    {"load", Call<&LoadFont>},
    {"createMonoSpaced", Call<&Create<true>>},
    {"createProportional", Call<&Create<false>>},
    {"setCharSize", Call<&SetCharSize>},
    {"setPixelSizes", Call<&SetPixelSizes>},
    {"getTextSize", Call<&GetTextSize>},
    {},
};

constexpr const char* kPictures[] = {"Image", "screen"};

} // namespace

void OpenFont(lua_State* L, Player&) {
    PushTable(L, kFunctions);
    Type<FontValue>::Register(L);
    lua_setglobal(L, "Font");
    for (const char* name : kPictures) {
        luaL_getmetatable(L, name);
        lua_getfield(L, -1, "__index");
        lua_pushcfunction(L, Call<&FontPrint>);
        lua_setfield(L, -2, "fontPrint");
    }
}

} // namespace player
