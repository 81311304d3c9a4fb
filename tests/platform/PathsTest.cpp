// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/Paths.h"
#include "platform/base/Failure.h"
#include "platform/base/Process.h"
#include "platform/files/Drives.h"
#include "platform/files/ProgramFolder.h"
#include "platform/text/NativeNames.h"
#include "support/Copies.h"
#include "support/TestHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace platform;
namespace fs = std::filesystem;

TEST(PathsTest, GoThereAndBack) {
    const support::TestHome home;
    // U+F03A stands for a colon.
    const std::string names[] = {
        "juego.lua",         "con blancos y ñ.qmk", "C:\\raro?.lua",        "dos\"comillas\"*<>|",
        "salto\nde linea",   "latin1 \xF1 roto",    "\xEF\x80\xBA privado", "😀",
        "\xEF\xBB\xBFmarca", " blancos alrededor "};
    for (const std::string& name : names) {
        home.Put("carpeta/" + name, "x");
        const QString path = FromNative(home.Root() / "carpeta" / name);
        EXPECT_TRUE(path.startsWith(u"C:\\carpeta\\"_s)) << path.toStdString();
        EXPECT_EQ(path.count(u'\\'), 2) << name;
        EXPECT_EQ(path.count(u':'), 1) << name;
        EXPECT_EQ(ToNative(path), home.Root() / "carpeta" / name);
    }
    EXPECT_EQ(FromNative(home.Root()), u"C:\\"_s);
    EXPECT_EQ(FromNative("/etc/../usr//lib/"), u"Z:\\usr\\lib"_s);
    fs::create_directories(home.Root() / "lejos/dentro");
    fs::create_directory_symlink(home.Root() / "lejos/dentro", home.Root() / "enlace");
    EXPECT_EQ(FromNative("enlace/../x.lua"), u"C:\\lejos\\x.lua"_s);
    EXPECT_EQ(FromNative("enlace/x.lua"), u"C:\\enlace\\x.lua"_s);
    EXPECT_EQ(DisplayText(FromNative("/a:b\xFF")), u"Z:\\a:b\uFFFD"_s);
}

TEST(PathsTest, NamesAreFoundWhateverTheirCase) {
    const support::TestHome home;
    for (const char* name : {"PSP/Game/EBOOT.PBP", "PSP/game2/a", "Doble", "DOBLE"})
        home.Put(name, "x");
    EXPECT_EQ(ToNative(u"c:\\psp\\GAME\\eboot.pbp"_s), home.Root() / "PSP/Game/EBOOT.PBP");
    EXPECT_EQ(ToNative(u"C:\\Doble"_s), home.Root() / "Doble");
    EXPECT_EQ(ToNative(u"C:\\dOBLE"_s), home.Root() / "DOBLE");
    EXPECT_EQ(ToNative(u"c:\\psp\\GAME\\eboot.pbp"_s, LastName::AsWritten),
              home.Root() / "PSP/Game/eboot.pbp");
    EXPECT_EQ(ToNative(u"C:/psp/Nueva/Carpeta"_s), home.Root() / "PSP/Nueva/Carpeta");
}

TEST(PathsTest, RelativeOnesStartAtTheCurrentDirectory) {
    const support::TestHome home;
    home.Put("una/dos/x.lua", "x");
    fs::current_path(home.Root() / "una");
    EXPECT_EQ(ToNative(u"dos\\.\\x.lua"_s), home.Root() / "una/dos/x.lua");
    for (const QString& x : {u"\\x"_s, u"..\\..\\..\\x"_s}) // no way out of a drive
        EXPECT_EQ(ToNative(x), home.Root() / "x");
    for (const QString& bad : {QString(), u"Q:\\x"_s, QString(u'a') + QChar(u'\0')})
        EXPECT_THROW(ToNative(bad), Failure);
    fs::remove_all(home.Root() / "una"); // they outlive it
    EXPECT_EQ(FromNative("x.lua"), u"Z:\\x.lua"_s);
    EXPECT_EQ(ToNative(u"x.lua"_s), fs::path("/x.lua"));
}

