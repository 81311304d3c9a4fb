// SPDX-License-Identifier: GPL-3.0-or-later
#include "shared/Temporal.h"

#include "platform/files/ProgramFolder.h"

namespace shared {

QString RutaTemporal() {
    return platform::InProgramFolder(kTemporal);
}

} // namespace shared
