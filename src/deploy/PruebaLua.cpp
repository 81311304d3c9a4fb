// SPDX-License-Identifier: GPL-3.0-or-later
#include "deploy/PruebaLua.h"

#include "platform/Files.h"
#include "platform/TextEncoding.h"
#include "shared/Temporal.h"

namespace deploy {

void EscribirTemporal(const QString& texto) {
    const QByteArray utf8 = texto.toUtf8() + "\r\n";
    platform::WriteFile(shared::RutaTemporal(),
                        platform::EncodeText(utf8, platform::TextEncoding::CodePage).bytes);
}

} // namespace deploy
