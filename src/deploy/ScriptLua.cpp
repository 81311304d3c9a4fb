// SPDX-License-Identifier: GPL-3.0-or-later
#include "deploy/ScriptLua.h"

#include "platform/files/Files.h"
#include "platform/text/TextEncoding.h"

namespace deploy {

void EscribirScript(const QString& ruta, const QString& texto) {
    platform::WriteFile(ruta, platform::EncodeForPlayer(texto) + "\r\n");
}

} // namespace deploy
