// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace deploy {

/// Writes the text and a line end to the temp file, in the code page or, if it doesn't fit, as
/// UTF-8. Fails as WriteFile does.
void EscribirTemporal(const QString& texto);

} // namespace deploy
