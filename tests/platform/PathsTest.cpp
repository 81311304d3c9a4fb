// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Paths.h"
#include "platform/Drives.h"
#include "platform/Failure.h"
#include "support/TestHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace platform;
namespace fs = std::filesystem;

TEST(Paths, GoThereAndBack) {
    const support::TestHome home;
    const std::string names[] = {"juego.lua",
                                 "con blancos y ñ.qmk",
                                 "C:\\raro?.lua",
                                 "dos\"comillas\"*<>|",
                                 "salto\nde linea",
                                 "latin1 \xF1 roto",
                                 "\xEF\x80\xBA privado", // U+F03A, which stands for a colon
                                 "😀",
                                 "\xEF\xBB\xBFmarca",
                                 " blancos alrededor "};
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

TEST(Paths, NamesAreFoundWhateverTheirCase) {
    const support::TestHome home;
    home.Put("PSP/Game/EBOOT.PBP", "x");
    home.Put("PSP/game2/a", "x");
    home.Put("Doble", "x");
    home.Put("DOBLE", "x");
    EXPECT_EQ(ToNative(u"c:\\psp\\GAME\\eboot.pbp"_s), home.Root() / "PSP/Game/EBOOT.PBP");
    EXPECT_EQ(ToNative(u"C:\\Doble"_s), home.Root() / "Doble");
    EXPECT_EQ(ToNative(u"C:\\dOBLE"_s), home.Root() / "DOBLE");
    EXPECT_EQ(ToNative(u"c:\\psp\\GAME\\eboot.pbp"_s, LastName::AsWritten),
              home.Root() / "PSP/Game/eboot.pbp");
    EXPECT_EQ(ToNative(u"C:/psp/Nueva/Carpeta"_s), home.Root() / "PSP/Nueva/Carpeta");
}

TEST(Paths, RelativeOnesStartAtTheCurrentDirectory) {
    const support::TestHome home;
    home.Put("una/dos/x.lua", "x");
    fs::current_path(home.Root() / "una");
    EXPECT_EQ(ToNative(u"dos\\.\\x.lua"_s), home.Root() / "una/dos/x.lua");
    EXPECT_EQ(ToNative(u"..\\..\\..\\x"_s),
              home.Root() / "x"); // no way out of a drive
    EXPECT_EQ(ToNative(u"\\x"_s), home.Root() / "x");
    for (const QString& bad : {QString(), u"Q:\\x"_s, QString(u'a') + QChar(u'\0')})
        EXPECT_THROW(ToNative(bad), Failure);
}

TEST(Paths, OutliveTheCurrentDirectory) {
    const support::TestHome home;
    fs::create_directory(home.Root() / "fugaz");
    fs::current_path(home.Root() / "fugaz");
    fs::remove(home.Root() / "fugaz");
    EXPECT_EQ(FromNative("x.lua"), u"Z:\\x.lua"_s);
    EXPECT_EQ(ToNative(u"x.lua"_s), fs::path("/x.lua"));
}

TEST(Drives, OverridesAddAndReplaceLetters) {
    Drives drives("/home/ana", u"E=/mnt/psp;c=/otra/;mal;F=relativa;G=/"_s);
    std::string letters;
    for (const Drive& drive : drives.List())
        letters += drive.letter;
    EXPECT_NE(letters.find('E'), std::string::npos);
    EXPECT_EQ(letters.find('F'), std::string::npos);
    EXPECT_EQ(drives.Root(u'C'), fs::path("/otra"));
    EXPECT_EQ(drives.Root(u'e'), fs::path("/mnt/psp"));
    EXPECT_EQ(drives.Root(u'1'), std::nullopt);
    EXPECT_EQ(drives.Holding("/mnt/psp/PSP").letter, 'E');
    EXPECT_EQ(drives.Holding("/mnt/psp2").root, "/"); // a longer name, not a folder below
    EXPECT_EQ(drives.Holding("/otra").letter, 'C');
}
