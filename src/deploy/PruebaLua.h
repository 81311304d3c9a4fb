// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace deploy {

/// Opens the script by ShellExecuteA. QUILLMARK_SCRIPT_FOLDER tells the player the native path of
/// the folder whose files it may use, QUILLMARK_SCRIPT_NAME the name for its error messages: those
/// of `documento`, a program path. If that is empty, the name is `rotulo` and the folder is
/// QM\pruebas, which is made if need be. Fails if it can't be made.
void AbrirScript(const QString& script, const QString& documento, const QString& rotulo);

} // namespace deploy
