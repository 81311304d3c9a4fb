// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/Folder.h"
#include "player/Player.h"

#include <lua.hpp>

namespace player {

/// io, os, package and what loads scripts, all within the script's folder.
void OpenFiles(lua_State* L, Player& player);

/// Answers nil, the reason and its number, as Lua's own libraries do of files.
int Refuse(lua_State* L, const FolderError& error);

} // namespace player