TEST(DrivesTest, OverridesAddAndReplaceLetters) {
    Drives drives("/home/ana", u"E=/mnt/psp;c=/otra/;mal;F=relativa;G=/"_s);
    EXPECT_EQ(drives.Root(u'C'), fs::path("/otra"));
    EXPECT_EQ(drives.Root(u'e'), fs::path("/mnt/psp"));
    for (const QChar none : {u'F', u'1'})
        EXPECT_EQ(drives.Root(none), std::nullopt);
    EXPECT_EQ(drives.Holding("/mnt/psp/PSP").letter, 'E');
    EXPECT_EQ(drives.Holding("/mnt/psp2").root, "/"); // a longer name, not a folder below
    EXPECT_EQ(drives.Holding("/otra").letter, 'C');
}

TEST(ProgramFolderTest, IsFilledWithoutTouchingWhatIsThere) {
    const support::TestHome home;
    const std::string data = "prefijo/share/quillmark/";
    const std::string player = "prefijo/libexec/quillmark/QM/jugar";
    const QByteArray example(1 << 24, 'x');
    home.Put(data + "config.ini", "nuevo");
    home.Put(data + "Code/codea", example);
    home.Put(player, "#!/bin/sh");
    home.Put("programa/config.ini", "del usuario");
    fs::permissions(home.Root() / (data + "Code/codea"), fs::perms(0444));
    fs::permissions(home.Root() / player, fs::perms(0755));
    fs::create_directories(home.Root() / "programa/QM");
    fs::create_symlink("/no/hay", home.Root() / "programa/QM/jugar"); // of a former installation
    EXPECT_TRUE(support::InCopies([&](int) {
        PrepareProgramFolder(home.Root() / "prefijo/bin/quillmark");
        return home.Get("programa/Code/codea") == example;
    }));
    EXPECT_TRUE(CanRun(home.Root() / "programa/QM/jugar"));
    EXPECT_TRUE(fs::is_symlink(home.Root() / "programa/QM/jugar"));
    EXPECT_EQ(ProgramFolder(), u"C:\\programa"_s);
    EXPECT_EQ(home.Get("programa/config.ini"), "del usuario");
    const auto permissions = fs::status(home.Root() / "programa/Code/codea").permissions();
    EXPECT_NE(permissions & fs::perms::owner_write, fs::perms::none);
}

TEST(ProgramFolderTest, IsFoundWithoutAnOverride) {
    const support::TestHome home;
    home.Put("prefijo/bin/quillmark", "");
    qunsetenv("QUILLMARK_HOME");
    PrepareProgramFolder(home.Root() / "prefijo/bin/quillmark");
    EXPECT_EQ(ProgramFolder(), u"C:\\prefijo\\bin"_s);
    qputenv("XDG_DATA_HOME", (home.Root() / "datos").c_str());
    PrepareProgramFolder("/proc/no/se/escribe/quillmark");
    EXPECT_EQ(ProgramFolder(), u"C:\\datos\\quillmark"_s);
    EXPECT_TRUE(fs::is_directory(home.Root() / "datos/quillmark"));
    PrepareProgramFolder("/usr/bin/quillmark"); // whoever starts it
    EXPECT_EQ(ProgramFolder(), u"C:\\datos\\quillmark"_s);
    qunsetenv("HOME");
    FindHome();
    EXPECT_TRUE(fs::is_directory(qgetenv("HOME").toStdString()));
}

TEST(PathsTest, TheCommandLineIsOne) {
    const support::TestHome home;
    fs::create_directories(home.Root() / "mis juegos");
    fs::current_path(home.Root() / "mis juegos");
    EXPECT_EQ(CommandLinePath({}), QString());
    EXPECT_EQ(CommandLinePath({"uno", "y", "dos.lua"}), u"C:\\mis juegos\\uno y dos.lua"_s);
    EXPECT_EQ(CommandLinePath({"/etc/\"x\""}), u"Z:\\etc\\\uF022x\uF022"_s);
    ChangeDirectory(u"C:\\"_s);
    EXPECT_EQ(fs::current_path(), home.Root());
    EXPECT_THROW(ChangeDirectory(u"C:\\nada"_s), Failure);
}
