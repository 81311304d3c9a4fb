// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Version.h"
#include "platform/base/Process.h"
#include "platform/desktop/Spanish.h"
#include "platform/files/Paths.h"
#include "platform/files/ProgramFolder.h"
#include "platform/forms/Form.h"
#include "platform/forms/Handler.h"
#include "shared/ValoresCompartidos.h"
#include "shell/Dibujos.h"
#include "shell/Form0.h"
#include "shell/MDIForm1.h"

#include <QApplication>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace {

constexpr const char* kHelp =
    "Uso: quillmark [ARCHIVO]\n"
    "     quillmark --imprimir [ARCHIVO]\n"
    "Abre Quillmark y, si se da, el script o proyecto ARCHIVO.\n"
    "\n"
    "  --imprimir  abre la ventana que imprime un archivo RTF o de texto\n"
    "  --help      muestra esta ayuda y termina\n"
    "  --version   muestra la versión y termina\n";
constexpr const char* kImprimir = "--imprimir";

// The answer to --help and --version, which need no display.
std::optional<std::string> TerminalAnswer(const std::vector<std::string>& arguments) {
    if (arguments.size() == 1 && arguments.front() == "--help")
        return kHelp;
    if (arguments.size() == 1 && arguments.front() == "--version")
        return std::string("Quillmark ") + core::Version() + "\n";
    return std::nullopt;
}

} // namespace

int main(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    if (const auto answer = TerminalAnswer(arguments)) {
        std::fputs(answer->c_str(), stdout);
        return 0;
    }
    const bool imprimir = !arguments.empty() && arguments.front() == kImprimir;
    if (imprimir)
        arguments.erase(arguments.begin());

    platform::FindHome();
    int ownName = 1; // QApplication gets no argument: all of them are one path
    QApplication application(ownName, argv);
    QApplication::setApplicationName(QStringLiteral("Quillmark"));
    QApplication::setDesktopFileName(QStringLiteral("quillmark"));
    platform::PrepareProgramFolder(std::filesystem::read_symlink("/proc/self/exe"));

    const QString archivo = platform::CommandLinePath(arguments);
    shared::ValoresCompartidos compartido;
    auto* portada = new shell::Form0; // deletes itself after the hand-over
    portada->Show();
    // The rest is made while the splash is shown.
    platform::SpeakSpanish(application);
    QApplication::setWindowIcon(shell::Icono());
    shell::MDIForm1 principal(compartido, imprimir ? QString() : archivo);
    if (imprimir)
        QObject::connect(portada, &platform::Form::Unloaded, &principal, [&principal, archivo] {
            platform::RunHandler([&] { principal.MostrarImprimir(archivo); });
        });
    portada->EntregarA(principal);
    return QApplication::exec();
}
