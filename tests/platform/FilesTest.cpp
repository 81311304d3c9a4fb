// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/Files.h"
#include "platform/base/Failure.h"
#include "platform/files/CopyFile.h"
#include "platform/files/FileSystemObject.h"
#include "platform/files/FindFile.h"
#include "support/TestHome.h"

#include <QTimer>
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

constexpr qint64 kMiB = 1 << 20;

// Runs the operation and answers the text of its failure.
QString FailureOf(const std::function<void()>& operation) {
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
    // Copies a file and notes the progress.
    bool Copy(const QString& from, const QString& to = u"C:\\b"_s) {
        calls.clear();
        const auto note = [this](qint64 total, qint64 copied) {
            calls.emplace_back(total, copied);
            if (copied >= stopAt)
                cancel = 1;
        };
        return CopyFileExA(from, to, note, cancel);
    }
    int Entries() const {
        return static_cast<int>(std::distance(fs::directory_iterator(home.Root()), {}));
    }

    support::TestHome home;
    const QString a = u"C:\\a.lua"_s;
    std::vector<std::pair<qint64, qint64>> calls;
    qint64 stopAt = kMiB * kMiB;
    int cancel = 0;
};

QString asked; // of the disk, in order

// Does the work while no file of the process can grow above 4096 bytes.
void WithLittleRoom(const std::function<void()>& work) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit limit{4096, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    work();
    ::setrlimit(RLIMIT_FSIZE, &before);
}

} // namespace

extern "C" int fsync(int file) {
    struct stat status {};
    ::fstat(file, &status);
    asked += S_ISDIR(status.st_mode) ? u" carpeta"_s : u" archivo"_s;
    return static_cast<int>(::syscall(SYS_fsync, file));
}

extern "C" int rename(const char* from, const char* to) noexcept {
    asked += u" nombre"_s;
    return static_cast<int>(::syscall(SYS_rename, from, to));
}

TEST_F(FilesTest, WhatAKilledCopyLeftGoesWithTheNextSave) {
    const pid_t gone = ::fork();
    if (gone == 0)
        ::_exit(0);
    ::waitpid(gone, nullptr, 0);
    const auto leftOf = [](pid_t process) {
        return ".quillmark-" + std::to_string(process) + "-0.tmp";
    };
    const std::string foreign = ".quillmark-" + std::to_string(gone) + "a.tmp";
    for (const std::string& name : {leftOf(gone), leftOf(::getppid()), foreign})
        home.Put(name, "x");
    WriteFile(a, "uno");
    EXPECT_FALSE(fs::exists(home.Root() / leftOf(gone)));
    EXPECT_TRUE(fs::exists(home.Root() / leftOf(::getppid()))); // still being written
    EXPECT_TRUE(fs::exists(home.Root() / foreign));
}

TEST_F(FilesTest, WhatIsDoneIsOnTheDisk) {
    home.Put("b.lua", "x");
    fs::create_hard_link(home.Root() / "b.lua", home.Root() / "c.lua");
    const std::pair<std::function<void()>, const char*> works[] = {
        {[&] { WriteFile(a, "uno"); }, " archivo nombre carpeta"},
        {[&] { WriteFile(a, "dos"); }, " archivo nombre carpeta"},
        {[] { ReplaceFile(u"C:\\nuevo.lua"_s, "x"); }, " archivo nombre carpeta"},
        {[&] { ReplaceFile(a, "tres"); }, " archivo nombre carpeta"},
        {[&] { Copy(a); }, " archivo nombre carpeta"},
        {[] { WriteFile(u"C:\\b.lua"_s, "y"); }, " archivo archivo"}, // two names: in place
        {[] { FileSystemObject().CreateFolder(u"C:\\e"_s); }, " carpeta"},
        {[] { FileSystemObject().DeleteFolder(u"C:\\e"_s); }, " carpeta"},
    };
    for (int step = 0; const auto& [work, expected] : works) {
        asked.clear();
        work();
        EXPECT_EQ(asked.toStdString(), expected) << "step " << step++;
    }
    fs::create_symlink("nada", home.Root() / "z");
    const auto everything = FindFiles(u"C:\\"_s, 99);
    for (const FoundFile& found : everything.value())
        EXPECT_GT(found.lastWriteTime, 0) << found.name.toStdString(); // of a link itself, too
    EXPECT_EQ(ReadFileHead(a, 2) + ReadFileHead(a, 9), "trtres");
    fs::permissions(home.Root() / "a.lua", fs::perms(0751));
    for (const QByteArray& bytes : {QByteArray("dos\0\xFF", 5), QByteArray()}) {
        WriteFile(a, bytes);
        EXPECT_EQ(ReadFile(a), bytes);
        EXPECT_EQ(fs::status(home.Root() / "a.lua").permissions(), fs::perms(0751));
    }
    EXPECT_GT(ReadFile(u"Z:\\proc\\self\\status"_s).size(), 100); // made as it is read
}

