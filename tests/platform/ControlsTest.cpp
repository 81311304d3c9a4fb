// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/Failure.h"
#include "platform/base/Twips.h"
#include "platform/controls/DirListBox.h"
#include "platform/controls/DriveListBox.h"
#include "platform/controls/FileListBox.h"
#include "platform/controls/ImageList.h"
#include "platform/controls/Line.h"
#include "platform/controls/ListView.h"
#include "platform/controls/PictureBox.h"
#include "platform/files/Drives.h"
#include "platform/files/Paths.h"
#include "support/TestHome.h"

#include <QAbstractItemView>
#include <QSignalSpy>
#include <QTest>
#include <array>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <utility>

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

constexpr QRgb kBack = 0x102030;

class PictureBoxTest : public testing::Test {
protected:
    PictureBoxTest() {
        QPalette palette;
        palette.setColor(QPalette::Window, QColor::fromRgb(kBack));
        box.setPalette(palette);
        box.Width(ToTwips(4));
        box.Height(ToTwips(3));
    }
    // Pixels of 1, 2, 3 and so on, `width` to a row, as many rows as there is room for.
    static png::Bitmap Numbered(int width, int height) {
        png::Bytes bits(static_cast<size_t>(4 * width * height));
        for (size_t i = 0; i < bits.size(); ++i)
            bits[i] = static_cast<uint8_t>(i % 4 == 0 ? i / 4 + 1 : 0);
        png::BitmapInfoHeader header;
        header.Width = width;
        header.Height = -height;
        header.BitCount = 32;
        return {header, {}, std::move(bits)};
    }
    // What GetDIBits reads of 4 x 3 pixels, as numbers and points for the background.
    std::string Seen(int x = 0, int y = 0) {
        std::array<uint8_t, 36> bits{}; // the lowest row comes first
        EXPECT_TRUE(box.GetDIBits(x, y, 4, 3, bits));
        const QImage read = QImage(bits.data(), 4, 3, 12, QImage::Format_BGR888).mirrored();
        std::string seen;
        for (int i = 0; i < 12; ++i) {
            const QRgb pixel = read.pixel(i % 4, i / 4) & RGB_MASK;
            seen += pixel == kBack ? '.' : static_cast<char>('0' + pixel);
            seen += i % 4 == 3 ? " " : "";
        }
        return seen;
    }
    PictureBox box;
};

} // namespace

TEST(ListViewTest, TellsItsColumnsAndOpensTheChosenRow) {
    QPixmap red(16, 16);
    red.fill(Qt::red);
    ImageList icons;
    icons.AddImage(u"a"_s, red);
    icons.AddImage(u"a"_s, QIcon()); // the first one stays
    ListView list;
    list.resize(500, 300);
    list.show();
    list.ColumnHeaderIcons(&icons);
    const std::pair<ColumnHeader, int> headers[] = {
        {{u"Nombre"_s, 1500, Qt::AlignLeft, u"a"_s}, HDF_STRING | HDF_IMAGE},
        {{u"Fecha"_s, 750, Qt::AlignHCenter}, HDF_STRING | HDF_CENTER}};
    for (int i = 0; const auto& [header, format] : headers) {
        list.AddColumnHeader(header);
        EXPECT_EQ(list.HeaderItem(i)->fmt, format);
        EXPECT_EQ(list.HeaderItem(i++)->image.isNull(), header.icon.isEmpty());
    }
    EXPECT_FALSE(list.HeaderItem(2) || list.HeaderItem(-1));
    for (const QString& name : {u"uno"_s, u"a\uF03Ab"_s, u"tres"_s})
        list.AddItem({name, {}, u"a"_s, {}});
    EXPECT_EQ(list.Text(2, 0) + list.Text(3, 1), u"a:b"_s);
    std::vector<int> opened;
    list.OnDblClick([&] { opened.push_back(list.SelectedIndex()); });
    for (const auto display : {ListDisplay::List, ListDisplay::Report}) {
        list.View(display);
        auto* view = qobject_cast<QAbstractItemView*>(list.focusProxy());
        view->clearSelection();
        QTest::keyClick(view, Qt::Key_Down); // the first arrow only chooses
        QTest::keyClick(view, Qt::Key_Return);
        const auto at = [&](int row) {
            return view->visualRect(view->model()->index(row, 0)).center();
        };
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at(2));
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at(2));
        QTest::mouseDClick(view->viewport(), Qt::RightButton, {}, at(0));
        EXPECT_EQ(std::exchange(opened, {}), (std::vector{1, 3})) << int(display);
    }
    list.ClearItems();
    EXPECT_EQ(list.Count() + list.SelectedIndex(), 0);
}

TEST(FileListBoxTest, ListsTheMatchingFilesAndTellsEachChoice) {
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
    for (const QString& nowhere : {u"Q:\\"_s, u"C:\\no"_s, u"C:\\A.png"_s, QString()}) {
        files.Path(nowhere);
        EXPECT_EQ(files.count(), 0);
    }
    EXPECT_EQ(clicks.count(), 4);
}

