// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/Player.h"

#include <lua.hpp>

namespace player {

/// Each opens one library of the catalogue. They run before the script, one after the other.
void OpenScreen(lua_State* L, Player& player); // after OpenImage
void OpenColor(lua_State* L, Player& player);
void OpenImage(lua_State* L, Player& player);
void OpenFont(lua_State* L, Player& player);
void OpenControls(lua_State* L, Player& player);
void OpenSystem(lua_State* L, Player& player); // and os, io, loadfile, dofile, require
void OpenMusic(lua_State* L, Player& player);
void OpenSound(lua_State* L, Player& player); // and SoundSystem, voice
void OpenWlan(lua_State* L, Player& player);
void OpenSocket(lua_State* L, Player& player);

/// All of them, and what of Lua's own libraries a script may have.
void OpenLibraries(lua_State* L, Player& player);

} // namespace player
