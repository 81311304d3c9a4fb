// SPDX-License-Identifier: GPL-3.0-or-later
#include "assist/Plantillas.h"

#include "platform/files/TextFile.h"
#include "platform/text/TextEncoding.h"

namespace assist {

QString LeerPlantilla(const QString& ruta) {
    QString texto = platform::FromUtf8(platform::ReadTextFile(ruta).utf8);
    texto.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    if (!texto.isEmpty() && !texto.endsWith(u'\n'))
        texto += u'\n';
    return texto.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
}

} // namespace assist
