// SPDX-License-Identifier: GPL-3.0-or-later
// The program's start with a blank script; the splash's own fade doesn't count.
#include "FirstPaint.h"
#include "platform/Clock.h"
#include "platform/Program.h"
#include "platform/Spanish.h"
#include "shell/Dibujos.h"
#include "shell/Form0.h"
#include "shell/MDIForm1.h"

int main(int, char** argv) {
    int ownName = 1;
    QApplication application(ownName, argv);
    QApplication::setWindowIcon(shell::Icono());
    platform::SpeakSpanish(application);
    platform::PrepareProgramFolder(std::filesystem::read_symlink("/proc/self/exe"));

    bench::Clock::time_point first;
    bench::Clock::time_point last;
    platform::ReplaceSleep([&](int) {
        last = bench::Clock::now();
        first = first == bench::Clock::time_point() ? last : first;
    });
    shared::ValoresCompartidos compartido;
    shell::MDIForm1 principal(compartido, QString());
    const bench::FirstPaint watch(argv[1], &principal, [&] { return last - first; });
    (new shell::Form0(principal))->Show();
    return QApplication::exec();
}
