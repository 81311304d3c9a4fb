// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Color.h"

#include "player/LuaHost.h"
#include "player/Player.h"
#include "player/Userdata.h"
#include "player/api/Api.h"

#include <algorithm>

namespace player {
namespace {

Pixel Part(lua_State* L, int index) {
    return static_cast<Pixel>(std::clamp(Integer(L, index), 0, 255));
}

// Color.new(r, g, b, [a = 255])
int New(lua_State* L, Player&) {
    const Pixel alpha = Given(L, 4) ? Part(L, 4) : 255;
    const Pixel pixel = alpha << 24 | Part(L, 1) << 16 | Part(L, 2) << 8 | Part(L, 3);
    Type<Color>::Push(L, {pixel});
    return 1;
}

int Equal(lua_State* L, Player&) {
    lua_pushboolean(L, Type<Color>::Check(L, 1).pixel == Type<Color>::Check(L, 2).pixel);
    return 1;
}

constexpr luaL_Reg kFunctions[] = {{"new", Call<&New>}, {}};

} // namespace

void OpenColor(lua_State* L, Player&) {
    PushTable(L, kFunctions);
    Type<Color>::Register(L);
    luaL_getmetatable(L, Color::kName);
    lua_pushcfunction(L, Call<&Equal>);
    lua_setfield(L, -2, "__eq");
    lua_pop(L, 1);
    lua_setglobal(L, "Color");
}

} // namespace player
