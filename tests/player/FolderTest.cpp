// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Folder.h"
#include "Script.h"

#include <atomic>
#include <fcntl.h>
#include <functional>
#include <sys/stat.h>
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

    const Folder kernel{folder};
    const Folder walk{folder, Folder::Resolver::Walk};
};

TEST_F(FolderTest, OnlyWhatIsBeneathIsReached) {
    const std::string own = folder.string();
    const std::pair<int, std::vector<std::string>> answers[] = {
        {0, {"sub/a.txt", "sub\\a.txt", ".//sub/../sub/./a.txt", own + "/sub/a.txt"}},
        {EXDEV, {"../fuera.txt", "..\\fuera.txt", "sub/../../juego/sub/a.txt", "/etc/passwd"}},
        {EXDEV, {own + "2/vecino.txt", own + "/../fuera.txt", "C:\\fuera.txt", "C:fuera.txt"}},
        {EISDIR, {"tubo", "sub"}},
        {EINVAL, {"", std::string("sub/a.txt\0x", 11)}},
        {ENAMETOOLONG, {std::string(5000, 'x')}},
    };
    for (const Folder* tested : {&kernel, &walk})
        for (const auto& [code, paths] : answers)
            for (const std::string& path : paths)
                EXPECT_EQ(CodeOf([&] { tested->Read(path); }), code) << path;
    const std::pair<const char*, int> links[] = {
        {"enlace", ELOOP}, {"arriba/fuera.txt", ENOTDIR}, {"magia/fuera.txt", ENOTDIR}};
    for (const auto& link : links) {
        EXPECT_EQ(CodeOf([&] { kernel.Read(link.first); }), EXDEV) << link.first;
        EXPECT_EQ(CodeOf([&] { walk.Read(link.first); }), link.second) << link.first;
    }
    EXPECT_EQ(kernel.Read("dentro/a.txt"), "dentro");
    EXPECT_EQ(CodeOf([&] { walk.Read("dentro/a.txt"); }), ENOTDIR);
    kernel.Write("ca\xF1on.txt", "pum");
    EXPECT_EQ(Get(folder / "ca\xC3\xB1on.txt"), "pum");
    EXPECT_EQ(CodeOf([&] { kernel.Read("sub/a.txt", 5); }), EFBIG);
}

TEST_F(FolderTest, NothingOutsideIsChanged) {
    for (const Folder* tested : {&kernel, &walk}) {
        for (const char* path : {"enlace", "duro", "../fuera.txt", "arriba/fuera.txt", "colgado"})
            EXPECT_NE(CodeOf([&] { tested->Write(path, "roto"); }), 0) << path;
        for (const char* path : {"../n", "arriba/n", "/tmp/n", ".."}) {
            EXPECT_NE(CodeOf([&] { tested->MakeDirectory(path); }), 0) << path;
            EXPECT_NE(CodeOf([&] { tested->Rename("sub", path); }), 0) << path;
        }
        EXPECT_NE(CodeOf([&] { tested->RemoveFile("arriba/fuera.txt"); }), 0);
        EXPECT_NE(CodeOf([&] { tested->RemoveDirectory("arriba/juego2"); }), 0);
        EXPECT_NE(CodeOf([&] { tested->Rename("arriba/fuera.txt", "mio.txt"); }), 0);
    }
    Passes(R"lua(for _, f in ipairs{"../fuera.txt", "arriba/fuera.txt"} do
    fails(f, io.open, f) fails(f, os.remove, f) fails(f, os.rename, "sub", f)
    fails(f, loadfile, f) fails(f, dofile, f) fails(f, io.lines, f) fails(f, io.input, f)
    fails("fuera de la carpeta del script", System.removeFile, f)
end
fails("enlace", io.open, "enlace") fails("duro", io.open, "duro", "w")
fails("arriba/x", require, "arriba.x") fails("arriba", System.listDirectory, "arriba")
for _, e in ipairs(System.listDirectory(".")) do
    if e.name == "arriba" then equal(e.size, 0) equal(e.directory, false) end
end
os.remove("enlace") -- the link itself is the script's)lua");
    EXPECT_FALSE(fs::is_symlink(folder / "enlace"));
    EXPECT_EQ(Get(around / "fuera.txt"), "fuera");
    EXPECT_FALSE(fs::exists(around / "nuevo.txt") || fs::exists(around / "n"));
}

// Somebody puts a link in the place of a folder and back, as fast as it goes.
TEST_F(FolderTest, AFolderThatTurnsIntoALinkLeadsNowhere) {
    Put(around / "trampa/x", "fuera");
    Put(folder / "puerta/x", "dentro");
    fs::create_symlink("../trampa", folder / "otra");
    const fs::path door = folder / "puerta";
    const fs::path other = folder / "otra";
    for (const Folder* tested : {&kernel, &walk}) {
        std::atomic<bool> done = false;
        std::thread swapper([&] {
            while (!done)
                renameat2(AT_FDCWD, door.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE);
        });
        int read = 0, refused = 0;
        for (int i = 0; i < 20000 && (i < 2000 || read == 0 || refused == 0); ++i) {
            refused += CodeOf([&] { read += tested->Read("puerta/x") == "dentro" ? 1 : -20000; });
            CodeOf([&] { tested->Write("puerta/x", "dentro"); });
        }
        done = true;
        swapper.join();
        EXPECT_GT(read, 0); // one look outside would take more away than all the others give
        EXPECT_GT(refused, 0);
        EXPECT_EQ(Get(around / "trampa/x"), "fuera");
    }
}

} // namespace
} // namespace player
