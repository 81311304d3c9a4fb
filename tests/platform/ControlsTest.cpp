// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ImageList.h"
#include "platform/Line.h"
#include "platform/ListView.h"

#include <QHeaderView>
#include <QListView>
#include <QTest>
#include <gtest/gtest.h>

#include <utility>

using namespace Qt::StringLiterals;
using namespace platform;

TEST(ListView, TellsItsColumnsAndOpensTheChosenRow) {
    QPixmap red(16, 16);
    red.fill(Qt::red);
    ImageList icons;
    icons.AddImage(u"a"_s, red);
    icons.AddImage(u"a"_s, QIcon()); // the first one stays
    ListView list;
    list.resize(500, 300);
    list.show();
    const std::pair<ColumnHeader, int> headers[] = {
        {{u"Nombre"_s, 1500, Qt::AlignLeft, u"a"_s}, HDF_STRING | HDF_IMAGE},
        {{u"Tamaño"_s, 3000, Qt::AlignRight}, HDF_STRING | HDF_RIGHT},
        {{u"Fecha"_s, 750, Qt::AlignHCenter}, HDF_STRING | HDF_CENTER}};
    list.ColumnHeaderIcons(&icons);
    for (int i = 0; const auto& [header, format] : headers) {
        list.AddColumnHeader(header);
        EXPECT_EQ(list.HeaderItem(i)->fmt, format);
        EXPECT_EQ(list.HeaderItem(i)->text, header.text);
        EXPECT_EQ(list.HeaderItem(i)->image.isNull(), i != 0);
        EXPECT_EQ(list.Header()->sectionSize(i++), header.width / 15);
    }
    EXPECT_FALSE(list.HeaderItem(3) || list.HeaderItem(-1));
    for (const QString& name : {u"uno"_s, u"a\uF03Ab"_s, u"tres"_s})
        list.AddItem({name, {}, u"a"_s, {u"10"_s}});
    EXPECT_EQ(list.Count(), 3);
    EXPECT_EQ(list.Text(2, 0), u"a:b"_s);
    EXPECT_EQ(list.Text(3, 1) + list.Text(3, 2), u"10"_s);
    const QAbstractItemModel& model = *list.findChild<QListView*>()->model();
    std::vector<int> opened;
    list.OnDblClick([&] { opened.push_back(list.SelectedIndex()); });
    for (const auto display : {ListDisplay::List, ListDisplay::Report}) {
        list.View(display);
        EXPECT_EQ(list.View(), display);
        auto* view = qobject_cast<QAbstractItemView*>(list.focusProxy());
        view->clearSelection();
        QTest::keyClick(view, Qt::Key_Down); // the first arrow only chooses
        QTest::keyClick(view, Qt::Key_Return);
        const auto at = [&](int row) { return view->visualRect(model.index(row, 0)).center(); };
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at(2));
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at(2));
        QTest::mouseDClick(view->viewport(), Qt::RightButton, {}, at(0));
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, {400, 250});
        EXPECT_EQ(std::exchange(opened, {}), (std::vector{1, 3})) << int(display);
    }
    list.ClearItems();
    EXPECT_EQ(list.Count() + list.SelectedIndex(), 0);
}

TEST(Line, IsBlackAndWhiteInTurn) {
    QWidget box;
    box.resize(40, 40);
    Line line(&box);
    line.X1(25 * 15);
    line.Y1(7 * 15);
    line.X2(10.9F * 15);
    line.Y2(7 * 15);
    EXPECT_EQ(line.geometry(), QRect(10, 7, 16, 1));
    const QImage drawn = box.grab().toImage();
    for (const auto& [x, color] : {std::pair(25, 0U), {21, 0xFFFFFFU}, {17, 0U}, {13, 0xFFFFFFU}})
        EXPECT_EQ(drawn.pixel(x, 7) & 0xFFFFFF, color) << x;
    line.Y2(9 * 15);
    EXPECT_EQ(line.geometry(), QRect(10, 7, 16, 3));
}
