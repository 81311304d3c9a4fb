// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/PictureBox.h"
#include "platform/Failure.h"

#include <QSignalSpy>
#include <QTest>
#include <array>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

constexpr uint32_t kBack = 0x102030;

class PictureBoxTest : public testing::Test {
protected:
    PictureBoxTest() {
        QPalette palette;
        palette.setColor(QPalette::Window, QColor::fromRgb(kBack));
        box.setPalette(palette);
        box.Width(4 * 15);
        box.Height(3 * 15);
    }
    // Pixels of 1, 2, 3 and so on, `width` to a row, as many rows as there is room for.
    static png::Bitmap Numbered(int width, int height) {
        png::Bytes bits(static_cast<size_t>(4 * width * height));
        std::fill(bits.begin(), bits.end(), uint8_t{0});
        for (int i = 0; i < width * height; ++i)
            bits[static_cast<size_t>(4 * i)] = static_cast<uint8_t>(i + 1);
        png::BitmapInfoHeader header;
        header.Width = width;
        header.Height = -height;
        header.BitCount = 32;
        return {header, {}, std::move(bits)};
    }
    // What GetDIBits reads at x, y, as 0xRRGGBB.
    uint32_t At(int x, int y) {
        std::array<uint8_t, 8> bits{}; // two rows, the lower one first
        EXPECT_TRUE(box.GetDIBits(x, y, 1, 2, bits));
        return bits[4] | uint32_t{bits[5]} << 8 | uint32_t{bits[6]} << 16;
    }
    PictureBox box;
};

} // namespace

TEST_F(PictureBoxTest, WhatIsDrawnLiesOverThePictureUntilItBecomesIt) {
    QImage half(2, 2, QImage::Format_ARGB32);
    half.fill(QColor(255, 255, 255, 0));
    half.setPixelColor(1, 0, Qt::red);
    box.Picture(half);
    EXPECT_EQ(At(0, 0), kBack);
    EXPECT_EQ(At(1, 0), 0xFF0000U);
    EXPECT_EQ(At(4, 0), 0U); // outside
    EXPECT_EQ(At(-1, 2), 0U);
    box.StretchBlt(2, 1, 2, 9, Numbered(2, 1), 2, 9); // as far as there are pixels
    EXPECT_EQ(At(2, 1), 1U);
    EXPECT_EQ(At(3, 1), 2U);
    EXPECT_EQ(At(2, 2), kBack);
    EXPECT_EQ(At(1, 0), 0xFF0000U);
    box.Cls();
    EXPECT_EQ(At(2, 1), kBack);
    box.StretchBlt(-1, 0, 3, 2, Numbered(3, 2), 3, 2);
    EXPECT_EQ(At(0, 0), 2U);
    EXPECT_EQ(At(1, 1), 6U);
    EXPECT_EQ(At(2, 1), kBack);
    box.PictureFromImage();
    box.Cls();
    EXPECT_EQ(At(1, 1), 6U);
    box.StretchBlt(0, 0, 4, 2, Numbered(2, 1), 2, 1); // twice as large
    EXPECT_EQ(At(1, 1), 1U);
    EXPECT_EQ(At(2, 0), 2U);
    box.Picture(QImage());
    EXPECT_EQ(At(1, 1), kBack);
}

TEST_F(PictureBoxTest, SizesAreInTheUnitAsked) {
    box.BorderStyle(platform::BorderStyle::Single);
    EXPECT_EQ(box.ScaleWidth(), 30);
    box.ScaleMode(png::ScaleMode::Pixels);
    EXPECT_EQ(box.ScaleWidth(), 2);
    EXPECT_EQ(box.Width(), 60);
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
    box.Width(40 * 15);
    box.Height(30 * 15);
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(Qt::green);
    box.Picture(picture);
    box.BorderStyle(platform::BorderStyle::Single);
    box.show();
    const QImage seen = box.grab().toImage();
    EXPECT_EQ(seen.pixelColor(1, 1), Qt::green);
    EXPECT_EQ(seen.pixelColor(4, 4), Qt::green);
    EXPECT_EQ(seen.pixelColor(5, 4).rgb() & 0xFFFFFF, kBack);
    QString told;
    const auto note = [&](float x, float y) { told += u" %1,%2"_s.arg(x).arg(y); };
    QObject::connect(&box, &PictureBox::MouseMove, &box, note);
    QObject::connect(&box, &PictureBox::Click, &box, [&](float x, float y) {
        told += u" clic"_s;
        note(x, y);
    });
    box.PointAt(20, 40);
    for (const auto& [key, modifier] : {std::pair(Qt::Key_Right, Qt::NoModifier),
                                        {Qt::Key_Down, Qt::ShiftModifier},
                                        {Qt::Key_Left, Qt::ShiftModifier},
                                        {Qt::Key_Up, Qt::NoModifier},
                                        {Qt::Key_Right, Qt::ShiftModifier},
                                        {Qt::Key_Space, Qt::NoModifier}})
        QTest::keyClick(&box, key, modifier);
    QTest::mouseMove(&box, {9, 3});
    QTest::mouseClick(&box, Qt::LeftButton, {}, {7, 3});
    QTest::mouseClick(&box, Qt::RightButton, {}, {7, 3});
    QTest::mousePress(&box, Qt::LeftButton, {}, {7, 3});
    QTest::mouseRelease(&box, Qt::LeftButton, {}, {70, 3});
    EXPECT_EQ(told.toStdString(), " 30,30 30,180 0,180 0,165 150,165 150,165 clic 150,165 120,30 "
                                  "90,30 clic 90,30 90,30 90,30");
}
