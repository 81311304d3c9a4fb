// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileClass.h"
#include "platform/Program.h"
#include "platform/Registry.h"
#include "platform/ShellExecute.h"
#include "support/TestHome.h"

#include <QRegularExpression>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace platform;
namespace fs = std::filesystem;

namespace {

class FileClassTest : public testing::Test {
protected:
    // A program that writes its argument, its folder and where its output goes.
    void PutPlayer(const std::string& name) const {
        home.Put(name,
                 "#!/bin/sh\nprintf '%s|' \"$#\" \"$1\" \"$PWD\" \"$(readlink /proc/$$/fd/1)\" "
                 ">\"$HOME/visto.new\"\nmv \"$HOME/visto.new\" \"$HOME/visto\"\n");
        fs::permissions(home.Root() / name, fs::perms::owner_all);
    }
    static void Register(const QString& command) {
        RegSetValueA(HKEY_CLASSES_ROOT, u".lua"_s, u"Script .LUA"_s);
        const RegistryKey key = RegCreateKeyA(HKEY_CLASSES_ROOT, u"Script .LUA"_s);
        RegSetValueA(key, u"shell\\open\\command"_s, command);
    }
    QByteArray Seen() const {
        EXPECT_TRUE(QTest::qWaitFor([&] { return fs::exists(home.Root() / "visto"); }));
        QByteArray seen = home.Get("visto");
        fs::remove(home.Root() / "visto");
        return seen.replace(home.Root().c_str(), "~");
    }

    support::TestHome home;
};

} // namespace

TEST_F(FileClassTest, TheRegistryKeepsKeysAndValuesAsGiven) {
    EXPECT_FALSE(FindFileClass(u".lua"_s));
    EXPECT_FALSE(FindFileClass(QString()));
    home.Put(".config/Quillmark/Clases de archivos.conf",
             QByteArray("[HKEY_CLASSES_ROOT\n=\0\xFF\n.lua\n\\x=\\\"", 32));
    Register(u"C:\\año, →\\x.exe %1"_s);
    const RegistryKey key = RegCreateKeyA(HKEY_CLASSES_ROOT, u"script .lua"_s);
    RegSetValueA(key, QString(), u"Un título"_s);
    const auto found = FindFileClass(u".LUA"_s);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->title, u"Un título"_s);
    EXPECT_EQ(found->command, u"C:\\año, →\\x.exe %1"_s);
    EXPECT_EQ(found->icon, QString());
    EXPECT_EQ(home.Get(".config/Quillmark/Clases de archivos.conf").count("Un t"), 1);
}

TEST_F(FileClassTest, CommandsAreTakenApart) {
    PutPlayer("programa/QM/luaplayer");
    PutPlayer("programa/con");
    PutPlayer("programa/con blancos %1");
    PutPlayer("bin/quillmark");
    const auto parsed = [&](const QString& line) {
        const Command command = ParseCommand(line);
        return QString::fromStdString(fs::relative(command.program, home.Root())) + u'|' +
               command.arguments.join(u'|');
    };
    EXPECT_EQ(parsed(u"C:\\programa\\QM\\LuaPlayer.EXE %1"_s), u"programa/QM/luaplayer|%1"_s);
    EXPECT_EQ(parsed(u"\"C:\\programa\\con.exe\"  -x \"a b\" \"\""_s), u"programa/con|-x|a b|"_s);
    EXPECT_EQ(parsed(u"C:\\programa\\con blancos %1"_s), u"programa/con blancos %1|"_s);
    EXPECT_EQ(parsed(u"C:\\programa\\con otros %1"_s), u"programa/con|otros|%1"_s);
    EXPECT_EQ(parsed(u"C:\\no 1% hay\\x.exe %1"_s), u"no 1% hay/x|%1"_s);
    EXPECT_EQ(parsed(u"C:\\programa\\Quillmark.exe %1"_s), u"bin/quillmark|%1"_s);
    PutPlayer("programa/quillmark");
    EXPECT_EQ(parsed(u"C:\\programa\\Quillmark.exe %1"_s), u"programa/quillmark|%1"_s);
}

TEST_F(FileClassTest, AFileIsOpenedByItsClassOrByTheDesktop) {
    PutPlayer("programa/mi player");
    PutPlayer("bin/xdg-open");
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", (home.Root() / "bin").c_str() + (':' + path));
    const QString script = home.Put("mis juegos/ñ $x.LUA", "");
    const QByteArray seen = "1|~/mis juegos/ñ $x.LUA|~/mis juegos|/dev/null|";
    ShellExecuteA(script);
    EXPECT_EQ(Seen(), seen);
    home.Put("programa/QM/luaplayer", "#!/bin/sh\n"); // can't be run, and is for .lua alone
    ShellExecuteA(script);
    EXPECT_EQ(Seen(), seen);
    fs::permissions(home.Root() / "programa/QM/luaplayer", fs::perms::owner_all);
    ShellExecuteA(home.Put("a.txt", ""));
    EXPECT_EQ(Seen(), "1|~/a.txt|~|/dev/null|");
    home.Put("bin/xdg-open", "#!/bin/sh\n"); // no longer asked
    PutPlayer("programa/QM/luaplayer");
    ShellExecuteA(script);
    EXPECT_EQ(Seen(), seen);
    home.Put("programa/QM/luaplayer", "#!/bin/sh\n"); // nor this one
    Register(u"C:\\programa\\mi player.exe %1"_s);
    ShellExecuteA(script);
    EXPECT_EQ(Seen(), seen);
    for (const QString& nothing : {u"C:\\no hay.exe %1"_s, u"Q:\\x.exe %1"_s}) {
        Register(nothing);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"no hay|Q:"_s));
        ShellExecuteA(script); // the log alone knows
    }
    qputenv("PATH", path);
}
