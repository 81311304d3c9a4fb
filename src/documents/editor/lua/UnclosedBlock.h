// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace documents {

/// The word that opens a block.
struct BlockOpener {
    std::string_view word;
    std::size_t line = 0; ///< from 1
};

/// Of a script in which an "end" lacks: the first block that goes by its indentation is left
/// without one. Nothing if the indentation doesn't tell.
std::optional<BlockOpener> UnclosedBlock(std::string_view text);

} // namespace documents
