// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace core {

/// The version of the program and of its player: "major.minor.revision".
const char* Version();

} // namespace core
