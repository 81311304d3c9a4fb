// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/Bookmarks.h"
#include "documents/EditorFixture.h"

namespace {

class BookmarksTest : public EditorFixture {
protected:
    documents::Bookmarks bookmarks{editor, commands, &window};
};

} // namespace

TEST_F(BookmarksTest, TheyAreSetGoneToAndTaken) {
    Put("a\nb|\nc\nd");
    Press("Ctrl+F2 Down Down Ctrl+F2 Alt+PgDown");
    EXPECT_EQ(Shown(), "a\n|b\nc\nd");
    Press("Alt+PgUp");
    EXPECT_EQ(Shown(), "a\nb\nc\n|d");
    Press("Alt+PgUp");
    EXPECT_EQ(Shown(), "a\n|b\nc\nd");
    editor.Replace(0, 0, "x\n"); // it moves with its line
    Press("Ctrl+F2 Alt+PgDown Alt+PgDown");
    EXPECT_EQ(Shown(), "x\na\nb\nc\n|d");
    Press("Ctrl+Home Alt+PgUp");
    EXPECT_EQ(Shown(), "x\na\nb\nc\n|d");
    EXPECT_EQ(edits, 1);
    Put("a\n|b"); // another text has none
    Press("Alt+PgDown");
    EXPECT_EQ(Shown(), "a\n|b");
}
