// SPDX-License-Identifier: GPL-3.0-or-later
#include "deploy/PruebaLua.h"

#include "platform/desktop/ShellExecute.h"
#include "platform/files/FileSystemObject.h"
#include "platform/files/Paths.h"
#include "platform/files/ProgramFolder.h"
#include "platform/text/NativeNames.h"

namespace deploy {
namespace {

QString CarpetaDePruebas() {
    const platform::FileSystemObject fso;
    QString carpeta = platform::ProgramFolder();
    for (const QString& nombre : {QStringLiteral("QM"), QStringLiteral("pruebas")}) {
        carpeta = fso.BuildPath(carpeta, nombre);
        if (!fso.FolderExists(carpeta))
            fso.CreateFolder(carpeta);
    }
    return carpeta;
}

} // namespace

void AbrirScript(const QString& script, const QString& documento, const QString& rotulo) {
    const bool sinArchivo = documento.isEmpty();
    const qsizetype nombre = documento.lastIndexOf(u'\\') + 1;
    const QString carpeta = sinArchivo ? CarpetaDePruebas() : documento.first(nombre);
    const QString titulo = platform::DisplayText(sinArchivo ? rotulo : documento.sliced(nombre));
    platform::ShellExecuteA(script,
                            {{"QUILLMARK_SCRIPT_FOLDER", platform::ToNative(carpeta).native()},
                             {"QUILLMARK_SCRIPT_NAME", titulo.toStdString()}});
}

} // namespace deploy
