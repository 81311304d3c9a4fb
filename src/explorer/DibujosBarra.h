// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

namespace explorer {

/// The pictures of the toolbar, with another one each for the button under the mouse.
QIcon DibujoSubir();
QIcon DibujoCambiar();
QIcon DibujoVolver();

inline constexpr int kLadoDibujo = 24; // pixels

} // namespace explorer
