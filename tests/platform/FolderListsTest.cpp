// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DirListBox.h"
#include "platform/DriveListBox.h"
#include "platform/Drives.h"
#include "platform/FileListBox.h"
#include "platform/Paths.h"
#include "support/TestHome.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace platform;

TEST(FileListBox, ListsTheMatchingFilesAndTellsEachChoice) {
    const support::TestHome home;
    for (const char* name : {"b.PNG", "A.png", "c.jpg", ".d.png", "lat\xED.png"})
        home.Put(name, "x");
    ::mkfifo((home.Root() / "f.png").c_str(), 0600); // would block its reader
    std::filesystem::create_directory(home.Root() / "g.png");
    FileListBox files;
    files.Pattern(u"*.png"_s);
    ASSERT_EQ(files.count(), 3);
    EXPECT_EQ(files.item(2)->text(), u"lat\uFFFD.png"_s);
    files.show();
    const QSignalSpy clicks(&files, &FileListBox::Click);
    EXPECT_EQ(files.FileName(), QString());
    QTest::keyClick(&files, Qt::Key_Down);
    EXPECT_EQ(files.FileName(), u"A.png"_s);
    QTest::keyClick(&files, Qt::Key_End);
    EXPECT_EQ(ToNative(files.Path() + u'\\' + files.FileName()), home.Root() / "lat\xED.png");
    const QPoint second = files.visualItemRect(files.item(1)).center();
    QTest::mouseClick(files.viewport(), Qt::LeftButton, {}, second);
    QTest::mouseClick(files.viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(files.FileName(), u"b.PNG"_s);
    EXPECT_EQ(clicks.count(), 4);
    std::filesystem::remove(home.Root() / "lat\xED.png"); // the toolkit can't
    for (const QString& nowhere : {u"Q:\\"_s, u"C:\\no"_s, u"C:\\A.png"_s, QString()}) {
        files.Path(nowhere);
        EXPECT_EQ(files.count(), 0);
    }
    EXPECT_EQ(clicks.count(), 4);
}

TEST(DirListBox, ShowsTheWayToAFolderAndWhatIsInIt) {
    const support::TestHome home;
    home.Put("a/dos/x", "");
    home.Put("a/Uno/x", "");
    home.Put("a/archivo", "");
    DirListBox folders;
    folders.resize(200, 200);
    folders.show();
    folders.Path(u"C:\\a"_s);
    const auto texts = [&] {
        QStringList list;
        for (const QTreeWidgetItem* item :
             folders.findItems(QString(), Qt::MatchContains | Qt::MatchRecursive))
            list.append(item->text(0));
        return list.join(u' ');
    };
    EXPECT_EQ(texts(), u"C:\\ a dos Uno"_s);
    const QSignalSpy changes(&folders, &DirListBox::Change);
    const auto at = [&](const QString& name) {
        return folders
            .visualItemRect(folders.findItems(name, Qt::MatchExactly | Qt::MatchRecursive).value(0))
            .center();
    };
    QTest::mouseClick(folders.viewport(), Qt::LeftButton, {}, at(u"Uno"_s));
    EXPECT_EQ(changes.count(), 0);
    QTest::mouseDClick(folders.viewport(), Qt::LeftButton, {}, at(u"Uno"_s));
    EXPECT_EQ(folders.Path(), u"C:\\a\\Uno"_s);
    EXPECT_EQ(texts(), u"C:\\ a Uno"_s);
    QTest::keyClick(&folders, Qt::Key_Home);
    QTest::keyClick(&folders, Qt::Key_Return);
    EXPECT_EQ(folders.Path(), u"C:\\"_s);
    EXPECT_EQ(texts(), u"C:\\ a programa"_s);
    EXPECT_EQ(changes.count(), 2);
    folders.Path(u"Q:"_s);
    EXPECT_EQ(texts(), u"Q:\\"_s);
}

TEST(DriveListBox, TellsOnlyAnotherDrive) {
    const support::TestHome home;
    DriveListBox drives;
    drives.Drive(u"Z:"_s);
    const QSignalSpy changes(&drives, &DriveListBox::Change);
    drives.Refresh();
    drives.Drive(u"Z:"_s);
    EXPECT_EQ(changes.count(), 0);
    drives.Drive(u"C:"_s);
    EXPECT_EQ(changes.count(), 1);
    for (const char* there : {"F=/tmp", "G=/"}) {
        qputenv("QUILLMARK_DRIVES", there);
        ResetCurrentDrives();
        drives.Refresh();
        EXPECT_EQ(drives.Drive(), changes.count() == 1 ? u"C:"_s : QString());
        drives.Drive(u"F:"_s);
    }
    EXPECT_EQ(changes.count(), 3);
    qputenv("QUILLMARK_DRIVES", "");
}
