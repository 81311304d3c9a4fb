// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace deploy {

/// Writes a script as the player reads it, here and on the console: the text and a line end, in the
/// code page or, if it doesn't fit, as UTF-8. Fails as WriteFile does.
void EscribirScript(const QString& ruta, const QString& texto);

} // namespace deploy
