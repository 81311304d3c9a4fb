// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace assist {

/// The text of a template file, with CR LF after each line, the last one too, whatever line ends
/// the file has. Fails as ReadFile does, and on a file with NUL characters.
QString LeerPlantilla(const QString& ruta);

} // namespace assist
