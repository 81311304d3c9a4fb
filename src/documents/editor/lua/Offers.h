// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/lua/CallContext.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace documents {

/// What may be written at a place: the calls first, then the words of the language, then the names
/// of the script, each sorted; the first 200. All begin with the context's word, in any case of
/// letters.
/// `script` is a piece of the script around the place, which is at `place` in it.
std::vector<std::string> OffersAt(const CallContext& context, std::string_view script,
                                  std::size_t place);

} // namespace documents
