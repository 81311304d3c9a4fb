// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace documents {

struct ScriptFunction {
    std::string name;         ///< with its parameters: "nave.mover(x, y)", "objeto:crear()"
    std::size_t position = 0; ///< of the name, in bytes
};

/// The functions of a script that have a name: by a declaration, or as what a name is given, in a
/// table too. In the order in which they stand.
std::vector<ScriptFunction> Functions(std::string_view text);

} // namespace documents
