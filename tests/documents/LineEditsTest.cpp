// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/EditorFixture.h"
#include "documents/editor/write/LineCommands.h"

namespace {

class LineEditsTest : public EditorFixture {
protected:
    // What a key makes of a text, in one step that can be taken back.
    void Expect(const char* keys, const QByteArray& before, const std::string& after) {
        Put(before);
        const QByteArray text = editor.Bytes();
        Press(keys);
        EXPECT_EQ(Shown(), after) << keys << ": " << before.toStdString();
        EXPECT_EQ(edits, editor.Bytes() == text ? 0 : 1) << keys << ": " << before.toStdString();
        editor.undo();
        EXPECT_EQ(editor.Bytes(), text) << keys << ": " << before.toStdString();
    }
    documents::LineCommands lines{editor, commands};
};

} // namespace

TEST_F(LineEditsTest, CommentsGoOnAndOff) {
    const char* key = "Ctrl+K";
    Expect(key, "\tx|y", "\t-- x|y");
    Expect(key, "|x\r\ny", "-- |x\r\ny");
    Expect(key, "^  a\n\n    b\n \n|  c", "^  -- a\n\n  --   b\n \n|  c");
    Expect(key, "\ta^\n  b|", "-- \ta^\n--   b|"); // no indent in common
    Expect(key, "^-- a\n  --b\n\nc|", "^-- -- a\n--   --b\n\n-- c|");
    Expect(key, "^-- -- a\n--   --b\n\n-- c|", "^-- a\n  --b\n\nc|");
    Expect(key, " --^[a\n--[=a|\n", " ^[a\n[=a|\n");
    Expect(key, "--[[ a ]]|\n", "-- --[[ a ]]|\n"); // a long one isn't taken apart
    Expect(key, "--[==[ ^a ]==]|", "-- --[==[ ^a ]==]|");
    Expect(key, "-|- ñ", "|ñ");
    for (const char* text : {"|", "a\n|", "^ \n\t\n|"})
        Expect(key, text, text);
}

TEST_F(LineEditsTest, LinesAreDoubledAndDeleted) {
    const char* twice = "Ctrl+D";
    Expect(twice, "añ|o\r\nb", "año\r\nañ|o\r\nb");
    Expect(twice, "a\nb|c", "a\nbc\nb|c");
    Expect(twice, "a\r|", "a\r\r|");
    Expect(twice, "x ^ab| y", "x ab^ab| y");
    Expect(twice, "|a\nb\n^c", "a\nb\n|a\nb\n^c");
    const char* away = "Ctrl+Shift+K";
    Expect(away, "a\nb|b\nc", "a\n|c");
    Expect(away, "a\r\nb|", "|a");
    Expect(away, "a\n|", "|a");
    Expect(away, "a^\nb\n|c\n", "|c\n");
    Expect(away, "a|", "|");
    Expect(away, "|", "|");
}

TEST_F(LineEditsTest, LinesMoveBetweenTheirLineEnds) {
    const char* up = "Alt+Up";
    const char* down = "Alt+Down";
    const std::pair<const char*, const char*> pairs[] = {
        {"a\nb|b\nc\n", "b|b\na\nc\n"},         {"a\r\n|ñ", "|ñ\r\na"},
        {"aa\r\n^b\nc\r|d", "^b\r\nc\n|aa\rd"}, // mixed ends
        {"aa\r\n^b\nc|", "^b\r\nc|\naa"},       {"a\n|\nb", "|\na\nb"},
        {"a\nb^b\nc|c\n", "b^b\nc|c\na\n"},
    };
    for (const auto& [low, high] : pairs) {
        Expect(up, low, high);
        Expect(down, high, low);
    }
    // What stands at an edge stays, and so does the empty line behind the last line end.
    for (const char* text : {"a|\nb", "|", "a\n|", "^a\n|b"})
        Expect(up, text, text);
    for (const char* text : {"a\nb|", "a\nb|\n", "|", "a\n^b\n|"})
        Expect(down, text, text);
}

TEST_F(LineEditsTest, ACrAndAnLfOfTwoLinesDontBecomeOneLineEnd) {
    Expect("Ctrl+Shift+K", "a\rb|\r\n\nc", "a\r|\r\nc");
    Expect("Ctrl+Shift+K", "a\rb|\n", "a\r|"); // nothing below
    Expect("Alt+Up", "x\ra\n|\ny", "x\r|\r\na\ny");
    Expect("Alt+Up", "|\r", "|\r");
    Expect("Alt+Up", "a\r^b\n\n|y", "^b\r\r\n|a\ny");
    Expect("Alt+Up", "\rb|\ny", "b|\r\r\ny");
    Expect("Alt+Down", "x\ra|\n\ny", "x\r\r\na|\ny");
    Expect("Alt+Down", "|\rb\ny", "b\r|\r\ny");
}

TEST_F(LineEditsTest, MarksStayWithTheirLines) {
    const auto marked = [&](unsigned long from) {
        return editor.SendScintilla(QsciScintilla::SCI_MARKERNEXT, from, 1L);
    };
    Put("a\n^b\nc\nd|\n");
    editor.SendScintilla(QsciScintilla::SCI_MARKERADD, 2UL, 0L);
    for (const auto& [key, line] : {std::pair("Ctrl+K", 2), {"Alt+Up", 1}, {"Alt+Down", 2}}) {
        Press(key);
        EXPECT_EQ(marked(0), line) << key;
    }
    // Many lines change at once.
    const QByteArray text = QByteArray("  x\n\n").repeated(2000);
    Put("^" + text + "|");
    for (const unsigned long line : {7UL, 3999UL})
        editor.SendScintilla(QsciScintilla::SCI_MARKERADD, line, 0L);
    Press("Ctrl+K");
    EXPECT_EQ(editor.Bytes(), QByteArray("  -- x\n\n").repeated(2000));
    EXPECT_EQ(edits, 1);
    EXPECT_EQ(marked(0), 7);
    EXPECT_EQ(marked(8), 3999);
    Press("Ctrl+K");
    EXPECT_EQ(editor.Bytes(), text);
}

TEST_F(LineEditsTest, TabMovesLinesByTheStepOfTheText) {
    Expect("Tab", "if\n  x\n^a\n\n b|", "if\n  x\n^  a\n\n   b|");
    Expect("Tab", "if\n\tx\n^abc|", "if\n\tx\n^\tabc|");
    Expect("Shift+Backtab", "if\n  x\n    a|", "if\n  x\n  a|");
    Expect("Shift+Backtab", "if\n\tx\n    ^a\n\tb\n c\n\n|d", "if\n\tx\n^a\nb\nc\n\n|d");
    Expect("Shift+Backtab", "x|", "x|");
    Put("ab^c| d");
    Press("Tab");
    EXPECT_EQ(Shown(), "ab  | d");
    editor.setIndentationsUseTabs(true);
    Expect("Tab", "^a|", "^\ta|");
}
