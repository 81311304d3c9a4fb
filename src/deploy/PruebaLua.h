// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/ShellExecute.h"
#include "platform/files/FileSystemObject.h"

#include <QString>

namespace deploy {

/// Writes the text and a line end to the temp file, in the code page or, if it doesn't fit, as
/// UTF-8. Fails as WriteFile does.
void EscribirTemporal(const QString& texto);

/// What the player is told of the script in the temp file: in QUILLMARK_SCRIPT_FOLDER the folder
/// whose files it may use, as a native path, and in QUILLMARK_SCRIPT_NAME the name for its errors.
/// `ruta` is the document's file, or empty: such a script gets a folder of its own, which is made.
platform::Environment EntornoDePrueba(const QString& ruta, const QString& rotulo,
                                      const platform::FileSystemObject& fso);

} // namespace deploy
