// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/files/FileSystemObject.h"
#include "platform/forms/CommonDialog.h"

#include <QString>
#include <functional>

namespace deploy {

/// Asks for a name and has the script written there, which `guardarCopia` does. A file that bears
/// the name is replaced after a question. Fails as that does.
void GenerarLua(const std::function<void(const QString& ruta)>& guardarCopia,
                platform::CommonDialog& dialogo, const platform::FileSystemObject& fso);

} // namespace deploy
