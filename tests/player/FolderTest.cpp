// SPDX-License-Identifier: GPL-3.0-or-later
#include "Script.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <atomic>
#include <cstdio>
#include <functional>
#include <thread>

namespace player {
namespace {

namespace fs = std::filesystem;

class FolderTest : public ScriptTest {
protected:
    FolderTest() {
        Put(around / "fuera.txt", "fuera");
        Put(around / "juego2/vecino.txt", "fuera");
        Put(folder / "sub/a.txt", "dentro");
        fs::create_symlink("../fuera.txt", folder / "enlace");
        fs::create_symlink("../nuevo.txt", folder / "colgado");
        fs::create_symlink(around, folder / "arriba");
        fs::create_symlink("/proc/self/cwd", folder / "magia");
        fs::create_symlink("sub", folder / "dentro");
        fs::create_hard_link(around / "fuera.txt", folder / "duro");
        mkfifo((folder / "tubo").c_str(), 0600);
    }

    static int CodeOf(const std::function<void()>& act) {
        try {
            act();
        } catch (const FolderError& error) {
            return error.code;
        }
        return 0;
    }
};

TEST_F(FolderTest, ReachesOnlyWhatIsBeneath) {
    struct Case {
        std::string path;
        int kernel;
        int walk;
    };
    const std::string own = folder.string();
    const Case cases[] = {
        {"sub/a.txt", 0, 0},
        {"sub\\a.txt", 0, 0},
        {".//sub/../sub/./a.txt", 0, 0},
        {own + "/sub/a.txt", 0, 0},
        {"dentro/a.txt", 0, ENOTDIR},
        {"../fuera.txt", EXDEV, EXDEV},
        {"..\\fuera.txt", EXDEV, EXDEV},
        {"sub/../../juego/sub/a.txt", EXDEV, EXDEV},
        {"/etc/passwd", EXDEV, EXDEV},
        {own + "2/vecino.txt", EXDEV, EXDEV},
        {own + "/../fuera.txt", EXDEV, EXDEV},
        {"C:\\fuera.txt", EXDEV, EXDEV},
        {"C:fuera.txt", EXDEV, EXDEV},
        {"enlace", EXDEV, ELOOP},
        {"arriba/fuera.txt", EXDEV, ENOTDIR},
        {"magia/fuera.txt", EXDEV, ENOTDIR},
        {"tubo", EISDIR, EISDIR},
        {"sub", EISDIR, EISDIR},
        {"", EINVAL, EINVAL},
        {std::string("sub/a.txt\0x", 11), EINVAL, EINVAL},
        {std::string(5000, 'x'), ENAMETOOLONG, ENAMETOOLONG},
    };
    const Folder kernel(folder);
    const Folder walk(folder, Folder::Resolver::Walk);
    for (const Case& known : cases) {
        EXPECT_EQ(CodeOf([&] { kernel.Read(known.path); }), known.kernel) << known.path;
        EXPECT_EQ(CodeOf([&] { walk.Read(known.path); }), known.walk) << known.path;
    }
    EXPECT_EQ(kernel.Read("sub/a.txt"), "dentro");
    kernel.Write("ca\xF1on.txt", "pum");
    EXPECT_EQ(Get(folder / "ca\xC3\xB1on.txt"), "pum");
    EXPECT_EQ(CodeOf([&] { kernel.Read("sub/a.txt", 5); }), EFBIG);
}

TEST_F(FolderTest, ChangesNothingOutside) {
    for (const auto resolver : {Folder::Resolver::Kernel, Folder::Resolver::Walk}) {
        const Folder tested(folder, resolver);
        for (const char* path : {"enlace", "duro", "../fuera.txt", "arriba/fuera.txt", "colgado"})
            EXPECT_NE(CodeOf([&] { tested.Write(path, "roto"); }), 0) << path;
        for (const char* path : {"../n", "arriba/n", "/tmp/n", ".."}) {
            EXPECT_NE(CodeOf([&] { tested.MakeDirectory(path); }), 0) << path;
            EXPECT_NE(CodeOf([&] { tested.Rename("sub", path); }), 0) << path;
        }
        EXPECT_NE(CodeOf([&] { tested.RemoveFile("arriba/fuera.txt"); }), 0);
        EXPECT_NE(CodeOf([&] { tested.RemoveDirectory("arriba/juego2"); }), 0);
        EXPECT_NE(CodeOf([&] { tested.Rename("arriba/fuera.txt", "mio.txt"); }), 0);
    }
    Folder(folder).RemoveFile("enlace"); // the link itself is the script's
    EXPECT_EQ(Get(around / "fuera.txt"), "fuera");
    EXPECT_FALSE(fs::exists(around / "nuevo.txt"));
    EXPECT_FALSE(fs::exists(around / "n"));
}

// Somebody puts a link in the place of a folder and back, as fast as it goes.
TEST_F(FolderTest, IsNotFooledByAFolderThatTurnsIntoALink) {
    Put(around / "trampa/x", "fuera");
    Put(folder / "puerta/x", "dentro");
    fs::create_symlink("../trampa", folder / "otra");
    const std::string door = folder / "puerta";
    const std::string other = folder / "otra";
    for (const auto resolver : {Folder::Resolver::Kernel, Folder::Resolver::Walk}) {
        const Folder tested(folder, resolver);
        std::atomic<bool> done = false;
        std::thread swapper([&] {
            while (!done)
                renameat2(AT_FDCWD, door.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE);
        });
        int read = 0;
        int refused = 0;
        int outside = 0;
        for (int i = 0; i < 20000 && (i < 2000 || read == 0 || refused == 0); ++i) {
            const int code =
                CodeOf([&] { ++(tested.Read("puerta/x") == "dentro" ? read : outside); });
            refused += code == 0 ? 0 : 1;
            CodeOf([&] { tested.Write("puerta/x", "dentro"); });
        }
        done = true;
        swapper.join();
        EXPECT_GT(read, 0);
        EXPECT_GT(refused, 0);
        EXPECT_EQ(outside, 0);
        EXPECT_EQ(Get(around / "trampa/x"), "fuera");
    }
}

TEST_F(FolderTest, LetsNoScriptOut) {
    EXPECT_EQ(Run(R"(
        assert(not io.open("../fuera.txt") and not io.open("enlace") and not io.open("duro", "w"))
        for _, f in ipairs{"../fuera.txt", "arriba/fuera.txt"} do
            assert(not os.remove(f) and not os.rename("sub", f) and not loadfile(f))
            assert(not pcall(dofile, f) and not pcall(io.lines, f) and not pcall(io.input, f))
            local ok, reason = pcall(System.removeFile, f)
            assert(not ok and reason:find("fuera de la carpeta del script"), reason)
        end
        assert(not pcall(require, "arriba.x") and not pcall(System.listDirectory, "arriba"))
        for _, e in ipairs(System.listDirectory(".")) do
            assert(e.name ~= "arriba" or (e.size == 0 and not e.directory))
        end)"),
              "");
}

} // namespace
} // namespace player
