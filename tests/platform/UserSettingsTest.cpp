// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/UserSettings.h"
#include "platform/Failure.h"
#include "support/TestHome.h"

#include <gtest/gtest.h>

using namespace platform;

TEST(UserSettings, KeepsTextsByApplicationSectionAndKey) {
    const support::TestHome home;
    const QString app = QStringLiteral("Accesos Recientes");
    const QString section = QStringLiteral("Lista");
    const QString path = QStringLiteral("C:\\ju egos\\año, ñ \uF03A;=%20.lua");
    EXPECT_EQ(GetSetting(app, section, QStringLiteral("1"), QStringLiteral("no")),
              QStringLiteral("no"));
    SaveSetting(app, section, QStringLiteral("1"), path);
    SaveSetting(app, section, QStringLiteral("2"), QStringLiteral("x"));
    EXPECT_EQ(GetSetting(app, section, QStringLiteral("1"), QString()), path);
    EXPECT_EQ(GetSetting(QStringLiteral("Otra"), section, QStringLiteral("1"), QString()),
              QString());
    // It is on the disk at once: the process may end without a goodbye.
    EXPECT_TRUE(home.Get(".config/Quillmark/Accesos Recientes.conf").contains("Lista"));

    DeleteSetting(app, section, QStringLiteral("2"));
    EXPECT_THROW(DeleteSetting(app, section, QStringLiteral("2")), Failure);
    DeleteSetting(app, section);
    EXPECT_EQ(GetSetting(app, section, QStringLiteral("1"), QString()), QString());
    EXPECT_THROW(DeleteSetting(app, section), Failure);
}
