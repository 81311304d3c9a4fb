// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Program.h"
#include "platform/Failure.h"
#include "support/Copies.h"
#include "support/TestHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace platform;
namespace fs = std::filesystem;

TEST(Program, ItsFolderIsFilledWithoutTouchingWhatIsThere) {
    const support::TestHome home;
    home.Put("prefijo/share/quillmark/config.ini", "nuevo");
    home.Put("prefijo/share/quillmark/Code/codea", "ejemplo");
    home.Put("programa/config.ini", "del usuario");
    fs::permissions(home.Root() / "prefijo/share/quillmark/Code/codea", fs::perms(0444));
    home.Put("prefijo/libexec/quillmark/QM/jugar", "#!/bin/sh");
    fs::permissions(home.Root() / "prefijo/libexec/quillmark/QM/jugar", fs::perms(0755));
    fs::create_directories(home.Root() / "programa/QM");
    fs::create_symlink("/no/hay", home.Root() / "programa/QM/jugar"); // of a former installation
    PrepareProgramFolder(home.Root() / "prefijo/bin/quillmark");
    EXPECT_TRUE(CanRun(home.Root() / "programa/QM/jugar"));
    EXPECT_TRUE(fs::is_symlink(home.Root() / "programa/QM/jugar"));
    EXPECT_EQ(ProgramFolder(), u"C:\\programa"_s);
    EXPECT_EQ(home.Get("programa/config.ini"), "del usuario");
    EXPECT_EQ(home.Get("programa/Code/codea"), "ejemplo");
    const auto permissions = fs::status(home.Root() / "programa/Code/codea").permissions();
    EXPECT_NE(permissions & fs::perms::owner_write, fs::perms::none);
}

TEST(Program, CopiesOfItFillTheFolderTogether) {
    const support::TestHome home;
    const QByteArray whole(1 << 22, 'x');
    for (int i = 0; i < 8; ++i)
        home.Put("prefijo/share/quillmark/data/" + std::to_string(i), whole);
    EXPECT_TRUE(support::InCopies([&](int) {
        PrepareProgramFolder(home.Root() / "prefijo/bin/quillmark");
        bool all = true;
        for (int i = 0; i < 8; ++i)
            all = all && home.Get("programa/data/" + std::to_string(i)) == whole;
        return all;
    }));
}

TEST(Program, ItsFolderWithoutAnOverride) {
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

TEST(Program, TheCommandLineIsOnePath) {
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
