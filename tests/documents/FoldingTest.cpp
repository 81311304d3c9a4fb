// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/Folding.h"
#include "documents/EditorFixture.h"

namespace {

class FoldingTest : public EditorFixture {
protected:
    FoldingTest() { editor.SetLuaColors(true); }
    // The numbers of the lines that are seen.
    std::string Seen() {
        std::string seen;
        for (int line = 0; line < editor.lines(); ++line) {
            if (editor.SendScintilla(QsciScintilla::SCI_GETLINEVISIBLE, line) != 0)
                seen += std::to_string(line);
        }
        return seen;
    }
    documents::Folding folding{editor, commands, &window};
};

// 0 to 8
constexpr const char* kNested = "function f()\n  if x then\n    |y()\n  end\nend\n"
                                "\nrepeat\n  z()\nuntil x";

} // namespace

TEST_F(FoldingTest, TheBlockAtTheCaretFoldsAndUnfolds) {
    Put(kNested);
    Press("Ctrl+M");
    EXPECT_EQ(Seen(), "0145678");
    EXPECT_EQ(editor.LineOf(editor.Caret()), 1); // as its line is hidden
    Press("Ctrl+M");
    EXPECT_EQ(Seen(), "012345678");
    editor.GoTo(0);
    Press("Ctrl+M");
    EXPECT_EQ(Seen(), "05678");
    for (const char* block : {"for i = 1, 2 do", "while x do", "do", "repeat", "t = {", "--[[ x"}) {
        const QByteArray end = block[0] == 'r'   ? "until x"
                               : block[0] == 't' ? "}"
                               : block[0] == '-' ? "]]"
                                                 : "end";
        Put(QByteArray(block) + "|\n x()\n" + end + "\ny()");
        Press("Ctrl+M");
        EXPECT_EQ(Seen(), "03") << block;
    }
    for (const char* text : {"|", "x()\n|", "if x then y() end|\n\nz()"}) {
        Put(text);
        Press("Ctrl+M");
        EXPECT_EQ(editor.SendScintilla(QsciScintilla::SCI_GETALLLINESVISIBLE), 1) << text;
    }
    Put("if x then|\n  y()\n"); // without its end
    Press("Ctrl+M");
    EXPECT_EQ(Seen().front(), '0');
    EXPECT_EQ(edits, 0);
}

TEST_F(FoldingTest, AllFoldAndUnfoldAndTheCaretStaysInSight) {
    Put(kNested);
    Press("Ctrl+Shift+M");
    EXPECT_EQ(Seen(), "056");
    EXPECT_EQ(editor.LineOf(editor.Caret()), 0);
    Press("Ctrl+Shift+M");
    EXPECT_EQ(Seen(), "012345678");
}

TEST_F(FoldingTest, WhatIsGoneToOrChangedUnfolds) {
    Put(kNested);
    Press("Ctrl+Shift+M");
    editor.GoTo(editor.LineStart(7));
    EXPECT_EQ(Seen(), "05678");
    editor.Replace(editor.LineStart(2), editor.LineStart(2), "w()");
    EXPECT_NE(Seen().find('2'), std::string::npos);
}

TEST_F(FoldingTest, WithoutColorsNothingIsFolded) {
    Put(kNested);
    Press("Ctrl+Shift+M");
    EXPECT_GT(editor.marginWidth(2), 0);
    editor.SetLuaColors(false);
    EXPECT_EQ(Seen(), "012345678");
    EXPECT_EQ(editor.marginWidth(2), 0);
    for (const char* key : {"Ctrl+M", "Ctrl+Shift+M"})
        Press(key);
    EXPECT_EQ(Seen(), "012345678");
}
