// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace core {

enum class LineEnd { CrLf, Lf, Cr };

/// The most frequent line end in the first 64 KiB of the text; CR LF if there is none, or if it is
/// as frequent as another.
LineEnd MainLineEnd(std::string_view text);

/// The text with each line end, of whatever kind, replaced by that one.
std::string WithLineEnds(std::string_view text, LineEnd end);

} // namespace core
