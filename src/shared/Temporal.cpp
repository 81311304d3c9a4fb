// SPDX-License-Identifier: GPL-3.0-or-later
#include "shared/Temporal.h"

#include "platform/files/Program.h"

namespace shared {

QString RutaTemporal() {
    return platform::ProgramFolder() + QStringLiteral("\\temp.lua");
}

} // namespace shared
