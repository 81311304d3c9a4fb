// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/FileClass.h"
#include "platform/desktop/FileAssociation.h"
#include "platform/desktop/Registry.h"
#include "platform/desktop/ShellExecute.h"
#include "support/TestHome.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace platform;
namespace fs = std::filesystem;

namespace {

class FileClassTest : public testing::Test {
protected:
    FileClassTest() {
        const RegistryKey key = Register(u".xyz"_s, u"C:\\programa\\mi 'player'.exe %1"_s);
        RegSetValueA(key, QString(), u"Un <título>"_s);
        RegSetValueA(key, u"DefaultIcon"_s, home.Put("lua.ico", support::Shipped("lua.ico")));
    }
    // A program that writes its argument, its folder and where its output goes.
    void PutPlayer(const std::string& name) const {
        home.PutProgram(
            name, "#!/bin/sh\nprintf '%s|' \"$#\" \"$1\" \"$PWD\" \"$(readlink /proc/$$/fd/1)\" "
                  ">\"$HOME/visto.new\"\nmv \"$HOME/visto.new\" \"$HOME/visto\"\n");
    }
    static RegistryKey Register(const QString& extension, const QString& command) {
        RegSetValueA(HKEY_CLASSES_ROOT, extension, u"Script .LUA"_s);
        RegistryKey key = RegCreateKeyA(HKEY_CLASSES_ROOT, u"script .lua"_s);
        RegSetValueA(key, u"shell\\open\\command"_s, command);
        return key;
    }
    // What the program saw with which the file was opened.
    QByteArray Opened(const QString& file) const {
        ShellExecuteA(file);
        EXPECT_TRUE(QTest::qWaitFor([&] { return fs::exists(home.Root() / "visto"); }));
        QByteArray seen = home.Get("visto");
        fs::remove(home.Root() / "visto");
        return seen.replace(home.Root().c_str(), "~");
    }
    // What a tool of the desktop answers.
    static QString Ask(const QString& commandLine) {
        QProcess process;
        process.startCommand(commandLine);
        EXPECT_TRUE(process.waitForFinished()) << commandLine.toStdString();
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    }

    support::TestHome home;
    const std::string share = ".local/share/";
    const std::string defaults = ".config/mimeapps.list";
};

} // namespace

TEST_F(FileClassTest, TheRegistryKeepsKeysAndValuesAsGiven) {
    EXPECT_FALSE(FindFileClass(u".lua"_s));
    EXPECT_FALSE(FindFileClass(QString()));
    home.Put(".config/Quillmark/Clases de archivos.conf",
             QByteArray("[HKEY_CLASSES_ROOT\n=\0\xFF\n.lua\n\\x=\\\"", 32));
    RegSetValueA(Register(u".lua"_s, u"C:\\año, →\\x.exe %1"_s), QString(), u"Un título"_s);
    const auto found = FindFileClass(u".LUA"_s);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->title, u"Un título"_s);
    EXPECT_EQ(found->command, u"C:\\año, →\\x.exe %1"_s);
    EXPECT_EQ(found->icon, QString());
    EXPECT_EQ(home.Get(".config/Quillmark/Clases de archivos.conf").count("Un t"), 1);
}

TEST_F(FileClassTest, CommandsAreTakenApart) {
    for (const char* name :
         {"programa/QM/luaplayer", "programa/con", "programa/con blancos %1", "bin/quillmark"})
        PutPlayer(name);
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
    EXPECT_EQ(Opened(script), seen);
    home.Put("programa/QM/luaplayer", "#!/bin/sh\n"); // can't be run, and is for .lua alone
    EXPECT_EQ(Opened(script), seen);
    fs::permissions(home.Root() / "programa/QM/luaplayer", fs::perms::owner_all);
    EXPECT_EQ(Opened(home.Put("a.txt", "")), "1|~/a.txt|~|/dev/null|");
    home.Put("bin/xdg-open", "#!/bin/sh\n"); // no longer asked
    PutPlayer("programa/QM/luaplayer");
    EXPECT_EQ(Opened(script), seen);
    home.Put("programa/QM/luaplayer", "#!/bin/sh\n"); // nor this one
    Register(u".lua"_s, u"C:\\programa\\mi player.exe %1"_s);
    EXPECT_EQ(Opened(script), seen);
    for (const QString& nothing : {u"C:\\no hay.exe %1"_s, u"Q:\\x.exe %1"_s}) {
        Register(u".lua"_s, nothing);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"no hay|Q:"_s));
        ShellExecuteA(script); // the log alone knows
    }
    qputenv("PATH", path);
}

