// SPDX-License-Identifier: GPL-3.0-or-later
#include "assist/Form1.h"
#include "support/MainWindow.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>

using namespace Qt::StringLiterals;

namespace {

class Form1Test : public support::MainWindow {
protected:
    Form1Test() { Press("mnuherramientascolores"); }

    template<class Widget>
    Widget* Find(const char* name) {
        return principal.ActiveForm()->findChild<Widget*>(QString::fromLatin1(name));
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
};

} // namespace

TEST_F(Form1Test, SlidersShowTheColor) {
    const platform::Form* window = principal.ActiveForm();
    EXPECT_EQ(window->Caption(), u"Editor de color RGB"_s);
    EXPECT_EQ(window->Shell()->pos(), QPoint(533, 334));
    EXPECT_EQ(Code(), u"Color.new(255,255,255)"_s);
    EXPECT_EQ(Seen("colour"), 0xFFFFFFU);
    Find<QSlider>("green")->setValue(128);
    EXPECT_EQ(Code(), u"Color.new(255,128,255)"_s);
    EXPECT_EQ(Texts(), u"255 128 255"_s);
    EXPECT_EQ(Seen("greenSpot"), 0x008000U);
    EXPECT_EQ(Seen("Redspot"), 0xFF0000U);
    EXPECT_EQ(Seen("BlueSpot"), 0x0000FFU);
    EXPECT_EQ(Seen("colour"), 0xFF80FFU);
    EXPECT_EQ(Find<QWidget>("colour")->accessibleName(), u"Color: rojo 255, verde 128, azul 255"_s);
    EXPECT_EQ(Find<QWidget>("greenSpot")->accessibleName(), u"Verde: rojo 0, verde 128, azul 0"_s);
    EXPECT_EQ(Find<QWidget>("BlueSpot")->accessibleName(), u"Azul: rojo 0, verde 0, azul 255"_s);
    EXPECT_EQ(Find<QWidget>("Redspot")->accessibleName(), u"Rojo: rojo 255, verde 0, azul 0"_s);
    QTest::keyClick(Find<QSlider>("green"), Qt::Key_Left);
    QTest::keyClick(Find<QSlider>("green"), Qt::Key_PageDown);
    EXPECT_EQ(Code(), u"Color.new(255,111,255)"_s);
}

TEST_F(Form1Test, GreyFollowsTheMovedSlider) {
    Find<QSlider>("red")->setValue(3);
    Find<QRadioButton>("chkGrey")->click();
    EXPECT_EQ(Code(), u"Color.new(3,255,255)"_s);
    for (const char* slider : {"blue", "green", "red"}) {
        const int value = Find<QSlider>(slider)->value() / 2;
        Find<QSlider>(slider)->setValue(value);
        EXPECT_EQ(Texts(), u"%1 %1 %1"_s.arg(value));
        EXPECT_EQ(Code(), u"Color.new(%1,%1,%1)"_s.arg(value));
    }
    Typed(u"20"_s, "Text2");
    EXPECT_EQ(Code(), u"Color.new(20,20,20)"_s);
    Find<QRadioButton>("chkColor")->click();
    Find<QSlider>("red")->setValue(1);
    EXPECT_EQ(Code(), u"Color.new(1,20,20)"_s);
    Press("mnuherramientascolores"); // the same again
    EXPECT_EQ(Code(), u"Color.new(1,20,20)"_s);
    QTest::mouseClick(Find<QPushButton>("KewlButtons2"), Qt::LeftButton);
    Press("mnuherramientascolores");
    EXPECT_EQ(Code(), u"Color.new(255,255,255)"_s);
    EXPECT_TRUE(Find<QRadioButton>("chkColor")->isChecked());
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
        EXPECT_EQ(refused(u"256"_s, box), u"255"_s);
    EXPECT_EQ(Code(), u"Color.new(255,255,255)"_s);
    EXPECT_EQ(refused(u"x"_s), u"7"_s);
    EXPECT_EQ(refused(u"-"_s), u"7"_s);
    EXPECT_EQ(refused(u"1e"_s), u"1"_s);
    EXPECT_EQ(refused(u","_s), u"7"_s);
    EXPECT_EQ(dialogs.messages[0].title, u"Informacion de Quillmark"_s);
    EXPECT_EQ(dialogs.messages[0].icon, platform::Icon::None);
    edit->setText(u"125"_s);
    edit->setCursorPosition(1);
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClick(edit, Qt::Key_Delete); // the caret stays where it is
    EXPECT_EQ(edit->text(), u"1"_s);
}
