// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/find/FindBar.h"
#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/find/GoToBar.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace documents;

namespace {

class FindBarTest : public testing::Test {
protected:
    FindBarTest() {
        auto* layout = new QVBoxLayout(&control);
        for (QWidget* part : {static_cast<QWidget*>(&editor), static_cast<QWidget*>(&bar),
                              static_cast<QWidget*>(&goTo)})
            layout->addWidget(part);
        control.resize(530, 400);
        control.show();
        control.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&control));
        editor.setFocus();
    }
    ~FindBarTest() override {
        Open(u""_s);
        Press(Qt::Key_Delete);
        Switch(u"Aa"_s, false); // all are kept for the next bar
        Switch(u"Palabra"_s, false);
        Switch(u"Patrón"_s, false);
    }

    void Press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    void Open(const QString& typed, Qt::Key letter = Qt::Key_F) {
        Press(letter, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), typed);
    }
    void OpenToReplace(const QString& what, const QString& by) {
        Open(what, Qt::Key_H);
        fields.last()->setFocus();
        fields.last()->selectAll();
        QTest::keyClicks(fields.last(), by);
    }
    void Switch(const QString& text, bool on) {
        for (auto* button : bar.findChildren<QAbstractButton*>()) {
            if (button->text() == text && button->isChecked() != on)
                button->click();
        }
    }
    void Click(const QString& text) {
        for (auto* button : bar.findChildren<QAbstractButton*>()) {
            if (button->text() == text)
                QTest::mouseClick(button, Qt::LeftButton);
        }
    }
    QString State() { return bar.findChild<QLabel*>()->text(); }
    std::pair<qsizetype, qsizetype> Selection() {
        return {editor.SelectionStart(), editor.SelectionEnd()};
    }
    std::vector<qsizetype> Marked() {
        std::vector<qsizetype> marked;
        for (qsizetype at = 0; at < editor.Length(); ++at) {
            if (editor.SendScintilla(QsciScintilla::SCI_INDICATORVALUEAT, 8UL,
                                     static_cast<long>(at)))
                marked.push_back(at);
        }
        return marked;
    }

    QWidget control;
    ScriptEditor editor{&control};
    CommandSet commands{editor, control};
    FindBar bar{editor, commands, &control};
    GoToBar goTo{editor, commands, &control};
    QList<QLineEdit*> fields = bar.findChildren<QLineEdit*>();
};

using Range = std::pair<qsizetype, qsizetype>;

} // namespace

TEST_F(FindBarTest, LooksWhileOneTypesFromWhereTheCaretWas) {
    editor.Load("sol sal\nsal sol\n");
    editor.GoTo(2);
    Open(u"s"_s);
    EXPECT_EQ(Selection(), Range(4, 5));
    QTest::keyClicks(fields[0], u"ol"_s);
    EXPECT_EQ(Selection(), Range(12, 15));
    EXPECT_EQ(State(), u"2 de 2"_s);
    EXPECT_EQ(Marked(), (std::vector<qsizetype>{0, 1, 2, 12, 13, 14}));
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Selection(), Range(4, 5));
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Selection(), Range(2, 2));
    EXPECT_EQ(State(), QString());
    QTest::keyClicks(fields[0], u"sz"_s);
    EXPECT_EQ(Selection(), Range(2, 2));
    EXPECT_EQ(State(), u"No se encuentra"_s);
    EXPECT_NE(fields[0]->palette().color(QPalette::Base), control.palette().color(QPalette::Base));
    EXPECT_TRUE(Marked().empty());
    Press(Qt::Key_Home);
    QTest::keyClicks(fields[0], u"ab"_s);
    EXPECT_EQ(fields[0]->text(), u"absz"_s);
}

