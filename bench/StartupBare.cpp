// SPDX-License-Identifier: GPL-3.0-or-later
// The least that an editor is: a main window around one QScintilla.
#include "FirstPaint.h"

#include <QMainWindow>
#include <Qsci/qsciscintilla.h>

int main(int, char** argv) {
    int ownName = 1;
    QApplication application(ownName, argv);
    QMainWindow window;
    window.resize(1280, 800);
    window.setCentralWidget(new QsciScintilla);
    const bench::FirstPaint watch(argv[1], &window, [] { return bench::Clock::duration(); });
    window.show();
    return QApplication::exec();
}
