// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace assist {

/// The text of a template file, each line ended by CR LF, the last one too, whatever ends them in
/// the file. Fails as ReadFile does, and on a file with NUL characters.
QString LeerPlantilla(const QString& ruta);

} // namespace assist
