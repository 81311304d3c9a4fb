// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/CAssociate.h"

#include "shared/Module1.h"

namespace shell {
namespace {

void Exigir(const QString& valor, platform::FailureCode codigo, const QString& texto) {
    if (valor.isEmpty())
        throw platform::Failure(codigo, QStringLiteral("Associate Class"),
                                QStringLiteral("Associate Class - ") + texto);
}

} // namespace

void CAssociate::Associate() const {
    Exigir(Title, kSinTitulo, QStringLiteral("Application title not specified"));
    Exigir(Class, kSinClase, QStringLiteral("Application Class name not specified"));
    Exigir(AppCommand, kSinOrden, QStringLiteral("Command line of the program not specified"));
    Module1::Registrar({Class, Title, Extension, AppCommand, DefaultIcon});
}

} // namespace shell
