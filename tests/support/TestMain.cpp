// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/Spanish.h"

#include <QApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir runtime; // made for its owner alone, as the toolkit wants it
    qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
    QApplication application(argc, argv);
    platform::SpeakSpanish(application);
    return RUN_ALL_TESTS();
}