TEST_F(FilesTest, ACopyIsMadeInStepsWhileEventsGoOn) {
    QByteArray bytes(3 * kMiB + 5, 'x');
    bytes[2 * kMiB] = '\0';
    home.Put("b", "old");
    int turns = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++turns; });
    timer.start(0);
    for (const auto& [size, steps] : {std::pair(3 * kMiB + 5, 4U), {0, 1U}, {kMiB, 1U}}) {
        home.Put("a.lua", bytes.first(size));
        EXPECT_TRUE(Copy(a));
        EXPECT_EQ(home.Get("b"), bytes.first(size));
        ASSERT_EQ(calls.size(), steps) << size;
        EXPECT_EQ(calls.front(), std::pair(size, std::min(size, kMiB)));
        EXPECT_EQ(calls.back(), std::pair(size, size));
    }
    EXPECT_GT(turns, 0);
}

TEST_F(FilesTest, ACopyThatStopsOrFailsLeavesNothingBehind) {
    home.Put("a.lua", QByteArray(3 * kMiB, 'x'));
    home.Put("b", "old");
    fs::create_directory(home.Root() / "carpeta");
    const int entries = Entries();
    for (const auto& [at, steps] : {std::pair(kMiB, 1U), {3 * kMiB, 3U}}) {
        cancel = 0;
        stopAt = at; // even if there is only the name to be taken
        EXPECT_FALSE(Copy(a));
        EXPECT_EQ(calls.size(), steps);
    }
    EXPECT_FALSE(Copy(a)); // the stop holds
    EXPECT_TRUE(calls.empty());
    cancel = 0;
    stopAt *= 2;
    const QString text = u"No se puede %1 el archivo \"%2\": %3."_s;
    const QString memory = u"Z:\\proc\\self\\mem"_s; // can be opened, but not read
    EXPECT_EQ(FailureOf([&] { Copy(memory); }),
              text.arg(u"copiar"_s, memory, u"el disco no responde bien"_s));
    for (const auto& [path, reason] : {std::pair(u"C:\\carpeta"_s, u"es una carpeta"_s),
                                       {u"C:\\no\\b"_s, u"la carpeta no existe"_s}})
        EXPECT_EQ(FailureOf([this, to = path] { Copy(a, to); }),
                  text.arg(u"guardar"_s, path, reason));
    EXPECT_THROW(Copy(QString()), Failure);
    EXPECT_EQ(home.Get("b"), "old");
    EXPECT_EQ(Entries(), entries);
}

