// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/EditorFixture.h"
#include "documents/editor/engine/EditorSettings.h"
#include "documents/editor/write/BracketCloser.h"
#include "documents/editor/write/Indenter.h"

#include <QSignalSpy>

namespace {

class SelfClosingTest : public EditorFixture {
protected:
    // '<' is the Backspace key, '\n' Enter.
    void Expect(const QByteArray& before, const QByteArray& typed, const std::string& after) {
        Put(before);
        for (const char letter : typed) {
            if (letter == '<')
                QTest::keyClick(&editor, Qt::Key_Backspace);
            else if (letter == '\n')
                QTest::keyClick(&editor, Qt::Key_Return);
            else
                QTest::keyClick(&editor, letter);
        }
        EXPECT_EQ(Shown(), after) << before.toStdString() << " + " << typed.toStdString();
    }
    documents::BracketCloser closer{editor, commands};
};

} // namespace

TEST_F(SelfClosingTest, ClosesWhereThereIsRoom) {
    for (const char* pair : {"()", "[]", "{}", "''", "\"\""}) {
        const std::string open(1, pair[0]);
        const QByteArray key(1, pair[0]);
        Expect("|", key, open + "|" + pair[1]);
        EXPECT_EQ(edits, 1);
        editor.undo();
        EXPECT_EQ(Shown(), "|");
        Expect("x = |\ny", key, "x = " + open + "|" + pair[1] + "\ny");
        Expect("f(|)", key, "f(" + open + "|" + pair[1] + ")");
        for (const char* text : {"|x", "|ñ", "|(x)", "|'a'", "'a |", "--|", "--[[\n|", "[[\n|"}) {
            std::string typed = text;
            Expect(text, key, typed.insert(typed.find('|'), open));
        }
    }
    Expect("x|", "('a", "x('a|')");
    Expect("don|", "'", "don'|");     // a quote behind a word
    Expect("a = '|", "'", "a = ''|"); // what is open already
    Expect("ab^cd|e", "(", "ab(^cd|)e");
    Expect("|a\nb^", "\"", "\"|a\nb^\"");
}

TEST_F(SelfClosingTest, WritesOverItsOwnClosersOnly) {
    Expect("|", "f(g('x')) y", "f(g('x')) y|");
    Expect("|", "t[1] = {}", "t[1] = {}|");
    Expect("f(x|)", ")", "f(x)|)");
    Expect("|", "(<)", ")|");
    QSignalSpy typed(&editor, &QsciScintilla::SCN_CHARADDED);
    Expect("|", "(a)", "(a)|");
    EXPECT_EQ(typed.size(), 3); // as without it
    EXPECT_EQ(edits, 2);
    Expect("abcde\n|", "f()", "abcde\nf()|");
    Press("Up");
    EXPECT_EQ(Shown(), "abc|de\nf()"); // where the caret is seen
}

TEST_F(SelfClosingTest, BackspaceTakesAnEmptyPair) {
    Expect("f(|)", "<", "f|");
    Expect("|", "'<", "|");
    Expect("'a'|'b'", "<", "'a|'b'"); // no pair
    Expect("(|]", "<", "|]");
    Expect("(x|)", "<", "(|)");
}

TEST_F(SelfClosingTest, WorksTogetherWithTheIndent) {
    documents::Indenter indenter(editor);
    indenter.SetOn(true);
    Expect("|", "t = {\na", "t = {\n    a|\n}");
}

TEST_F(SelfClosingTest, CanBeSwitchedOffForAll) {
    const QString key = QStringLiteral("cerrar_parejas");
    documents::SharedSettings().Keep(key, false);
    Expect("|", "f(<(')", "f(')|");
    documents::SharedSettings().Keep(key, true);
    Expect("|", "f(", "f(|)");
}
