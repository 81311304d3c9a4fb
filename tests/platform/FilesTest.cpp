// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Files.h"
#include "platform/CopyFile.h"
#include "platform/Failure.h"
#include "platform/FileSystemObject.h"
#include "platform/FindFile.h"
#include "support/TestHome.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace platform;
namespace fs = std::filesystem;

namespace {

// Runs the operation and answers the text of its failure.
template<class Operation>
QString FailureOf(Operation operation) {
    try {
        operation();
    } catch (const Failure& failure) {
        EXPECT_TRUE(failure.IsFileAccess());
        return failure.Text();
    }
    return {};
}

class FilesTest : public testing::Test {
protected:
    int EntriesAtHome() const {
        return static_cast<int>(std::distance(fs::directory_iterator(home.Root()), {}));
    }
    support::TestHome home;
    const QString a = u"C:\\a.lua"_s;
};

// What was asked of the disk, in order.
QStringList& Asked() {
    static QStringList asked;
    return asked;
}

// No file of the process can grow above the size while this lives.
class SizeLimit {
public:
    explicit SizeLimit(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SizeLimit() { ::setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    rlimit m_before{};
};

} // namespace

extern "C" int fsync(int file) {
    struct stat status {};
    ::fstat(file, &status);
    Asked().append(S_ISDIR(status.st_mode) ? u"carpeta"_s : u"archivo"_s);
    return static_cast<int>(::syscall(SYS_fsync, file));
}

extern "C" int rename(const char* from, const char* to) noexcept {
    Asked().append(u"nombre"_s);
    return static_cast<int>(::syscall(SYS_rename, from, to));
}

TEST_F(FilesTest, WhatIsDoneIsOnTheDisk) {
    home.Put("b.lua", "x");
    fs::create_hard_link(home.Root() / "b.lua", home.Root() / "c.lua");
    int never = 0;
    const std::pair<std::function<void()>, const char*> works[] = {
        {[&] { WriteFile(a, "uno"); }, "archivo nombre carpeta"},
        {[&] { WriteFile(a, "dos"); }, "archivo nombre carpeta"},
        {[] { ReplaceFile(u"C:\\nuevo.lua"_s, "x"); }, "archivo nombre carpeta"},
        {[&] { ReplaceFile(a, "tres"); }, "archivo nombre carpeta"},
        {[&] {
             CopyFileExA(
                 a, u"C:\\d.lua"_s, [](qint64, qint64) {}, never);
         },
         "archivo nombre carpeta"},
        {[] { WriteFile(u"C:\\b.lua"_s, "y"); }, "archivo archivo"}, // two names: in place
        {[] { FileSystemObject().CreateFolder(u"C:\\e"_s); }, "carpeta"},
        {[] { FileSystemObject().DeleteFolder(u"C:\\e"_s); }, "carpeta"},
    };
    for (const auto& [work, asked] : works) {
        Asked().clear();
        work();
        EXPECT_EQ(Asked().join(u' ').toStdString(), asked);
    }
    fs::create_symlink("nada", home.Root() / "z");
    for (const FoundFile& found : FindFiles(u"C:\\"_s, 99).value())
        EXPECT_GT(found.lastWriteTime, 0) << found.name.toStdString(); // of a link itself, too
    EXPECT_EQ(ReadFileHead(a, 2) + ReadFileHead(a, 9), "trtres");
    EXPECT_GT(ReadFile(u"Z:\\proc\\self\\status"_s).size(), 100); // made as it is read
}

TEST_F(FilesTest, AReplacedFileStandsUntilTheNewOneIsWhole) {
    WriteFile(a, "viejo");
    fs::permissions(home.Root() / "a.lua", fs::perms::owner_read);
    const int entries = EntriesAtHome();
    {
        const SizeLimit limit(1000);
        EXPECT_FALSE(FailureOf([&] { ReplaceFile(a, QByteArray(2000, 'x')); }).isEmpty());
    }
    EXPECT_EQ(home.Get("a.lua"), "viejo");
    EXPECT_EQ(EntriesAtHome(), entries);
    ReplaceFile(a, "nuevo");
    EXPECT_EQ(home.Get("a.lua"), "nuevo");
}

TEST_F(FilesTest, AWrittenFileIsReadBackAndKeepsItsPermissions) {
    WriteFile(a, "uno");
    fs::permissions(home.Root() / "a.lua", fs::perms(0751));
    WriteFile(a, QByteArray("dos\0\xFF", 5));
    EXPECT_EQ(ReadFile(a), QByteArray("dos\0\xFF", 5));
    EXPECT_EQ(fs::status(home.Root() / "a.lua").permissions(), fs::perms(0751));
    WriteFile(a, "");
    EXPECT_EQ(ReadFile(a), "");
    EXPECT_EQ(EntriesAtHome(), 2); // the file and the program's folder
}

TEST_F(FilesTest, AFileThatDiffersInCaseIsAnother) {
    home.Put("juego.lua", "ajeno");
    const QString path = u"C:\\Juego.lua"_s;
    EXPECT_EQ(ReadFile(path), "ajeno"); // found whatever its case
    EXPECT_FALSE(FileSystemObject().FileExists(path));
    WriteFile(path, "mío");
    EXPECT_EQ(ReadFile(path), "mío");
    FileSystemObject().DeleteFile(path, true);
    EXPECT_FALSE(FileSystemObject().FileExists(path));
    EXPECT_EQ(home.Get("juego.lua"), "ajeno");
    EXPECT_TRUE(FailureOf([&] { FileSystemObject().DeleteFile(path); }).contains(u"no existe"));
}

TEST_F(FilesTest, LinksStayLinks) {
    home.Put("real.lua", "viejo");
    fs::create_symlink("real.lua", home.Root() / "enlace.lua");
    fs::create_symlink("futuro.lua", home.Root() / "colgado.lua");
    fs::create_hard_link(home.Root() / "real.lua", home.Root() / "duro.lua");
    WriteFile(u"C:\\enlace.lua"_s, "nuevo y largo");
    EXPECT_TRUE(fs::is_symlink(home.Root() / "enlace.lua"));
    EXPECT_EQ(home.Get("real.lua"), "nuevo y largo");
    EXPECT_EQ(home.Get("duro.lua"), "nuevo y largo");
    WriteFile(u"C:\\duro.lua"_s, "c");
    EXPECT_EQ(home.Get("real.lua"), "c");
    WriteFile(u"C:\\colgado.lua"_s, "x");
    EXPECT_TRUE(fs::is_symlink(home.Root() / "colgado.lua"));
    EXPECT_EQ(home.Get("futuro.lua"), "x");
}

TEST_F(FilesTest, AFailedWriteLeavesTheOldFile) {
    const QByteArray old(100, 'v');
    home.Put("a.lua", old);
    home.Put("otro.lua", old);
    fs::create_hard_link(home.Root() / "otro.lua", home.Root() / "duro.lua");
    const int entries = EntriesAtHome();
    {
        const SizeLimit limit(4096);
        for (const char* name : {"C:\\a.lua", "C:\\duro.lua", "C:\\nuevo.lua"}) {
            const QString text =
                FailureOf([&] { WriteFile(QString::fromLatin1(name), QByteArray(10000, 'n')); });
            EXPECT_TRUE(text.contains(QString::fromLatin1(name))) << text.toStdString();
        }
    }
    EXPECT_EQ(home.Get("a.lua"), old);
    EXPECT_EQ(home.Get("otro.lua"), old);
    EXPECT_EQ(EntriesAtHome(), entries);
}

TEST_F(FilesTest, FailuresNameTheFileAndTheReason) {
    fs::create_directory(home.Root() / "carpeta");
    ::mkfifo((home.Root() / "tubo").c_str(), 0600);
    fs::create_symlink("bucle", home.Root() / "bucle");
    const auto open = [](const char* path) {
        return FailureOf([&] { ReadFile(QString::fromUtf8(path)); });
    };
    EXPECT_EQ(open("C:\\no está"), u"No se puede abrir el archivo \"C:\\no está\": no existe."_s);
    EXPECT_TRUE(open("C:\\carpeta").contains(u"es una carpeta"_s));
    EXPECT_TRUE(open("C:\\tubo").contains(u"no es un archivo normal"_s));
    EXPECT_TRUE(open("C:\\bucle").contains(u"ciclo de enlaces"_s));
    const auto save = [](const char* path) {
        return FailureOf([&] { WriteFile(QString::fromUtf8(path), "x"); });
    };
    EXPECT_EQ(save("C:\\nada\\a.lua"),
              QStringLiteral(
                  "No se puede guardar el archivo \"C:\\nada\\a.lua\": la carpeta no existe."));
    EXPECT_TRUE(save("C:\\carpeta").contains(u"es una carpeta"_s));
    EXPECT_TRUE(save("C:\\tubo").contains(u"no es un archivo normal"_s));
    EXPECT_TRUE(save("C:\\bucle").contains(u"ciclo de enlaces"_s));
    EXPECT_TRUE(save(("C:\\" + std::string(300, 'x')).c_str()).contains(u"demasiado largo"));
}

TEST_F(FilesTest, WithoutPermission) {
    home.Put("solo lectura.lua", "x");
    home.Put("cerrada/a.lua", "viejo");
    fs::permissions(home.Root() / "solo lectura.lua", fs::perms(0444));
    fs::permissions(home.Root() / "cerrada", fs::perms(0555));
    // Root may write everything: the rest of the test is an ordinary user's.
    const uid_t user = ::geteuid() == 0 ? 65534 : ::geteuid();
    ASSERT_EQ(::chown(home.Root().c_str(), user, static_cast<gid_t>(-1)), 0);
    home.Put("cerrada/corto.lua", "corto");
    home.Put("cerrada/largo.lua", QByteArray(8192, 'v'));
    for (const char* name : {"a.lua", "corto.lua", "largo.lua"})
        ASSERT_EQ(::chown((home.Root() / "cerrada" / name).c_str(), user, static_cast<gid_t>(-1)),
                  0);
    const pid_t child = ::fork();
    if (child == 0) {
        const bool changed = ::geteuid() != 0 || ::setresuid(user, user, user) == 0;
        const QString readOnly = FailureOf([] { WriteFile(u"C:\\solo lectura.lua"_s, "y"); });
        const QString closed = FailureOf([] { WriteFile(u"C:\\cerrada\\nuevo.lua"_s, "y"); });
        // An old file in such a folder is written in place.
        const QString old = FailureOf([] { WriteFile(u"C:\\cerrada\\a.lua"_s, "y"); });
        // It comes back whole if it can't: no room for more, or a write that breaks off.
        const SizeLimit limit(4096);
        const QString noRoom =
            FailureOf([] { WriteFile(u"C:\\cerrada\\corto.lua"_s, QByteArray(5000, 'n')); });
        const QString brokenOff =
            FailureOf([] { WriteFile(u"C:\\cerrada\\largo.lua"_s, QByteArray(6000, 'n')); });
        const bool told = !noRoom.isEmpty() && !brokenOff.isEmpty() &&
                          readOnly.contains(u"no tienes permiso") &&
                          closed.contains(u"no tienes permiso") && old.isEmpty();
        ::_exit(changed && told ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(home.Get("solo lectura.lua"), "x");
    EXPECT_EQ(home.Get("cerrada/a.lua"), "y");
    EXPECT_EQ(home.Get("cerrada/corto.lua"), "corto");
    EXPECT_EQ(home.Get("cerrada/largo.lua"), QByteArray(8192, 'v'));
    fs::permissions(home.Root() / "cerrada", fs::perms(0755));
}
