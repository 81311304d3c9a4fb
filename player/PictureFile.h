// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/Picture.h"

#include <string>

namespace player {

/// Both throw ScriptError. A picture is read from PNG, JPEG, BMP or GIF, and written as PNG, or as
/// JPEG if the name says so.
Picture ReadPicture(const std::string& bytes);
std::string WritePicture(const Picture& picture, const std::string& name);

/// Has SDL refuse single pieces of memory that are larger than the largest picture. Before all else
/// of SDL.
void LimitPieces();

} // namespace player
