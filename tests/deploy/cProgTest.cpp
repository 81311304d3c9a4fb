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
    EXPECT_EQ(At(100, 20), 0x0081C8U); // the bar over the background, to the very edges
    EXPECT_EQ(At(198, 39), 0x0081C8U);
    EXPECT_EQ(At(210, 20), 0x336699U);
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
    EXPECT_EQ(spoken->valueInterface()->currentValue().toInt(), 30);
}

TEST_F(cProgTest, PalettesAndWhatTheHostKeeps) {
    bar.Value(50);
    bar.PaletteColor(1);
    EXPECT_EQ(At(100, 20), 0x00C000U);
    EXPECT_EQ(At(210, 20), 0xC0FFC0U);
    EXPECT_EQ(At(210, 0), 0x008000U);
    bar.PaletteColor(0);
    EXPECT_EQ(At(100, 20), 0x00C000U);
    platform::PropertyBag bag;
    bar.WriteProperties(bag);
    cProg other;
    other.resize(400, 40);
    other.ReadProperties(bag);
    EXPECT_EQ(other.Value(), 50);
    EXPECT_EQ(other.BarWidth(), 3000);
    EXPECT_EQ(other.PaletteColor(), 0);
    EXPECT_EQ(other.Font(), bar.Font());
    other.ReadProperties({});
    EXPECT_EQ(other.Value(), 15);
    EXPECT_EQ(other.PaletteColor(), 1);
}

TEST_F(cProgTest, ProgressIsCutOffToAWholePercentage) {
    EXPECT_EQ(Module2::CopyProgress(3, 2, bar), 0);
    EXPECT_EQ(bar.Value(), 66);
    Module2::CopyProgress(qint64{1} << 40, (qint64{1} << 40) - 1, bar);
    EXPECT_EQ(bar.Value(), 99);
    Module2::CopyProgress(0, 0, bar);
    EXPECT_EQ(bar.Value(), 100);
}
