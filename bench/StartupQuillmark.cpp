// SPDX-License-Identifier: GPL-3.0-or-later
// The program's start with a blank script. The time in which the splash stands doesn't count, but
// the making of it does.
#include "FirstPaint.h"
#include "platform/base/Clock.h"
#include "platform/desktop/Spanish.h"
#include "platform/files/ProgramFolder.h"
#include "shell/Dibujos.h"
#include "shell/Form0.h"
#include "shell/MDIForm1.h"

#include <thread>

int main(int, char** argv) {
    int ownName = 1;
    QApplication application(ownName, argv);
    platform::PrepareProgramFolder(std::filesystem::read_symlink("/proc/self/exe"));

    bench::Clock::time_point shown;
    bench::Clock::time_point faded;
    platform::SleepSeam().Replace([&](int) {
        // Not at once: the steps of the fade would queue up in the window system.
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        faded = bench::Clock::now();
    });
    shared::ValoresCompartidos compartido;
    auto* portada = new shell::Form0;
    portada->Show();
    shown = bench::Clock::now();
    platform::SpeakSpanish(application);
    QApplication::setWindowIcon(shell::Icono());
    shell::MDIForm1 principal(compartido, QString());
    portada->EntregarA(principal);
    const bench::FirstPaint watch(argv[1], &principal, [&] { return faded - shown; });
    return QApplication::exec();
}