TEST_F(FileClassTest, TheDesktopKnowsTypeIconsAndProgram) {
    home.PutProgram("programa/mi 'player'", "#!/bin/sh\necho \"$0\" \"$1\"\n");
    home.Put(defaults, "[Added Associations]\nimage/png=x.desktop;\n");
    PutToDesktop(u".xyz"_s);
    home.Put("a.xyz", "hola");
    EXPECT_TRUE(
        Ask(u"gio info -a standard::content-type a.xyz"_s).endsWith(u"text/x-quillmark-xyz"));
    EXPECT_EQ(Ask(u"xdg-mime query default text/x-quillmark-xyz"_s), u"quillmark-xyz.desktop"_s);
    EXPECT_EQ(Ask(u"desktop-file-validate .local/share/applications/quillmark-xyz.desktop"_s),
              QString());
    const QByteArray list = home.Get(defaults);
    EXPECT_EQ(list, "[Added Associations]\nimage/png=x.desktop;\n[Default Applications]\n"
                    "text/x-quillmark-xyz=quillmark-xyz.desktop\n");
    for (const int size : {16, 32, 48, 256}) {
        const std::string folder = std::to_string(size) + "x" + std::to_string(size);
        const QImage icon = QImage::fromData(
            home.Get(share + "icons/hicolor/" + folder + "/mimetypes/quillmark-xyz.png"), "png");
        EXPECT_EQ(icon.size(), QSize(size, size));
    }
    const QByteArray entry = home.Get(share + "applications/quillmark-xyz.desktop");
    EXPECT_TRUE(entry.contains("\nName=Mi 'player'\n"));
    EXPECT_TRUE(entry.contains("quillmark/bin/quillmark-xyz %f\n")); // no blank to stumble on
    EXPECT_EQ(Ask(u".local/share/quillmark/bin/quillmark-xyz \"a b\""_s),
              QString::fromStdString(home.Root() / "programa/mi 'player'") + u" a b"_s);
    PutToDesktop(u".xyz"_s);
    EXPECT_EQ(home.Get(defaults), list);
    EXPECT_EQ(home.Get(share + "applications/quillmark-xyz.desktop"), entry);
    Register(u".lua"_s, u"C:\\x %1"_s);
    PutToDesktop(u".lua"_s); // a type that the desktop has
    EXPECT_EQ(home.Get(defaults), list + "text/x-lua=quillmark-lua.desktop\n");
}

TEST_F(FileClassTest, WhatTheDesktopCannotBeToldIsLeftOut) {
    home.Put("lua.ico", support::Shipped("lua.ico").chopped(1000));
    home.Put(share + "mime/packages", "a file");
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", ""); // no tool of the desktop is there
    PutToDesktop(u".xyz"_s);
    qputenv("PATH", path);
    EXPECT_EQ(home.Get(defaults),
              "[Default Applications]\ntext/x-quillmark-xyz=quillmark-xyz.desktop\n");
    EXPECT_FALSE(home.Get(share + "applications/quillmark-xyz.desktop").isEmpty());
    EXPECT_FALSE(fs::exists(home.Root() / (share + "icons/hicolor/0x0")));
    fs::remove(home.Root() / defaults);
    fs::remove_all(home.Root() / (share + "applications"));
    home.Put(share + "applications", "a file");
    PutToDesktop(u".xyz"_s);
    EXPECT_FALSE(fs::exists(home.Root() / defaults)); // no default without an entry
    PutToDesktop(u".nada"_s);
}

TEST_F(FileClassTest, PathsOfADesktopEntryAreQuotedAsTheFormatWants) {
    const QByteArray entry =
        DesktopEntry("/a b/\"q\" $x `y` \\z 100%", u"línea\nñ"_s, u"icono"_s, u"text/x"_s);
    for (const char* line : {"Exec=\"/a b/\\\\\"q\\\\\" \\\\$x \\\\`y\\\\` \\\\\\\\z 100%%\" %f\n",
                             "TryExec=/a b/\"q\" $x `y` \\\\z 100%\n", "Name=línea\\nñ\n"})
        EXPECT_TRUE(entry.contains(line)) << line;
    EXPECT_TRUE(DesktopEntry("/usr/bin/q", u"q"_s, {}, {}).contains("Exec=/usr/bin/q %f\n"));
}
