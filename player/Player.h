// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/Audio.h"
#include "player/Folder.h"
#include "player/Memory.h"
#include "player/Network.h"
#include "player/Options.h"
#include "player/Stage.h"
#include "player/Typeface.h"

#include <filesystem>
#include <string>
#include <utility>

struct lua_State;

namespace player {

/// All that the libraries of a script work on.
struct Player {
    explicit Player(Options given)
        : options(std::move(given)), memory(options.memory), folder(options.folder) {}

    Options options;
    Memory memory;
    Stage stage;
    Folder folder;
    CellFont cells;
    Audio audio;
    Network network;
    std::filesystem::path powerFolder = "/sys/class/power_supply";
    int exitCode = 0;
    lua_State* lua = nullptr;
    std::string refusedAt; // "name:line: " where memory was refused last
};

} // namespace player
