// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Module1.h"

#include "platform/CodePage.h"
#include "platform/Failure.h"
#include "platform/Log.h"
#include "platform/ProfileFile.h"
#include "platform/Program.h"

#include <array>

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
    try {
        platform::WritePrivateProfileStringA(Seccion, Clave, Valor, Archivo);
    } catch (const platform::Failure& failure) {
        qCWarning(platform::lcQuillmark) << "setting not written:" << failure.Text();
    }
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
    return platform::ProgramFolder() + QStringLiteral("\\config.ini");
}

} // namespace Module1
