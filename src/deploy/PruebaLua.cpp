// SPDX-License-Identifier: GPL-3.0-or-later
#include "deploy/PruebaLua.h"

#include "platform/files/Files.h"
#include "platform/files/Paths.h"
#include "platform/files/Program.h"
#include "platform/text/NativeNames.h"
#include "platform/text/TextEncoding.h"
#include "shared/Temporal.h"

namespace deploy {
namespace {

QString CarpetaDePruebas(const platform::FileSystemObject& fso) {
    QString carpeta = platform::ProgramFolder();
    for (const QString& nombre : {QStringLiteral("QM"), QStringLiteral("pruebas")}) {
        carpeta = fso.BuildPath(carpeta, nombre);
        if (!fso.FolderExists(carpeta))
            fso.CreateFolder(carpeta);
    }
    return carpeta;
}

} // namespace

void EscribirTemporal(const QString& texto) {
    platform::WriteFile(shared::RutaTemporal(), platform::EncodeForPlayer(texto) + "\r\n");
}

platform::Environment EntornoDePrueba(const QString& ruta, const QString& rotulo,
                                      const platform::FileSystemObject& fso) {
    const qsizetype nombre = ruta.lastIndexOf(u'\\') + 1;
    const QString carpeta = ruta.isEmpty() ? CarpetaDePruebas(fso) : ruta.first(nombre);
    const QString titulo = platform::DisplayText(ruta.isEmpty() ? rotulo : ruta.sliced(nombre));
    return {{"QUILLMARK_SCRIPT_FOLDER", platform::ToNative(carpeta).native()},
            {"QUILLMARK_SCRIPT_NAME", titulo.toStdString()}};
}

} // namespace deploy
