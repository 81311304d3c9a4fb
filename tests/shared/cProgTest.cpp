// SPDX-License-Identifier: GPL-3.0-or-later
#include "shared/cProg.h"

#include <QAccessible>
#include <QBitmap>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using shared::cProg;

namespace {

class cProgTest : public testing::Test {
protected:
    cProgTest() {
        bar.resize(400, 40); // 6000 twips
        bar.show();
        QObject::connect(&bar, &cProg::PropertyChanged, [this](const QString& n) { told += n; });
    }

    cProg bar;
    QString told;
};

} // namespace

TEST_F(cProgTest, ShowsItsValue) {
    const auto width = [&](int value) {
        bar.Value(value);
        return bar.AnchoBarra();
    };
    EXPECT_EQ(width(50), 3000);
    EXPECT_EQ(bar.Rotulo(), u"50%"_s);
    EXPECT_EQ(width(0), 0);
    EXPECT_EQ(QColor(bar.grab().toImage().pixel(1, 20)).name(), u"#336699"_s);
    bar.resize(401, 30); // 6015 twips: halves go to the even neighbour
    EXPECT_EQ(bar.AnchoBarra(), 6015);
    EXPECT_EQ(width(10), 602);
    EXPECT_EQ(width(30000), 32767); // a number of 16 bits
    EXPECT_EQ(width(30), 1804);
    EXPECT_EQ(told, u"Value"_s.repeated(5));
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
    constexpr std::array<QPoint, 4> places = {QPoint(210, 20), QPoint(399, 39), QPoint(100, 20),
                                              QPoint(199, 39)};
    bar.Value(50);
    for (const auto& [number, colors] :
         {std::pair{0, blue}, std::pair{1, green}, std::pair{3, green}, std::pair{2, blue}}) {
        bar.PaletteColor(number);
        const QImage seen = bar.grab().toImage();
        for (size_t i = 0; i < places.size(); ++i)
            EXPECT_EQ(seen.pixel(places[i]) & 0xFFFFFF, colors[i]) << number << ' ' << i;
        const QImage inside = seen.copy(210, 2, 185, 36); // where only the text has its colour
        const QImage mask = inside.createMaskFromColor(colors[4] | 0xFF000000U, Qt::MaskOutColor);
        const QRect text = QRegion(QBitmap::fromImage(mask)).boundingRect();
        EXPECT_NEAR(text.right(), 180, 2); // 8 pixels from the edge
        EXPECT_NEAR(text.center().y(), 18, 2);
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
    EXPECT_EQ(other.Rotulo(), u"15%"_s);
    EXPECT_EQ(other.PaletteColor(), 1);
    const QFont hosts = other.font();
    other.resize(400, 40);
    other.ReadProperties(bag);
    EXPECT_EQ(other.Value(), 16);
    EXPECT_EQ(other.AnchoBarra(), 960);
    EXPECT_EQ(other.grab().toImage(), bar.grab().toImage());
    other.ReadProperties({});
    EXPECT_EQ(other.Value(), 15);
    EXPECT_EQ(QColor(other.grab().toImage().pixel(210, 20)).name(), u"#c0ffc0"_s);
    EXPECT_EQ(other.Font(), hosts);
}
