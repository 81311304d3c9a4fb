// SPDX-License-Identifier: GPL-3.0-or-later
#include "assist/Form1.h"
#include "support/ScriptedDialogs.h"

#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSlider>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class Form1Test : public testing::Test {
protected:
    Form1Test() { window.Show(); }

    template<class Widget>
    Widget* Find(const char* name) {
        return window.findChild<Widget*>(QString::fromLatin1(name));
    }
    QString Code() { return Find<QLabel>("rgbcode")->text(); }
    QString Texts() {
        return Find<QLineEdit>("Text1")->text() + u' ' + Find<QLineEdit>("Text2")->text() + u' ' +
               Find<QLineEdit>("Text3")->text();
    }
    QRgb Seen(const char* name) {
        auto* swatch = Find<QWidget>(name);
        return swatch->grab().toImage().pixel(swatch->rect().center()) & 0xFFFFFF;
    }
    // Types over the text of a box, key by key.
    QString Typed(const QString& text, const char* box = "Text1") {
        auto* edit = Find<QLineEdit>(box);
        edit->setText(u"7"_s);
        edit->selectAll();
        QTest::keyClicks(edit, text);
        return edit->text();
    }

    support::ScriptedDialogs dialogs;
    assist::Form1& window = *new assist::Form1;
};

} // namespace

TEST_F(Form1Test, SlidersShowTheColor) {
    EXPECT_EQ(window.Caption(), u"Editor de color RGB"_s);
    EXPECT_EQ(Code(), u"Color.new(255,255,255)"_s);
    EXPECT_EQ(Seen("colour"), 0xFFFFFFU);
    Find<QSlider>("green")->setValue(128);
    EXPECT_EQ(Code(), u"Color.new(255,128,255)"_s);
    EXPECT_EQ(Texts(), u"255 128 255"_s);
    EXPECT_EQ(Seen("greenSpot"), 0x008000U);
    EXPECT_EQ(Seen("Redspot"), 0xFF0000U);
    EXPECT_EQ(Seen("BlueSpot"), 0x0000FFU);
    EXPECT_EQ(Seen("colour"), 0xFF80FFU);
    EXPECT_TRUE(Find<QWidget>("colour")->accessibleName().contains(u"verde 128"_s));
    QTest::keyClick(Find<QSlider>("green"), Qt::Key_Left);
    QTest::keyClick(Find<QSlider>("green"), Qt::Key_PageDown);
    EXPECT_EQ(Code(), u"Color.new(255,111,255)"_s);
    window.Unload();
}

TEST_F(Form1Test, GreyFollowsTheMovedSlider) {
    Find<QSlider>("red")->setValue(3);
    Find<QRadioButton>("chkGrey")->click();
    EXPECT_EQ(Code(), u"Color.new(3,255,255)"_s);
    Find<QSlider>("blue")->setValue(10);
    EXPECT_EQ(Texts(), u"10 10 10"_s);
    EXPECT_EQ(Code(), u"Color.new(10,10,10)"_s);
    Typed(u"20"_s, "Text2");
    EXPECT_EQ(Code(), u"Color.new(20,20,20)"_s);
    Find<QRadioButton>("chkColor")->click();
    Find<QSlider>("red")->setValue(1);
    EXPECT_EQ(Code(), u"Color.new(1,20,20)"_s);
    window.Unload();
}

TEST_F(Form1Test, TextsSetTheirSliderOrAreRefused) {
    EXPECT_EQ(Typed(u"0"_s), u"0"_s);
    auto* edit = Find<QLineEdit>("Text1");
    edit->clear();
    EXPECT_EQ(Texts(), u"0 255 255"_s);
    EXPECT_EQ(Code(), u"Color.new(0,255,255)"_s);
    edit->setText(u"007"_s);
    EXPECT_EQ(edit->text(), u"7"_s);
    EXPECT_EQ(Typed(u"1,5"_s), u"2"_s);
    EXPECT_EQ(Typed(u"2.5"_s), u"2.5"_s); // is 2 already
    EXPECT_EQ(Code(), u"Color.new(2,255,255)"_s);
    EXPECT_EQ(Typed(u"3.5"_s), u"4"_s);
    const auto refused = [&](const QString& text, const char* box = "Text1") {
        dialogs.Expect(u"Valor no valido. El valor debe estar entre 0 y 255"_s,
                       platform::Answer::Ok);
        return Typed(text, box);
    };
    for (const char* box : {"Text1", "Text2", "Text3"})
        EXPECT_EQ(refused(u"300"_s, box), u"255"_s);
    EXPECT_EQ(Code(), u"Color.new(255,255,255)"_s);
    EXPECT_EQ(refused(u"x"_s), u"7"_s);
    EXPECT_EQ(refused(u"-"_s), u"7"_s);
    EXPECT_EQ(refused(u"1e"_s), u"1"_s);
    EXPECT_EQ(refused(u","_s), u"7"_s);
    EXPECT_EQ(dialogs.messages[0].title, u"Informacion de Quillmark"_s);
    window.Unload();
}
