// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/cSubclassListView.h"
#include "platform/ListView.h"
#include "support/ScriptedDialogs.h"

#include <QHeaderView>
#include <QPaintEvent>
#include <QScrollBar>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace explorer;

namespace {

// Counts what is painted of a header.
struct Paints : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Paint)
            return false;
        ++count;
        area = static_cast<QPaintEvent*>(event)->rect();
        return false;
    }
    int count = 0;
    QRect area; // of the last one
};

class CSubclassListViewTest : public testing::Test {
protected:
    CSubclassListViewTest() {
        icons.AddImage(u"verde"_s, Filled(Qt::green));
        list.ColumnHeaderIcons(&icons);
        list.AddColumnHeader({u"Nombre"_s, 1500, Qt::AlignLeft, u"verde"_s});
        list.AddColumnHeader({QString(40, u'i'), 1500, Qt::AlignRight});
        list.AddColumnHeader({u"dos\0tres"_s, 1500, Qt::AlignHCenter});
        list.View(platform::ListDisplay::Report);
        list.resize(400, 100);
        list.show();
        skin.SubClassListView(platform::HandleOf(&list));
    }
    static QPixmap Filled(const QColor& color) {
        QPixmap pixmap(16, 16);
        pixmap.fill(color);
        return pixmap;
    }
    // Nine cells of 4 pixels, each of a red of its own.
    static QPixmap Skin() {
        QImage image(36, 30, QImage::Format_RGB32);
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                image.setPixelColor(x, y, QColor(x / 4 * 20, 0, 0));
        return QPixmap::fromImage(image);
    }
    // The red at the left end of each column, which is 60 under the mouse and 120 pressed.
    QList<int> Ends() {
        const QImage header = Viewport()->grab().toImage();
        return {Red(header, 1), Red(header, 101), Red(header, 201)};
    }
    static int Red(const QImage& image, int x) { return image.pixelColor(x, 2).red(); }
    QWidget* Viewport() { return list.Header()->viewport(); }
    void Move(int x, int y = 5) { QTest::mouseMove(Viewport(), {x, y}); }

    platform::ImageList icons;
    platform::ListView list;
    cSubclassListView skin;
};

} // namespace

TEST_F(CSubclassListViewTest, TheHeaderKeepsItsOwnPaintingWithoutASkin) {
    const QImage own = Viewport()->grab().toImage();
    const int height = list.Header()->height();
    skin.SkinPicture(Skin());
    EXPECT_EQ(list.Header()->height(), 30);
    EXPECT_NE(Viewport()->grab().toImage(), own);
    EXPECT_EQ(Ends(), (QList{0, 0, 0}));
    skin.SkinPicture(QPixmap());
    EXPECT_EQ(list.Header()->height(), height);
    EXPECT_EQ(Viewport()->grab().toImage(), own);
    support::ScriptedDialogs dialogs;
    dialogs.Expect(u"Invalid window handle"_s, platform::Answer::Ok);
    skin.SubClassListView(platform::HandleOf(Viewport())); // not a list
    EXPECT_EQ(skin.GetListviewColumn(platform::HandleOf(Viewport()), 0), QString());
}

TEST_F(CSubclassListViewTest, TheLooksFollowTheMouse) {
    skin.SkinPicture(Skin());
    Move(150);
    EXPECT_EQ(Ends(), (QList{0, 60, 0}));
    QTest::mousePress(Viewport(), Qt::LeftButton, {}, {150, 5});
    EXPECT_EQ(Ends(), (QList{0, 120, 0}));
    Move(152); // dragging
    EXPECT_EQ(Ends(), (QList{0, 0, 0}));
    QTest::mouseRelease(Viewport(), Qt::LeftButton, {}, {152, 5});
    EXPECT_EQ(Ends(), (QList{0, 60, 0}));
    Move(350); // right of the last column
    EXPECT_EQ(Ends(), (QList{0, 0, 0}));
    QTest::qWait(1);
    Paints paints;
    Viewport()->installEventFilter(&paints);
    for (const int x : {20, 40, 60, 120, 140}) {
        Move(x);
        QTest::qWait(1);
    }
    EXPECT_EQ(paints.count, 2);
    Move(150, 60); // on the rows
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count == 3; }));
    EXPECT_EQ(Ends(), (QList{0, 0, 0}));
    Move(20);
    EXPECT_EQ(Ends(), (QList{60, 0, 0}));
    platform::ListView other; // the timer goes with its header
    other.View(platform::ListDisplay::Report);
    other.move(500, 0);
    other.show();
    skin.SubClassListView(platform::HandleOf(&other));
    QTest::qWait(30);
    Paints others;
    other.Header()->viewport()->installEventFilter(&others);
    QTest::qWait(60);
    EXPECT_EQ(others.count, 0);
}

TEST_F(CSubclassListViewTest, ATitleIsCutAndWhatChangesShowsAtOnce) {
    const platform::HWnd window = platform::HandleOf(&list);
    EXPECT_EQ(skin.GetListviewColumn(window, 1), QString(32, u'i'));
    EXPECT_EQ(skin.GetListviewColumn(window, 2), u"dos"_s);
    EXPECT_EQ(skin.GetListviewColumn(window, 3), QString());
    skin.SkinPicture(Skin());
    EXPECT_EQ(Viewport()->grab().toImage().pixelColor(15, 15), QColor(Qt::green));
    QTest::qWait(1);
    Paints paints;
    Viewport()->installEventFilter(&paints);
    const auto shows = [&](auto set) {
        paints.count = 0;
        set();
        QTest::qWait(1);
        return paints.count == 1;
    };
    EXPECT_TRUE(shows([&] { skin.TextNormalColor(0x2FF8040); }));
    EXPECT_TRUE(shows([&] { skin.TextResalteColor(0x10203); }));
    EXPECT_TRUE(shows([&] { skin.IconAlingmentRight(true); }));
    EXPECT_TRUE(shows([&] { skin.HedersFontBlod(true); }));
    EXPECT_TRUE(shows([&] { skin.SkinPicture(Skin()); }));
    EXPECT_EQ(skin.TextNormalColor(), 0x2FF8040); // what is above three bytes is kept
    EXPECT_EQ(skin.TextResalteColor(), 0x10203);
    EXPECT_TRUE(skin.IconAlingmentRight() && skin.HedersFontBlod());
    list.resize(200, 100);
    QTest::qWait(1);
    list.findChild<QTreeView*>()->horizontalScrollBar()->setValue(60);
    QTest::qWait(1);
    EXPECT_EQ(paints.area, Viewport()->rect()); // the background doesn't scroll
    list.findChild<QTreeView*>()->horizontalScrollBar()->setValue(0);
    EXPECT_NE(Viewport()->grab().toImage().pixelColor(15, 15), QColor(Qt::green));
}
