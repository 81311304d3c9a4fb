// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace shared {

inline constexpr QStringView kTemporal = u"temp.lua";

/// The path of the script that a test run hands to the player: one for the whole program.
QString RutaTemporal();

} // namespace shared
