// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/frmDocumento.h"

namespace deploy {

/// Asks for a name and writes the document's text there, as it stands in the editor. A file that
/// bears the name is replaced, write-protected or not, after a question. The document stays as it
/// was. Fails as SaveFile does, and the old file is whole then.
void GenerarLua(documents::frmDocumento& documento, platform::CommonDialog& dialogo,
                const platform::FileSystemObject& fso);

} // namespace deploy
