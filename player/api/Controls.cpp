// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/LuaHost.h"
#include "player/Pad.h"
#include "player/Player.h"
#include "player/Stage.h"
#include "player/Userdata.h"
#include "player/api/Api.h"

namespace player {
namespace {

/// The buttons as they were when they were read.
struct ControlsValue {
    static constexpr const char* kName = "Controls";
    Buttons held = 0;
};

int Read(lua_State* L, Player& player) {
    Type<ControlsValue>::Push(L, {player.stage.TakeButtons()});
    return 1;
}

int IsHeld(lua_State* L, Player&) {
    const auto bit = static_cast<Buttons>(lua_tointeger(L, lua_upvalueindex(1)));
    lua_pushboolean(L, (Type<ControlsValue>::Check(L, 1).held & bit) != 0);
    return 1;
}

constexpr luaL_Reg kFunctions[] = {{"read", Call<&Read>}, {}};

} // namespace

void OpenControls(lua_State* L, Player&) {
    PushTable(L, kFunctions);
    lua_Integer bit = 1;
    for (const Button& button : AllButtons()) {
        lua_pushinteger(L, bit);
        lua_pushcclosure(L, Call<&IsHeld>, 1);
        lua_setfield(L, -2, button.name);
        bit <<= 1;
    }
    Type<ControlsValue>::Register(L);
    lua_setglobal(L, "Controls");
}

} // namespace player
