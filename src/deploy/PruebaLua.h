// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace deploy {

/// Has the desktop open the script, of which the player is told in QUILLMARK_SCRIPT_FOLDER the
/// folder whose files it may use, as a native path, and in QUILLMARK_SCRIPT_NAME the name for its
/// errors. `documento` is the document's file, or empty: then its caption is the name, and it gets
/// a folder of its own, which is made. Fails if it can't be.
void AbrirScript(const QString& script, const QString& documento, const QString& rotulo);

} // namespace deploy
