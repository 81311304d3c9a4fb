// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>

namespace player {

/// What a function of the script's libraries throws; the script sees it as an error at its line.
struct ScriptError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Ends the script from within, without an error.
struct ScriptEnd {
    int code = 0;
};

} // namespace player