TEST(DirListBoxTest, ShowsTheWayToAFolderAndWhatIsInIt) {
    const support::TestHome home;
    for (const char* name : {"a/dos/x", "a/Uno/x", "a/archivo"})
        home.Put(name, "");
    DirListBox folders;
    folders.resize(200, 200);
    folders.show();
    folders.Path(u"C:\\a"_s);
    const auto texts = [&] {
        QStringList list;
        for (QTreeWidgetItemIterator it(&folders); *it; ++it)
            list.append((*it)->text(0));
        return list.join(u' ');
    };
    EXPECT_EQ(texts(), u"C:\\ a dos Uno"_s);
    const QSignalSpy changes(&folders, &DirListBox::Change);
    const QTreeWidgetItem* uno = folders.findItems(u"Uno"_s, Qt::MatchRecursive).value(0);
    const QPoint last = folders.visualItemRect(uno).center();
    QTest::mouseClick(folders.viewport(), Qt::LeftButton, {}, last);
    EXPECT_EQ(changes.count(), 0);
    QTest::mouseDClick(folders.viewport(), Qt::LeftButton, {}, last);
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

TEST(DriveListBoxTest, TellsOnlyAnotherDrive) {
    const support::TestHome home;
    DriveListBox drives;
    drives.Drive(u"Z:"_s);
    const QSignalSpy changes(&drives, &DriveListBox::Change);
    drives.Refresh();
    for (const QString& drive : {u"Z:"_s, u"C:"_s}) {
        drives.Drive(drive);
        EXPECT_EQ(changes.count(), drive == u"C:");
    }
    for (const char* there : {"F=/tmp", "G=/"}) {
        const support::Override others(
            DrivesSeam(), std::make_unique<Drives>(home.Root(), QString::fromLatin1(there)));
        drives.Refresh();
        EXPECT_EQ(drives.Drive(), changes.count() == 1 ? u"C:"_s : QString());
        drives.Drive(u"F:"_s);
    }
    EXPECT_EQ(changes.count(), 3);
}

TEST_F(PictureBoxTest, WhatIsDrawnLiesOverThePictureUntilItBecomesIt) {
    QImage half(2, 2, QImage::Format_ARGB32);
    half.fill(QColor(255, 255, 255, 0));
    half.setPixelColor(1, 0, QColor::fromRgb(9));
    box.Picture(half);
    EXPECT_EQ(Seen(), ".9.. .... .... ");
    EXPECT_EQ(Seen(-1, 1), "0... 0... 0000 ");        // black outside
    box.StretchBlt(2, 1, 2, 9, Numbered(2, 1), 2, 9); // as far as there are pixels
    EXPECT_EQ(Seen(), ".9.. ..12 .... ");
    box.Cls();
    EXPECT_EQ(Seen(), ".9.. .... .... ");
    box.StretchBlt(-1, 0, 3, 2, Numbered(3, 2), 3, 2);
    box.PictureFromImage();
    box.Cls();
    EXPECT_EQ(Seen(), "23.. 56.. .... ");
    box.StretchBlt(0, 0, 4, 2, Numbered(2, 1), 2, 1); // twice as large
    EXPECT_EQ(Seen(), "1122 1122 .... ");
    box.Picture(QImage());
    EXPECT_EQ(Seen(), ".... .... .... ");
}

TEST_F(PictureBoxTest, SizesAreInTheUnitAsked) {
    box.BorderStyle(platform::BorderStyle::Single);
    EXPECT_EQ(box.ScaleWidth(), ToTwips(4 - 2)); // within the border
    box.ScaleMode(png::ScaleMode::Pixels);
    EXPECT_EQ(box.ScaleWidth(), 4 - 2);
    EXPECT_EQ(box.Width(), ToTwips(4));
    box.Parent()->ScaleMode(png::ScaleMode::Pixels);
    EXPECT_EQ(box.Height(), 3);
    box.Width(1e12);
    box.Height(1e12);
    EXPECT_EQ(box.Width(), QWIDGETSIZE_MAX);
    EXPECT_THROW(box.StretchBlt(0, 0, 1, 1, Numbered(1, 1), 1, 1), Failure);
    box.Width(-1);
    EXPECT_EQ(box.Width(), 0);
    std::array<uint8_t, 4> bits{};
    EXPECT_FALSE(box.GetDIBits(0, 0, 1, 1, bits));
}

TEST_F(PictureBoxTest, MouseAndKeysMoveAndClick) {
    box.Width(ToTwips(40));
    box.Height(ToTwips(30));
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(Qt::green);
    box.Picture(picture);
    box.BorderStyle(platform::BorderStyle::Single);
    box.show();
    const QImage seen = box.grab().toImage();
    EXPECT_EQ(seen.pixelColor(1, 1), Qt::green);
    EXPECT_EQ(seen.pixelColor(4, 4), Qt::green);
    EXPECT_EQ(seen.pixelColor(5, 4).rgb() & RGB_MASK, kBack);
    Line line(&box);
    line.X2(ToTwips(40));
    line.show();
    EXPECT_EQ(box.childAt(7, 1), nullptr); // the mouse goes through it
    QString told;
    const auto note = [&](float x, float y) { told += u" %1,%2"_s.arg(x).arg(y); };
    QObject::connect(&box, &PictureBox::MouseMove, &box, note);
    QObject::connect(&box, &PictureBox::Click, &box, [&](float x, float y) {
        told += u" clic"_s;
        note(x, y);
    });
    box.PointAt(20, 40);
    for (const char* keys : {"Right, Shift+Down, Shift+Left, Up", "Shift+Right, Space"})
        QTest::keySequence(&box, QKeySequence(QString::fromLatin1(keys)));
    QTest::mouseMove(&box, {9, 3});
    QTest::mouseClick(&box, Qt::LeftButton, {}, {7, 3});
    QTest::mouseClick(&box, Qt::RightButton, {}, {7, 3});
    QTest::mousePress(&box, Qt::LeftButton, {}, {7, 3});
    QTest::mouseRelease(&box, Qt::LeftButton, {}, {70, 3});
    EXPECT_EQ(told.toStdString(), " 30,30 30,180 0,180 0,165 150,165 150,165 clic 150,165 120,30 "
                                  "90,30 clic 90,30 90,30 90,30");
}
