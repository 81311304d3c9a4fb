// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace core {

enum class LineEnd { CrLf, Lf, Cr };

/// The line end that the start of the text (64 KiB) uses most: CR LF if it has none or as many of
/// those as of others.
LineEnd MainLineEnd(std::string_view text);

} // namespace core