TEST_F(FindBarTest, GoesAroundBothEndsAndSaysSo) {
    editor.Load("x y\nx");
    Open(u"X"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(Selection(), Range(4, 5));
    Press(Qt::Key_Return);
    EXPECT_EQ(Selection(), Range(0, 1));
    EXPECT_EQ(State(), u"1 de 2 · Se llegó al final; sigue desde el principio"_s);
    Press(Qt::Key_Enter, Qt::ShiftModifier);
    EXPECT_EQ(State(), u"2 de 2 · Se llegó al principio; sigue desde el final"_s);
    Press(Qt::Key_Escape);
    EXPECT_EQ(Selection(), Range(4, 5));
    EXPECT_FALSE(bar.isVisible());
    EXPECT_TRUE(editor.hasFocus());
    EXPECT_TRUE(Marked().empty());
    Open(u""_s); // with what is selected
    EXPECT_EQ(fields[0]->text(), u"x"_s);
    Switch(u"Aa"_s, true);
    QTest::keyClicks(fields[0], u"X"_s);
    EXPECT_EQ(State(), u"No se encuentra"_s);
}

TEST_F(FindBarTest, TheSelectedWordLeadsToTheNextOne) {
    editor.Load(u"año x\naño; AÑO"_s.toUtf8());
    editor.GoTo(1);
    Press(Qt::Key_F3, Qt::ControlModifier);
    EXPECT_EQ(Selection(), Range(7, 11));
    EXPECT_TRUE(editor.hasFocus());
    Press(Qt::Key_F3, Qt::ControlModifier);
    EXPECT_EQ(Selection(), Range(13, 17));
    Press(Qt::Key_F3, Qt::ControlModifier | Qt::ShiftModifier);
    Press(Qt::Key_F3, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Selection(), Range(0, 4));
    editor.GoTo(5);
    Open(u"%w+;"_s);
    Switch(u"Patrón"_s, true);
    EXPECT_EQ(Selection(), Range(10, 12)); // its classes hold no ñ
    QTest::keyClicks(fields[0], u"["_s);
    EXPECT_EQ(State(), u"El patrón no vale: falta el ] de un conjunto"_s);
    EXPECT_EQ(Selection(), Range(10, 12));
}

TEST_F(FindBarTest, HitsFollowTheEdits) {
    editor.Load("x\nx");
    Open(u"x"_s);
    editor.Replace(0, 0, "x ");
    Press(Qt::Key_Return); // at once, from the hit that was selected
    EXPECT_EQ(Selection(), Range(4, 5));
    EXPECT_EQ(State(), u"3 de 3"_s);
    editor.Replace(0, 4, "");
    EXPECT_TRUE(QTest::qWaitFor([&] { return State() == u"1 de 1"_s; }));
    EXPECT_EQ(Marked(), (std::vector<qsizetype>{0}));
    editor.Load("an x"); // tells of no edit
    Press(Qt::Key_Return);
    EXPECT_EQ(Selection(), Range(3, 4));
    editor.Load("x an"); // of the same length
    Press(Qt::Key_Return);
    EXPECT_EQ(Selection(), Range(0, 1));
    OpenToReplace(u"x"_s, u"y"_s);
    editor.Load("x");
    Click(u"Todo"_s);
    EXPECT_EQ(editor.Bytes(), "y");
}

TEST_F(FindBarTest, ReplacesOneAfterTheOther) {
    editor.Load("a b a");
    OpenToReplace(u"a"_s, u"aa"_s);
    QSignalSpy edits(&editor, &ScriptEditor::Edited);
    Press(Qt::Key_Return);
    EXPECT_EQ(editor.Bytes(), "aa b a");
    EXPECT_EQ(Selection(), Range(5, 6));
    Press(Qt::Key_Return);
    EXPECT_EQ(editor.Bytes(), "aa b aa");
    EXPECT_EQ(edits.count(), 2);
    EXPECT_EQ(Selection(), Range(0, 1)); // around the end
    editor.GoTo(4);
    Click(u"Reemplazar"_s); // none is selected: goes to the next one
    EXPECT_EQ(editor.Bytes(), "aa b aa");
    EXPECT_EQ(Selection(), Range(5, 6));
    Switch(u"Patrón"_s, true);
    QTest::keyClicks(fields[1], u"%2"_s);
    Click(u"Reemplazar"_s);
    EXPECT_EQ(State(), u"3 de 4 · El patrón no tiene la captura %2"_s);
}

TEST_F(FindBarTest, ReplacesAllInOneStepAndKeepsCaretAndMarkers) {
    editor.Load(QByteArray("uno dos\r\n").repeated(300));
    OpenToReplace(u"UNO"_s, u"uno uno"_s);
    for (const int line : {0, 7, 299})
        editor.SendScintilla(QsciScintilla::SCI_MARKERADD, static_cast<unsigned long>(line), 0L);
    editor.GoTo(9 * 7 + 5);
    const long shown = editor.SendScintilla(QsciScintilla::SCI_GETFIRSTVISIBLELINE);
    QSignalSpy edits(&editor, &ScriptEditor::Edited);
    Click(u"Todo"_s);
    EXPECT_EQ(editor.Bytes(), QByteArray("uno uno dos\r\n").repeated(300));
    EXPECT_EQ(edits.count(), 1);
    EXPECT_EQ(State(), u"300 cambios"_s);
    EXPECT_EQ(editor.Caret(), 13 * 7 + 9);
    EXPECT_EQ(editor.SendScintilla(QsciScintilla::SCI_GETFIRSTVISIBLELINE), shown);
    std::vector<long> marked;
    for (long line = -1;
         (line = editor.SendScintilla(QsciScintilla::SCI_MARKERNEXT,
                                      static_cast<unsigned long>(line + 1), 1L)) >= 0;)
        marked.push_back(line);
    EXPECT_EQ(marked, (std::vector<long>{0, 7, 299}));
    editor.undo();
    EXPECT_EQ(editor.Bytes(), QByteArray("uno dos\r\n").repeated(300));
    EXPECT_FALSE(editor.isUndoAvailable());
    // One line can't be longer than the editor takes.
    editor.Load(QByteArray(1 << 20, 'u'));
    OpenToReplace(u"u"_s, u"uu"_s);
    Click(u"Todo"_s);
    EXPECT_TRUE(State().endsWith(u"Daría una línea de más de 1 MiB"_s)) << State().toStdString();
    EXPECT_EQ(editor.Length(), 1 << 20);
}

TEST_F(FindBarTest, GoesToALineAndAColumn) {
    editor.Load(u"ñu\nañil 😀x\r\n"_s.toUtf8() + QByteArray("x\n").repeated(500));
    const auto go = [&](const QString& place) {
        Open(place, Qt::Key_G);
        Press(Qt::Key_Return);
        return editor.Caret();
    };
    EXPECT_EQ(go(u"2:7"_s), 14); // behind a character of four bytes
    EXPECT_EQ(go(u"2:70"_s), 15);
    EXPECT_EQ(go(u"1:3"_s), 3);
    EXPECT_EQ(go(u"+2:2"_s), 18);
    EXPECT_EQ(go(u"9999"_s), editor.Length());
    EXPECT_EQ(go(u"9999:9"_s), editor.Length());
    go(u"250"_s);
    EXPECT_TRUE(editor.hasFocus());
    const long page = editor.SendScintilla(QsciScintilla::SCI_LINESONSCREEN);
    EXPECT_NEAR(editor.SendScintilla(QsciScintilla::SCI_GETFIRSTVISIBLELINE) + page / 2., 249, 2);
    go(u"x"_s);
    EXPECT_EQ(goTo.findChildren<QLabel*>().first()->text(),
              u"Escribe una línea, como 12, +5, -5 o 12:8"_s);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(goTo.isVisible());
    EXPECT_TRUE(editor.hasFocus());
}
