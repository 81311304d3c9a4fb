// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/BlockPairs.h"
#include "documents/EditorFixture.h"
#include "documents/editor/engine/Layers.h"

#include <QSignalSpy>

namespace {

class BlockPairsTest : public EditorFixture {
protected:
    // The marked pieces of the text, a while after the caret rests.
    std::string Marked() {
        QTest::qWait(400);
        std::string marked;
        for (qsizetype at = 0; at < editor.Length(); ++at) {
            if (editor.SendScintilla(QsciScintilla::SCI_INDICATORVALUEAT,
                                     static_cast<unsigned long>(documents::kPairIndicator),
                                     static_cast<long>(at)) != 0)
                marked += std::to_string(at) + editor.Range(at, at + 1).toStdString() + " ";
        }
        return marked;
    }
    documents::BlockPairs pairs{editor, commands, &window};
};

} // namespace

TEST_F(BlockPairsTest, TheKeyJumpsToTheOtherSideAndBack) {
    Put("-- ñ\nwhi|le a do\n  b()\nend");
    Press("Ctrl+B");
    EXPECT_EQ(Shown(), "-- ñ\nwhile a do\n  b()\n|end");
    Press("Ctrl+B");
    EXPECT_EQ(Shown(), "-- ñ\n|while a do\n  b()\nend");
    for (const char* text : {"|", "x| = 1", "end|", "if| x then"}) {
        Put(text);
        Press("Ctrl+B");
        EXPECT_EQ(Shown(), text);
    }
}

TEST_F(BlockPairsTest, ThePairAtTheRestingCaretIsMarked) {
    Put("|do x() end");
    EXPECT_EQ(Marked(), "0d 1o 7e 8n 9d ");
    const QSignalSpy updates(&editor, &QsciScintillaBase::SCN_UPDATEUI);
    EXPECT_EQ(Marked(), "0d 1o 7e 8n 9d ");
    EXPECT_EQ(updates.size(), 0); // all is at rest then
    editor.GoTo(4);
    EXPECT_EQ(Marked(), "");
    editor.GoTo(10);
    EXPECT_EQ(Marked(), "0d 1o 7e 8n 9d ");
    QTest::keyClick(&editor, Qt::Key_X); // "endx" ends nothing
    EXPECT_EQ(Marked(), "");
    EXPECT_EQ(edits, 1);
    Put("do end " + QByteArray((1 << 20), ' ') + "|");
    editor.GoTo(0);
    EXPECT_EQ(Marked(), ""); // too large
}
