// SPDX-License-Identifier: GPL-3.0-or-later
#include "shared/Module1.h"

#include "platform/base/Silently.h"
#include "platform/desktop/FileAssociation.h"
#include "platform/desktop/Registry.h"
#include "platform/files/ProfileFile.h"
#include "platform/files/ProgramFolder.h"
#include "platform/forms/Dialogs.h"
#include "platform/text/CodePage.h"

#include <array>
#include <utility>

namespace Module1 {
namespace {

constexpr size_t kTamanoBuffer = 256;

} // namespace

QString LeerIni(const QString& Archivo, const QString& Seccion, const QString& Clave,
                const QString& Defecto) {
    if (!platform::PathFileExistsA(Archivo))
        return Defecto;
    std::array<char, kTamanoBuffer> buffer{};
    buffer.fill(' ');
    const int cuenta = platform::GetPrivateProfileStringA(Seccion, Clave, Defecto, buffer, Archivo);
    if (cuenta < 1)
        return Defecto;
    QString valor = SinBlancos(platform::FromCodePage(QByteArrayView(buffer.data(), cuenta)));
    if (valor.endsWith(QChar(u'\0')))
        valor.chop(1);
    return SinBlancos(valor);
}

void EscribirIni(const QString& Archivo, const QString& Seccion, const QString& Clave,
                 const QString& Valor) {
    platform::RunSilently(
        [&] { platform::WritePrivateProfileStringA(Seccion, Clave, Valor, Archivo); });
}

void Asociar(const QString& Descripcion, const QString& RutaPrograma, const QString& Extension,
             const QString& Icono) {
    const std::array<std::pair<QString, QString>, 3> necesarios = {{
        {Descripcion, QStringLiteral(" No se especificó la descripción del programa")},
        {RutaPrograma, QStringLiteral("  No se ha especificado la ruta del programa")},
        {Extension, QStringLiteral("  No se ha especificado la extension del programa")},
    }};
    for (const auto& [argumento, mensaje] : necesarios) {
        if (argumento.isEmpty()) {
            platform::MsgBox(mensaje, platform::Buttons::Ok, platform::Icon::Error);
            return;
        }
    }
    Registrar({QStringLiteral("clase"), Descripcion, Extension, RutaPrograma, Icono});
}

void Registrar(const TipoDeArchivo& tipo) {
    using platform::HKEY_CLASSES_ROOT;
    platform::RegistryKey clave = platform::RegCreateKeyA(HKEY_CLASSES_ROOT, tipo.clase);
    platform::RegSetValueA(clave, QString(), tipo.titulo);
    clave = platform::RegCreateKeyA(HKEY_CLASSES_ROOT, tipo.extension);
    platform::RegSetValueA(clave, QString(), tipo.clase);
    clave = platform::RegCreateKeyA(HKEY_CLASSES_ROOT, tipo.clase);
    platform::RegSetValueA(clave, QStringLiteral("shell\\open\\command"),
                           tipo.programa + QStringLiteral(" %1"));
    platform::RegSetValueA(clave, QStringLiteral("DefaultIcon"), tipo.icono);
    platform::PutToDesktop(tipo.extension);
}

QString SinBlancos(const QString& texto) {
    qsizetype inicio = 0;
    qsizetype fin = texto.size();
    while (inicio < fin && texto.at(inicio) == u' ')
        ++inicio;
    while (fin > inicio && texto.at(fin - 1) == u' ')
        --fin;
    return texto.sliced(inicio, fin - inicio);
}

QString RutaConfig() {
    return platform::InProgramFolder(u"config.ini");
}

} // namespace Module1
