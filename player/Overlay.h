// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/Failure.h"
#include "player/Picture.h"
#include "player/Typeface.h"

#include <deque>
#include <string>

namespace player {

/// What the player itself draws over the script's picture.
void DrawPanel(Picture& picture, CellFont& font, const Failure& failure);
void DrawConsole(Picture& picture, CellFont& font, const std::deque<std::string>& lines);

} // namespace player
