// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Audio.h"
#include "player/LuaHost.h"
#include "player/Player.h"
#include "player/Userdata.h"
#include "player/api/Api.h"

#include <algorithm>
#include <string>

namespace player {
namespace {

int PlayFile(lua_State* L, Player& player) {
    const std::string path = Text(L, 1);
    player.audio.PlayMusic(player.folder.Open(path), Boolean(L, 2, false), path);
    return 0;
}

template<void (Audio::*act)()>
int Act(lua_State*, Player& player) {
    (player.audio.*act)();
    return 0;
}

int Playing(lua_State* L, Player& player) {
    lua_pushboolean(L, player.audio.MusicPlaying() ? 1 : 0);
    return 1;
}

int Volume(lua_State* L, Player& player) {
    if (Given(L, 1))
        player.audio.MusicVolume(std::clamp(Integer(L, 1), 0, Audio::kMostMusicVolume));
    lua_pushinteger(L, player.audio.MusicVolume());
    return 1;
}

constexpr luaL_Reg kMusic[] = {
    {"playFile", &Call<&PlayFile>},
    {"pause", &Call<&Act<&Audio::PauseMusic>>},
    {"resume", &Call<&Act<&Audio::ResumeMusic>>},
    {"stop", &Call<&Act<&Audio::StopMusic>>},
    {"playing", &Call<&Playing>},
    {"volume", &Call<&Volume>},
    {nullptr, nullptr},
};

} // namespace

void OpenMusic(lua_State* L, Player&) {
    PushTable(L, kMusic);
    lua_setglobal(L, "Music");
}

} // namespace player
