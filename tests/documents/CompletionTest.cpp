// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/write/Completion.h"
#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/EditorSettings.h"
#include "documents/editor/engine/Layers.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/write/CallHover.h"
#include "documents/editor/write/CallTips.h"
#include "support/TestHome.h"

#include <QElapsedTimer>
#include <QListWidget>
#include <QTest>
#include <gtest/gtest.h>

using namespace documents;

namespace {

class CompletionTest : public testing::Test {
protected:
    CompletionTest() {
        control.resize(700, 400);
        editor.resize(700, 400);
        control.show();
        editor.setFocus();
        editor.activateWindow();
        QTest::qWait(20);
    }
    void Type(const char* text) {
        for (; *text; ++text)
            QTest::keyClick(&editor, *text == '\n' ? '\r' : *text);
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&editor, key, modifiers);
        QTest::qWait(1); // until the engine has told
    }
    void Put(const QByteArray& text) {
        editor.Load(text);
        editor.GoTo(text.size());
    }
    long Ask(unsigned int message) { return editor.SendScintilla(message); }
    bool Listed() { return Ask(QsciScintilla::SCI_AUTOCACTIVE) != 0; }
    bool Tipped() { return Ask(QsciScintilla::SCI_CALLTIPACTIVE) != 0; }
    QByteArray Chosen() {
        QByteArray text(100, '\0');
        editor.SendScintilla(QsciScintilla::SCI_AUTOCGETCURRENTTEXT, 0UL, text.data());
        return text.constData();
    }

    support::TestHome home;
    QWidget control;
    ScriptEditor editor{&control};
    CommandSet commands{editor, control};
    CallTips tips{editor, commands, &control};
    CallHover hover{editor, &control};
    Completion completion{editor, commands, &control};
};

} // namespace

TEST_F(CompletionTest, ComesOnlyWhereThereIsAScreen) {
    control.move(0, 10000);
    QTest::qWait(20);
    Type("sc");
    EXPECT_FALSE(Listed());
    control.move(0, 0);
    Put(QByteArray("x\n").repeated(5000) + "sc");
    editor.SendScintilla(QsciScintilla::SCI_SETFIRSTVISIBLELINE, 0UL); // as by the wheel
    Press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(Chosen(), "screen");
}

TEST_F(CompletionTest, ComesByItselfWhereItHelpsAndClosesOnAWholeWord) {
    Type("s");
    EXPECT_FALSE(Listed());
    Type("c");
    EXPECT_EQ(Chosen(), "screen");
    Type("reen");
    EXPECT_FALSE(Listed()); // it's whole
    Type(".");
    EXPECT_EQ(Chosen(), "flip");
    Type("W");
    EXPECT_EQ(Chosen(), "waitVblankStart");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Chosen(), "flip");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Listed());
    for (const char* before : {"-- ", "x = 'a ", "[[ ", "0x"}) {
        Put(before);
        Type("pri");
        EXPECT_FALSE(Listed()) << before;
    }
    Put("desconocido");
    Type(".");
    EXPECT_FALSE(Listed());
    Put("nt");
    editor.GoTo(0);
    Type("pri"); // in the midst of a word
    EXPECT_FALSE(Listed());
}

TEST_F(CompletionTest, TakesTabAlwaysAndEnterOnlyAfterTheArrows) {
    Put("img = Image.load('a')\n");
    Type("img:bl\t");
    EXPECT_EQ(editor.Bytes(), "img = Image.load('a')\nimg:blit");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(editor.Bytes(), "img = Image.load('a')\nimg:bl");
    Put("");
    Type("PRI\n");
    EXPECT_EQ(editor.Bytes(), "PRI\r\n");
    EXPECT_FALSE(Listed());
    Type("Image.");
    Press(Qt::Key_Down);
    Type("\nx");
    EXPECT_EQ(editor.Bytes(), "PRI\r\nImage.loadx");
    Put("");
    Type("wh");
    Press(Qt::Key_Down); // to another, and then more letters
    Type("i");
    Press(Qt::Key_Return);
    EXPECT_EQ(editor.Bytes(), "whi\r\n");
}

TEST_F(CompletionTest, CanBeSwitchedOffAndAskedFor) {
    SharedSettings().Keep(QStringLiteral("sugerencias"), false);
    Type("scr");
    EXPECT_FALSE(Listed());
    Type("een:print(");
    EXPECT_FALSE(Tipped());
    Press(Qt::Key_Space, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(Tipped());
    Press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_TRUE(Listed());
    Type("f");
    EXPECT_EQ(Chosen(), "false"); // the open one follows
}

TEST_F(CompletionTest, TellsACallFromItsParenthesisToTheLast) {
    Type("screen:print(");
    EXPECT_TRUE(Tipped());
    Type("1, math.min(2");
    EXPECT_TRUE(Tipped());
    Type(")");
    QTest::qWait(20);
    EXPECT_TRUE(Tipped()); // the outer one again
    Type(", pr");
    EXPECT_TRUE(Listed());
    Press(Qt::Key_Escape);
    QTest::qWait(20);
    EXPECT_TRUE(Tipped());
    Type(")");
    QTest::qWait(20);
    EXPECT_FALSE(Tipped());
    Press(Qt::Key_Left);
    QTest::qWait(20);
    EXPECT_FALSE(Tipped()); // only when it's asked for
    Press(Qt::Key_Space, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(Tipped());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Tipped());
    Type("(");
    EXPECT_FALSE(Tipped()); // of nothing that is known
}

TEST_F(CompletionTest, TellsACallUnderTheMouseUnlessItIsFaulty) {
    Put("x = screen:width()");
    Q_EMIT editor.SCN_DWELLSTART(13, 0, 0);
    EXPECT_TRUE(Tipped());
    Q_EMIT editor.SCN_DWELLEND(13, 0, 0);
    EXPECT_FALSE(Tipped());
    Q_EMIT editor.SCN_DWELLSTART(0, 0, 0);
    EXPECT_FALSE(Tipped());
    editor.SendScintilla(QsciScintilla::SCI_SETINDICATORCURRENT,
                         static_cast<unsigned long>(kFaultIndicator));
    editor.SendScintilla(QsciScintilla::SCI_INDICATORFILLRANGE, 0UL, 18L);
    Q_EMIT editor.SCN_DWELLSTART(13, 0, 0);
    EXPECT_FALSE(Tipped());
}

TEST_F(CompletionTest, IsQuickInLargeTexts) {
    QByteArray script = "\n";
    while (script.size() < 8 << 20)
        script += "local nombre" + QByteArray::number(script.size()) +
                  " = screen:print(10, 20, 'hola')\n";
    for (const qsizetype size : {qsizetype(100) << 10, script.size()}) {
        editor.Load(script.first(size));
        editor.GoTo(0);
        Type("n");
        QElapsedTimer clock;
        clock.start();
        Type("o");
        EXPECT_TRUE(Listed());
        EXPECT_LT(clock.elapsed(), 500) << size; // 3 and 8 as released
        Press(Qt::Key_Escape);
    }
}
