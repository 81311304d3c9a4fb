// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/UserSettings.h"
#include "platform/Failure.h"
#include "support/TestHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace platform;

TEST(UserSettings, KeepsTextsByApplicationSectionAndKey) {
    const support::TestHome home;
    const QString app = u"Accesos Recientes"_s;
    const QString section = u"Lista"_s;
    const QString path = u"C:\\ju egos\\año, ñ \uF03A;=%20.lua"_s;
    EXPECT_EQ(GetSetting(app, section, u"1"_s, u"no"_s), u"no"_s);
    SaveSetting(app, section, u"1"_s, path);
    SaveSetting(app, section, u"2"_s, u"x"_s);
    EXPECT_EQ(GetSetting(app, section, u"1"_s, QString()), path);
    EXPECT_EQ(GetSetting(u"Otra"_s, section, u"1"_s, QString()), QString());
    // It is on the disk at once: the process may end without a goodbye.
    EXPECT_TRUE(home.Get(".config/Quillmark/Accesos Recientes.conf").contains("Lista"));

    DeleteSetting(app, section, u"2"_s);
    EXPECT_THROW(DeleteSetting(app, section, u"2"_s), Failure);
    DeleteSetting(app, section);
    EXPECT_EQ(GetSetting(app, section, u"1"_s, QString()), QString());
    EXPECT_THROW(DeleteSetting(app, section), Failure);
}
