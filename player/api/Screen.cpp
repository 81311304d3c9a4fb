// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/LuaHost.h"
#include "player/Picture.h"
#include "player/Player.h"
#include "player/Stage.h"
#include "player/Userdata.h"
#include "player/api/Api.h"
#include "player/api/Image.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace player {
namespace {

constexpr const char* kScreen = "screen";
constexpr int kLongestWait = 60 * 60 * 60; // frames: an hour

// Shows what has been drawn; it stays, to draw on.
int Flip(lua_State* L, Player& player) {
    lua_getfield(L, LUA_REGISTRYINDEX, "the screen");
    player.stage.Show(CheckPicture(L, -1).pixels);
    return 0;
}

int WaitVblankStart(lua_State* L, Player& player) {
    player.stage.WaitFrames(std::clamp(Integer(L, 1, 1), 1, kLongestWait));
    return 0;
}

constexpr luaL_Reg kFunctions[] = {
    {"flip", Call<&Flip>},
    {"waitVblankStart", Call<&WaitVblankStart>},
    {},
};

} // namespace

// The screen is a picture with two functions more.
void OpenScreen(lua_State* L, Player&) {
    PushTable(L, kFunctions);
    lua_getglobal(L, "Image");
    for (lua_pushnil(L); lua_next(L, -2) != 0;) {
        lua_pushvalue(L, -2);
        lua_insert(L, -2);
        lua_rawset(L, -5);
    }
    lua_pop(L, 1);
    Type<ImageValue>::Register(L, kScreen);
    auto picture = std::make_shared<Picture>(kWidth, kHeight, true);
    Type<ImageValue>::Push(L, {std::move(picture)}, kScreen);
    lua_pushvalue(L, -1);
    lua_setfield(L, LUA_REGISTRYINDEX, "the screen");
    lua_setglobal(L, kScreen);
}

} // namespace player