TEST_F(FilesTest, AFolderGoesWithAllItHoldsButNoLinkIsFollowed) {
    home.Put("ajeno/mío", "x");
    home.Put("p/sub/solo", "x");
    fs::permissions(home.Root() / "p/sub/solo", fs::perms::owner_read);
    fs::permissions(home.Root() / "p/sub", fs::perms::none);
    fs::create_directory_symlink(home.Root() / "ajeno", home.Root() / "p/enlace");
    fs::create_directory_symlink(home.Root() / "ajeno", home.Root() / "q");
    const FileSystemObject fso;
    EXPECT_TRUE(fso.FolderExists(u"C:\\q"_s));
    EXPECT_FALSE(fso.FolderExists(u"C:\\ajeno\\mío"_s));
    fso.DeleteFolder(u"C:\\p"_s, true);
    fso.DeleteFolder(u"C:\\q"_s, true);
    EXPECT_FALSE(fs::exists(fs::symlink_status(home.Root() / "q")));
    EXPECT_FALSE(fso.FolderExists(u"C:\\p"_s));
    EXPECT_EQ(home.Get("ajeno/mío"), "x");
    fso.CreateFolder(u"C:\\p"_s);
    EXPECT_FALSE(FailureOf([&] { fso.CreateFolder(u"C:\\p"_s); }).isEmpty());
    EXPECT_EQ(FailureOf([&] { fso.CreateFolder(u"C:\\no\\hay"_s); }),
              u"No se puede crear la carpeta \"C:\\no\\hay\": falta la carpeta de encima."_s);
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

TEST_F(FilesTest, LinksStayLinksAndAFailedWriteLeavesTheOldFile) {
    home.Put("real.lua", "viejo");
    fs::create_symlink("real.lua", home.Root() / "enlace.lua");
    fs::create_symlink("futuro.lua", home.Root() / "colgado.lua");
    fs::create_hard_link(home.Root() / "real.lua", home.Root() / "duro.lua");
    for (const char* bytes : {"nuevo y largo", "c"}) {
        WriteFile(u"C:\\enlace.lua"_s, bytes);
        EXPECT_EQ(home.Get("real.lua"), bytes);
        EXPECT_EQ(home.Get("duro.lua"), bytes);
    }
    WriteFile(u"C:\\colgado.lua"_s, "x");
    EXPECT_EQ(home.Get("futuro.lua"), "x");
    for (const char* link : {"enlace.lua", "colgado.lua"})
        EXPECT_TRUE(fs::is_symlink(home.Root() / link)) << link;
    const int entries = Entries();
    const QString futuro = u"C:\\futuro.lua"_s;
    WithLittleRoom([&] {
        for (const QString& path : {futuro, u"C:\\duro.lua"_s, u"C:\\nuevo.lua"_s}) {
            for (const auto write : {WriteFile, ReplaceFile})
                EXPECT_TRUE(FailureOf([&] { write(path, QByteArray(10000, 'n')); }).contains(path));
        }
    });
    EXPECT_EQ(home.Get("futuro.lua") + home.Get("real.lua"), "xc");
    EXPECT_EQ(Entries(), entries);
    fs::permissions(home.Root() / "futuro.lua", fs::perms::owner_read);
    ReplaceFile(futuro, "nuevo");
    EXPECT_EQ(home.Get("futuro.lua"), "nuevo");
}

TEST_F(FilesTest, FailuresNameTheFileAndTheReason) {
    fs::create_directory(home.Root() / "carpeta");
    ::mkfifo((home.Root() / "tubo").c_str(), 0600);
    fs::create_symlink("bucle", home.Root() / "bucle");
    const std::tuple<QString, QString, QString> cases[] = {
        {u"C:\\nada\\a"_s, u"no existe"_s, u"la carpeta no existe"_s},
        {u"C:\\carpeta"_s, u"es una carpeta"_s, u"es una carpeta"_s},
        {u"C:\\tubo"_s, u"no es un archivo normal"_s, u"no es un archivo normal"_s},
        {u"C:\\bucle"_s, u"hay un ciclo de enlaces"_s, u"hay un ciclo de enlaces"_s}};
    const QString text = u"No se puede %1 el archivo \"%2\": %3."_s;
    for (const auto& [path, opening, saving] : cases) {
        EXPECT_EQ(FailureOf(std::bind(ReadFile, path)), text.arg(u"abrir"_s, path, opening));
        EXPECT_EQ(FailureOf([this, from = path] { Copy(from, a); }),
                  text.arg(u"copiar"_s, path, opening));
        EXPECT_EQ(FailureOf(std::bind(WriteFile, path, "x")), text.arg(u"guardar"_s, path, saving));
    }
    EXPECT_TRUE(FailureOf([] { WriteFile(QString(300, u'x'), {}); }).contains(u"demasiado largo"));
}

TEST_F(FilesTest, WithoutPermissionTheOldFileStays) {
    const uid_t own = ::geteuid();
    const uid_t user = own == 0 ? 65534 : own; // root may write everything
    ASSERT_EQ(::chown(home.Root().c_str(), user, static_cast<gid_t>(-1)), 0);
    ASSERT_EQ(::setresuid(user, user, own), 0);
    const QByteArray large(8192, 'v');
    for (const char* name : {"solo lectura.lua", "cerrada/a.lua", "cerrada/largo.lua"})
        home.Put(name, large);
    home.Put("cerrada/corto.lua", "corto");
    fs::permissions(home.Root() / "solo lectura.lua", fs::perms(0444));
    fs::permissions(home.Root() / "cerrada", fs::perms(0555));
    const auto write = [](const QString& path, int size) {
        return FailureOf([&] { WriteFile(path, QByteArray(size, 'n')); });
    };
    for (const QString& path : {u"C:\\solo lectura.lua"_s, u"C:\\cerrada\\nuevo.lua"_s})
        EXPECT_TRUE(write(path, 1).contains(u"no tienes permiso"));
    // An old file in such a folder is written in place, and comes back whole if it can't: no room
    // for more, or a write that breaks off.
    EXPECT_EQ(write(u"C:\\cerrada\\a.lua"_s, 1), QString());
    WithLittleRoom([&] {
        EXPECT_NE(write(u"C:\\cerrada\\corto.lua"_s, 5000), QString());
        EXPECT_NE(write(u"C:\\cerrada\\largo.lua"_s, 6000), QString());
    });
    EXPECT_EQ(home.Get("cerrada/a.lua") + home.Get("cerrada/corto.lua"), "ncorto");
    for (const char* name : {"solo lectura.lua", "cerrada/largo.lua"})
        EXPECT_EQ(home.Get(name), large);
    fs::permissions(home.Root() / "cerrada", fs::perms(0755));
    ASSERT_EQ(::setresuid(own, own, own), 0);
}
