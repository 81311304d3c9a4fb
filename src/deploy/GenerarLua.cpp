// SPDX-License-Identifier: GPL-3.0-or-later
#include "deploy/GenerarLua.h"

#include "platform/forms/Dialogs.h"

namespace deploy {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using platform::MsgBox;

bool ConfirmarSustitucion() {
    return MsgBox(QStringLiteral("¿Sobreescribir archivo existente?"), Buttons::YesNo,
                  Icon::Question) == Answer::Yes;
}

} // namespace

void GenerarLua(const std::function<void(const QString& ruta)>& guardarCopia,
                platform::CommonDialog& dialogo, const platform::FileSystemObject& fso) {
    dialogo.Filter(QStringLiteral("Archivos .lua|*.lua"));
    dialogo.ShowSave();
    if (dialogo.FileName().isEmpty())
        return;
    const QString ruta = dialogo.FileName();
    const QString titulo = dialogo.FileTitle();
    if (fso.FileExists(ruta) && !ConfirmarSustitucion())
        return;
    guardarCopia(ruta);
    MsgBox(titulo + QStringLiteral(" generado en ") + ruta, Buttons::Ok, Icon::None);
}

} // namespace deploy
