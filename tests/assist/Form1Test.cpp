// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/MainWindow.h"

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSlider>

using namespace Qt::StringLiterals;

namespace {

class Form1Test : public support::MainWindow {
protected:
    Form1Test() { Open("mnuherramientascolores"); }

    void Slide(const char* slider, int value) { Find<QSlider>(slider)->setValue(value); }
    QString Code() { return Find<QLabel>("rgbcode")->text(); }
    QString Texts() {
        QString texts;
        for (const char* box : {"Text1", "Text2", "Text3"})
            texts += Find<QLineEdit>(box)->text() + u' ';
        return texts;
    }
    // A swatch as it's seen and as it's spoken of.
    QString Swatch(const char* name) {
        auto* swatch = Find(name);
        const QColor seen = swatch->grab().toImage().pixelColor(swatch->rect().center());
        return seen.name() + u' ' + swatch->accessibleName();
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
    EXPECT_EQ(window->Shell()->pos(), QPoint(support::kDocumentWidth, platform::ToPixels(5010)));
    EXPECT_EQ(Code(), u"Color.new(255,255,255)"_s);
    EXPECT_EQ(Swatch("colour"), u"#ffffff Color: rojo 255, verde 255, azul 255"_s);
    Slide("green", 128);
    EXPECT_EQ(Code(), u"Color.new(255,128,255)"_s);
    EXPECT_EQ(Texts(), u"255 128 255 "_s);
    EXPECT_EQ(Swatch("greenSpot"), u"#008000 Verde: rojo 0, verde 128, azul 0"_s);
    EXPECT_EQ(Swatch("Redspot"), u"#ff0000 Rojo: rojo 255, verde 0, azul 0"_s);
    EXPECT_EQ(Swatch("BlueSpot"), u"#0000ff Azul: rojo 0, verde 0, azul 255"_s);
    EXPECT_EQ(Swatch("colour"), u"#ff80ff Color: rojo 255, verde 128, azul 255"_s);
}

TEST_F(Form1Test, GreyFollowsTheMovedSlider) {
    Slide("red", 3);
    Find<QRadioButton>("chkGrey")->click();
    EXPECT_EQ(Code(), u"Color.new(3,255,255)"_s);
    for (int value = 60; const char* slider : {"blue", "green", "red"}) {
        Slide(slider, --value);
        EXPECT_EQ(Code(), u"Color.new(%1,%1,%1)"_s.arg(value));
    }
    Typed(u"20"_s, "Text2");
    EXPECT_EQ(Code(), u"Color.new(20,20,20)"_s);
    Find<QRadioButton>("chkColor")->click();
    Slide("red", 1);
    EXPECT_EQ(Code(), u"Color.new(1,20,20)"_s);
    Click("KewlButtons2");
    Open("mnuherramientascolores");
    EXPECT_EQ(Code(), u"Color.new(255,255,255)"_s);
}

TEST_F(Form1Test, TextsSetTheirSliderOrAreRefused) {
    auto* edit = Find<QLineEdit>("Text1");
    edit->clear();
    EXPECT_EQ(Texts(), u"0 255 255 "_s);
    EXPECT_EQ(Code(), u"Color.new(0,255,255)"_s);
    edit->setText(u"007"_s);
    EXPECT_EQ(edit->text(), u"7"_s);
    EXPECT_EQ(Typed(u"1,5"_s), u"2"_s);
    EXPECT_EQ(Typed(u"2.5"_s), u"2.5"_s); // is 2 already
    EXPECT_EQ(Code(), u"Color.new(2,255,255)"_s);
    EXPECT_EQ(Typed(u"3.5"_s), u"4"_s);
    const auto refused = [&](const QString& text, const char* box = "Text1") {
        dialogs.Expect(u"Valor no valido. El valor debe estar entre 0 y 255"_s);
        return Typed(text, box);
    };
    for (const char* box : {"Text1", "Text2", "Text3"})
        EXPECT_EQ(refused(u"256"_s, box), u"255"_s);
    for (const QString& text : {u"x"_s, u"-"_s, u","_s})
        EXPECT_EQ(refused(text), u"7"_s);
    EXPECT_EQ(refused(u"1e"_s), u"1"_s);
    EXPECT_EQ(dialogs.messages[0].title, u"Informacion de Quillmark"_s);
    EXPECT_EQ(dialogs.messages[0].icon, platform::Icon::None);
}
