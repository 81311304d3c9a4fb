// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/CopyFile.h"
#include "platform/Failure.h"
#include "platform/FileSystemObject.h"
#include "support/TestHome.h"

#include <QTimer>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace platform;
namespace fs = std::filesystem;

namespace {

constexpr qint64 kMiB = 1 << 20;

class CopyFileTest : public testing::Test {
protected:
    // Copies "a" to "b" and notes the progress.
    bool Copy(const QString& from = u"C:\\a"_s) {
        calls.clear();
        return CopyFileExA(
            from, u"C:\\b"_s,
            [this](qint64 total, qint64 copied) {
                calls.emplace_back(total, copied);
                if (stopAt >= 0 && copied >= stopAt)
                    cancel = 1;
            },
            cancel);
    }
    // The text of the failure in which the work ends.
    static QString Told(const std::function<void()>& work) {
        try {
            work();
        } catch (const Failure& failure) {
            return failure.Text();
        }
        return {};
    }
    int Entries() const {
        return static_cast<int>(std::distance(fs::directory_iterator(home.Root()), {}));
    }

    support::TestHome home;
    std::vector<std::pair<qint64, qint64>> calls;
    qint64 stopAt = -1;
    int cancel = 0;
};

} // namespace

TEST_F(CopyFileTest, CopiesInStepsWhileEventsGoOn) {
    QByteArray bytes(3 * kMiB + 5, 'x');
    bytes[2 * kMiB] = '\0';
    home.Put("a", bytes);
    home.Put("b", "old");
    int turns = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++turns; });
    timer.start(0);
    EXPECT_TRUE(Copy());
    EXPECT_EQ(home.Get("b"), bytes);
    EXPECT_GT(turns, 0);
    ASSERT_EQ(calls.size(), 4U);
    EXPECT_EQ(calls.front(), std::pair(3 * kMiB + 5, kMiB));
    EXPECT_EQ(calls.back(), std::pair(3 * kMiB + 5, 3 * kMiB + 5));
    home.Put("a", "");
    EXPECT_TRUE(Copy());
    EXPECT_EQ(calls, (std::vector<std::pair<qint64, qint64>>{{0, 0}}));
    EXPECT_EQ(home.Get("b"), "");
    home.Put("a", QByteArray(kMiB, 'y'));
    EXPECT_TRUE(Copy());
    EXPECT_EQ(calls.size(), 1U);
    EXPECT_EQ(home.Get("b").size(), kMiB);
}

TEST_F(CopyFileTest, WhatIsStoppedOrFailsLeavesNothingBehind) {
    home.Put("a", QByteArray(3 * kMiB, 'x'));
    home.Put("b", "old");
    fs::create_directory(home.Root() / "carpeta");
    const int entries = Entries();
    stopAt = kMiB;
    EXPECT_FALSE(Copy());
    EXPECT_EQ(calls.size(), 1U);
    EXPECT_FALSE(Copy()); // the stop holds
    EXPECT_TRUE(calls.empty());
    cancel = 0;
    stopAt = 3 * kMiB; // too late for a step, but not for the target
    EXPECT_FALSE(Copy());
    cancel = 0;
    stopAt = -1;
    const auto failure = [&](const QString& from, const QString& to) {
        return Told([&] {
            CopyFileExA(
                from, to, [](qint64, qint64) {}, cancel);
        });
    };
    const QString source = u"No se puede copiar el archivo \"%1\": %2."_s;
    const QString target = u"No se puede guardar el archivo \"%1\": %2."_s;
    const QString memory = u"Z:\\proc\\self\\mem"_s; // can be opened, but not read
    const QString folder = u"C:\\carpeta"_s;
    const QString nowhere = u"C:\\no\\b"_s;
    EXPECT_EQ(failure(nowhere, u"C:\\b"_s), source.arg(nowhere, u"no existe"_s));
    EXPECT_EQ(failure(folder, u"C:\\b"_s), source.arg(folder, u"es una carpeta"_s));
    EXPECT_EQ(failure(memory, u"C:\\b"_s), source.arg(memory, u"el disco no responde bien"_s));
    EXPECT_EQ(failure(u"C:\\a"_s, nowhere), target.arg(nowhere, u"la carpeta no existe"_s));
    EXPECT_EQ(failure(u"C:\\a"_s, folder), target.arg(folder, u"es una carpeta"_s));
    EXPECT_THROW(Copy(QString()), Failure);
    EXPECT_EQ(home.Get("b"), "old");
    EXPECT_EQ(Entries(), entries);
}

TEST_F(CopyFileTest, AFolderGoesWithAllItHoldsButNoLinkIsFollowed) {
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
    EXPECT_THROW(fso.CreateFolder(u"C:\\p"_s), Failure);
    EXPECT_EQ(Told([&] { fso.CreateFolder(u"C:\\no\\hay"_s); }),
              u"No se puede crear la carpeta \"C:\\no\\hay\": falta la carpeta de encima."_s);
}
