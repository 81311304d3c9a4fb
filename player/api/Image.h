// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/Color.h"
#include "player/Picture.h"

#include <lua.hpp>
#include <memory>

namespace player {

/// What a script holds of a picture. The screen's is also the player's.
struct ImageValue {
    static constexpr const char* kName = Picture::kName;
    std::shared_ptr<Picture> picture;
};

Picture& CheckPicture(lua_State* L, int index);
Pixel CheckColor(lua_State* L, int index, Pixel otherwise);

} // namespace player
