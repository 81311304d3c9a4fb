// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Arrange.h"

#include <QRegion>
#include <gtest/gtest.h>

using namespace platform;

namespace {

constexpr QSize kArea(1000, 700);

int Pixels(const QRegion& region) {
    int pixels = 0;
    for (const QRect& rect : region)
        pixels += rect.width() * rect.height();
    return pixels;
}

} // namespace

TEST(Arrange, TilesCoverTheAreaWithoutOverlap) {
    for (const auto& tile : {TileHorizontallyRects, TileVerticallyRects}) {
        for (int count = 1; count <= 30; ++count) {
            QRegion covered;
            int sum = 0;
            for (const QRect& rect : tile(kArea, count)) {
                covered += rect;
                sum += rect.width() * rect.height();
            }
            EXPECT_EQ(covered, QRegion(QRect(QPoint(0, 0), kArea))) << count;
            EXPECT_EQ(sum, Pixels(covered)) << count;
            EXPECT_EQ(tile(kArea, count).size(), static_cast<size_t>(count));
        }
    }
}

TEST(Arrange, ThreeWindowsStandAboveOrBesideEachOther) {
    for (const QRect& rect : TileHorizontallyRects(kArea, 3))
        EXPECT_EQ(rect.width(), kArea.width());
    for (const QRect& rect : TileVerticallyRects(kArea, 3))
        EXPECT_EQ(rect.height(), kArea.height());
}

TEST(Arrange, CascadeAndIconsStayInside) {
    const QRect all(QPoint(0, 0), kArea);
    const auto cascade = CascadeRects(kArea, 40, 25);
    EXPECT_EQ(cascade[1].topLeft(), QPoint(25, 25));
    for (const QRect& rect : cascade)
        EXPECT_TRUE(all.contains(rect));
    const auto icons = IconRects(kArea, 9, QSize(160, 30));
    EXPECT_EQ(icons[0].bottomLeft(), all.bottomLeft());
    EXPECT_EQ(icons[6].bottom(), icons[0].top() - 1);
    for (const QRect& rect : icons)
        EXPECT_TRUE(all.contains(rect));
}

TEST(Arrange, NothingToArrange) {
    EXPECT_TRUE(CascadeRects(kArea, 0, 25).empty());
    EXPECT_TRUE(TileHorizontallyRects(kArea, 0).empty());
    EXPECT_TRUE(TileVerticallyRects(QSize(0, 0), 0).empty());
}
