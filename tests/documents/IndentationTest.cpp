// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/write/Indentation.h"
#include "documents/EditorFixture.h"
#include "documents/editor/write/Indenter.h"

using documents::IndentUnit;

namespace {

class IndentationTest : public EditorFixture {
protected:
    IndentationTest() { indenter.SetOn(true); }
    // What is typed ('\n' is the Enter key) makes of the text before it.
    void Expect(const QByteArray& before, const QByteArray& typed, const std::string& after) {
        Put(before);
        Type(typed);
        EXPECT_EQ(Shown(), after) << before.toStdString() << " + " << typed.toStdString();
    }
    void Type(const QByteArray& typed) {
        for (const char letter : typed) {
            if (letter == '\n')
                QTest::keyClick(&editor, Qt::Key_Return);
            else
                QTest::keyClick(&editor, letter);
        }
    }
    documents::Indenter indenter{editor};
};

} // namespace

TEST_F(IndentationTest, NewLinesGoFurtherInBehindWhatOpens) {
    for (const char* line :
         {"if x then", "while x do", "else", "repeat", "t = {", "f(", "function f()",
          "local function f(a, b)", "f = function (...)", "function a.b:c(x)", "x = 1 do -- y",
          "for i = 1, 2 do \t", "f(function()"}) {
        Expect(QByteArray("  ") + line + "|", "\nx", std::string("  ") + line + "\n    x|");
        Expect(QByteArray("z\n\t") + line + "|\ny", "\n",
               std::string("z\n\t") + line + "\n\t\t|\ny");
    }
    for (const char* line :
         {"x = 1", "f()", "f(g(x))", "return x -- then", "x = 'do'", "x = y.z(1)", "--[[ do ]]",
          "end", "doo", "x = [[ then", "function f() g()"})
        Expect(QByteArray("  ") + line + "|", "\n", std::string("  ") + line + "\n  |");
    Expect("do\n  --[[ do|", "\n", "do\n  --[[ do\n  |");
    Expect("  x\n\n|", "\n", "  x\n\n\n  |"); // an empty line has no indent to take
    Expect("do|", "\n\nx", "do\n    \n    x|");
}

TEST_F(IndentationTest, LinesAreCutWithinTheirIndentAndTheirText) {
    Expect("  |  x", "\n", "  \n    |x");
    Expect("|  x", "\n", "\n  |x");
    Expect("    |x", "\n", "    \n    |x");
    Expect("  a|   b", "\n", "  a\n  |b");
    Expect("  f(^a\nb|)", "\n", "  f(\n    |\n  )"); // what was selected is gone
}

TEST_F(IndentationTest, AClosedBlockIsOpenedOnThreeLines) {
    Expect("  t = {|}", "\n", "  t = {\n    |\n  }");
    Expect("\tdo| end", "\n", "\tdo\n\t\t|\n\tend");
    Expect("f(function()|end)\r\n", "\n", "f(function()\r\n    |\r\nend)\r\n");
    Expect("do\n  x() | end", "\n", "do\n  x() \n|end");
}

TEST_F(IndentationTest, LinesStepBackUnderTheirOpener) {
    Expect("if x then\n    y()\n    |", "end", "if x then\n    y()\nend|");
    Expect("\tfor i = 1, 2 do\n\t\tif x then y() end\n\t\t|", "end",
           "\tfor i = 1, 2 do\n\t\tif x then y() end\n\tend|");
    Expect("if x then\n  y()\n  |", "elseif", "if x then\n  y()\nelseif|");
    Expect("if x then\n  y()\n  |\nend", "else\nz", "if x then\n  y()\nelse\n  z|\nend");
    Expect("repeat\n  f(function()\n    x = 'end'\n  end)\n  |", "until",
           "repeat\n  f(function()\n    x = 'end'\n  end)\nuntil|");
    Expect("  t = {\n    a = { 1 },\n    |", "}", "  t = {\n    a = { 1 },\n  }|");
    Expect("f(\n    a\n    |", ")", "f(\n    a\n)|");
    // Not for longer words, in strings, without an opener of that kind, or a second time.
    Expect("do\n    |", "endpoint", "do\n    endpoint|");
    Expect("if x then\n    |", "elsewhere", "if x then\n    elsewhere|");
    Expect("x = [[ do\n    |", "end", "x = [[ do\n    end|");
    Expect("do\n    |", "}", "do\n    }|");
    Expect("    |", "end", "    end|");
    Expect("do\n    |x", "end", "do\n    end|x");
    Expect("do\n    end|", " x", "do\n    end x|");
}

TEST_F(IndentationTest, OneKeyIsOneStepBack) {
    for (const char* text : {"  do|", "  t = {|}", "do|\r\n", "do|\r"}) {
        Put(text);
        Type("\n");
        EXPECT_EQ(edits, 1);
        editor.undo();
        EXPECT_EQ(Shown(), text);
    }
    indenter.SetOn(false);
    Expect("  do|", "\nend", "  do\nend|");
}

TEST_F(IndentationTest, TheStepIsTheOneMostUsed) {
    EXPECT_EQ(IndentUnit("a\n  b\nc\n  d\n     e\n", "?"), "  ");
    EXPECT_EQ(IndentUnit("a\r\tb\r\r\t\tc\r", "?"), "\t");
    EXPECT_EQ(IndentUnit("  a\n  b\nc\n", "?"), "  ");
    EXPECT_EQ(IndentUnit("f(a,\n               b)\n", "?"), "?");
    EXPECT_EQ(IndentUnit("", "?"), "?");
}
