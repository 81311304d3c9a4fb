// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/files/FileSystemObject.h"
#include "platform/forms/CommonDialog.h"

#include <QString>
#include <functional>

namespace deploy {

/// Asks for a name, also whether to replace a file of that name, and lets `guardarCopia` write the
/// script there. Fails as `guardarCopia` does.
void GenerarLua(const std::function<void(const QString& ruta)>& guardarCopia,
                platform::CommonDialog& dialogo, const platform::FileSystemObject& fso);

} // namespace deploy
