// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace player {

/// What a script's error looks like.
struct Failure {
    std::string message; // with name and line, as Lua writes them
    std::string traceback;
};

} // namespace player
