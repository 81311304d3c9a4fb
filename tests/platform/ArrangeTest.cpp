// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Arrange.h"

#include <QRegion>
#include <gtest/gtest.h>

using namespace platform;

namespace {

constexpr QSize kArea(1000, 700);

} // namespace

TEST(Arrange, TilesCoverTheAreaWithoutOverlap) {
    for (const auto& tile : {TileHorizontallyRects, TileVerticallyRects}) {
        for (int count = 0; count <= 30; ++count) {
            QRegion covered;
            for (const QRect& rect : tile(kArea, count)) {
                EXPECT_FALSE(covered.intersects(rect)) << count;
                covered += rect;
            }
            EXPECT_EQ(covered.boundingRect().size(), count == 0 ? QSize(0, 0) : kArea) << count;
            EXPECT_EQ(tile(kArea, count).size(), static_cast<size_t>(count));
        }
    }
    EXPECT_EQ(TileHorizontallyRects(kArea, 3)[2].width(), kArea.width());
    EXPECT_EQ(TileVerticallyRects(kArea, 3)[2].height(), kArea.height());
}

TEST(Arrange, WindowsThatKeepTheirSizesStandAtTheRight) {
    const auto stack = StackRects(kArea, {{200, 300}, {100, 400}, {300, 500}, {900, 100}});
    EXPECT_EQ(stack, (std::vector<QRect>{{800, 0, 200, 300},
                                         {900, 300, 100, 400},
                                         {500, 0, 300, 500},
                                         {0, 500, 900, 100}})); // inside, whatever it covers
    EXPECT_EQ(StackRects(kArea, {{1200, 900}})[0], QRect(0, 0, 1200, 900));
    EXPECT_EQ(MovedInside({-5, 650, 100, 60}, kArea), QRect(0, 640, 100, 60));
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
