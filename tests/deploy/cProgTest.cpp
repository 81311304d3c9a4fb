// SPDX-License-Identifier: GPL-3.0-or-later
#include "deploy/cProg.h"
#include "deploy/Module2.h"

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using deploy::cProg;

namespace {

class cProgTest : public testing::Test {
protected:
    cProgTest() {
        bar.resize(400, 40); // 6000 twips
        bar.show();
        QObject::connect(&bar, &cProg::PropertyChanged, [this](const QString& n) { told += n; });
    }
    QRgb At(int x, int y) { return bar.grab().toImage().pixel(x, y) & 0xFFFFFF; }

    cProg bar;
    QString told;
};

} // namespace

TEST_F(cProgTest, ShowsItsValue) {
    bar.Value(50);
    EXPECT_EQ(bar.BarWidth(), 3000);
    EXPECT_EQ(bar.LabelText(), u"50%"_s);
    bar.Value(0);
    EXPECT_EQ(bar.BarWidth(), 0);
    EXPECT_EQ(At(1, 20), 0x336699U);
    bar.resize(401, 30); // 6015 twips: halves go to the even neighbour
    EXPECT_EQ(bar.BarWidth(), 6015);
    bar.Value(10);
    EXPECT_EQ(bar.BarWidth(), 602);
    bar.Value(30);
    EXPECT_EQ(bar.BarWidth(), 1804);
    bar.Value(30000); // a number of 16 bits, as the width is
    EXPECT_EQ(bar.BarWidth(), 32767);
    bar.Value(30);
    EXPECT_EQ(told, u"Value"_s.repeated(6));
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&bar);
    EXPECT_EQ(spoken->role(), QAccessible::ProgressBar);
    QAccessibleValueInterface* value = spoken->valueInterface();
    EXPECT_EQ(value->currentValue().toInt(), 30);
    EXPECT_EQ(value->minimumValue().toInt(), 0);
    EXPECT_EQ(value->maximumValue().toInt(), 100);
}

TEST_F(cProgTest, PalettesColorTheShapesAndTheText) {
    using Colors = std::array<QRgb, 5>; // background, its border, bar, its border, text
    constexpr Colors green = {0xC0FFC0, 0x008000, 0x00C000, 0x008000, 0x008000};
    constexpr Colors blue = {0x336699, 0x0081C8, 0x0081C8, 0x0081C8, 0xFFFFFF};
    bar.Value(50);
    for (const auto& [number, colors] :
         {std::pair{0, blue}, std::pair{1, green}, std::pair{3, green}, std::pair{2, blue}}) {
        bar.PaletteColor(number);
        const QImage seen = bar.grab().toImage();
        QRect text; // around the pixels of its colour in the background
        for (int x = 210; x < 395; ++x) {
            for (int y = 2; y < 38; ++y) {
                if ((seen.pixel(x, y) & 0xFFFFFF) == colors[4])
                    text |= QRect(x, y, 1, 1);
            }
        }
        EXPECT_NEAR(text.right(), 390, 2); // 8 pixels from the edge
        EXPECT_NEAR(text.center().y(), 20, 2);
        constexpr std::array<QPoint, 4> places = {QPoint(210, 20), QPoint(399, 39), QPoint(100, 20),
                                                  QPoint(199, 39)};
        for (size_t i = 0; i < places.size(); ++i)
            EXPECT_EQ(seen.pixel(places[i]) & 0xFFFFFF, colors[i]) << number << ' ' << i;
    }
}

TEST_F(cProgTest, TheHostKeepsItsProperties) {
    platform::PropertyBag bag;
    bar.Value(16);
    bar.PaletteColor(2);
    const QImage smaller = bar.grab().toImage();
    bar.Font(QFont(u"x"_s, 20));
    EXPECT_NE(bar.grab().toImage(), smaller);
    EXPECT_EQ(told, u"ValuePaletteColorFont"_s);
    bar.WriteProperties(bag);
    cProg other;
    EXPECT_EQ(other.Value(), 15);
    EXPECT_EQ(other.PaletteColor(), 1);
    const QFont hosts = other.font();
    other.resize(400, 40);
    other.ReadProperties(bag);
    EXPECT_EQ(other.Value(), 16);
    EXPECT_EQ(other.BarWidth(), 960);
    EXPECT_EQ(other.PaletteColor(), 2);
    EXPECT_EQ(other.Font(), bar.Font());
    other.ReadProperties({});
    EXPECT_EQ(other.Value(), 15);
    EXPECT_EQ(other.PaletteColor(), 1);
    EXPECT_EQ(other.grab().toImage().pixel(210, 20) & 0xFFFFFF, 0xC0FFC0U);
    EXPECT_EQ(other.Font(), hosts);
}

TEST_F(cProgTest, ProgressIsCutOffToAWholePercentage) {
    EXPECT_EQ(Module2::CopyProgress(3, 2, bar), 0);
    EXPECT_EQ(bar.Value(), 66);
    Module2::CopyProgress(qint64{1} << 40, (qint64{1} << 40) - 1, bar);
    EXPECT_EQ(bar.Value(), 99);
    Module2::CopyProgress(0, 0, bar);
    EXPECT_EQ(bar.Value(), 100);
}
