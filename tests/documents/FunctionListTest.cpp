// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/FunctionList.h"
#include "documents/EditorFixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QListView>

namespace {

class FunctionListTest : public EditorFixture {
protected:
    // The names that are shown, with a > before the chosen one.
    std::string Listed() {
        const auto* view = list.findChild<QListView*>();
        std::string names;
        for (int row = 0; row < view->model()->rowCount(); ++row) {
            const QModelIndex index = view->model()->index(row, 0);
            names += (index == view->currentIndex() ? ">" : "") +
                     index.data().toString().toStdString() + "\n";
        }
        return names;
    }
    void PressInField(Qt::Key key) { QTest::keyClick(Field(), key); }
    QLineEdit* Field() { return list.findChild<QLineEdit*>(); }

    documents::FunctionList list{editor, commands, &window};
};

constexpr const char* kScript = "function uno(a)\nend\nlocal dos = function()\n|x()\nend\n"
                                "function t.tres() end";

} // namespace

TEST_F(FunctionListTest, ItsKeysFilterChooseAndGo) {
    Put(kScript);
    Press("Ctrl+Shift+O");
    EXPECT_TRUE(list.isVisible() && Field()->hasFocus());
    EXPECT_EQ(Listed(), "uno(a)  · línea 1\n>dos()  · línea 3\nt.tres()  · línea 6\n");
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_PageDown})
        PressInField(key);
    EXPECT_EQ(Listed(), "uno(a)  · línea 1\ndos()  · línea 3\n>t.tres()  · línea 6\n");
    QTest::keyClicks(Field(), "O");
    EXPECT_EQ(Listed(), ">uno(a)  · línea 1\ndos()  · línea 3\n");
    PressInField(Qt::Key_Down);
    PressInField(Qt::Key_Return);
    EXPECT_TRUE(list.isHidden() && editor.hasFocus());
    EXPECT_EQ(editor.Caret(), 26);
    Press("Ctrl+Shift+O");
    QTest::keyClicks(Field(), "ea"); // of "línea", which isn't part of a name
    EXPECT_EQ(Listed(), "");
    PressInField(Qt::Key_Return);
    EXPECT_EQ(editor.Caret(), 26);
    EXPECT_EQ(edits, 0);
}

TEST_F(FunctionListTest, EscapeAndTheFocusElsewhereCloseIt) {
    Put(kScript);
    Press("Ctrl+Shift+O");
    PressInField(Qt::Key_Escape);
    EXPECT_TRUE(list.isHidden() && editor.hasFocus());
    EXPECT_EQ(Shown(), kScript);
    Press("Ctrl+Shift+O");
    editor.setFocus();
    EXPECT_TRUE(list.isHidden());
}

TEST_F(FunctionListTest, ItStaysInsideTheTextHoweverManyAreListed) {
    Put(QByteArray("function f() end ").repeated(2000) + "|");
    Press("Ctrl+Shift+O");
    for (const QSize size : {QSize(400, 300), QSize(120, 60)}) {
        editor.resize(size);
        EXPECT_TRUE(editor.geometry().contains(list.geometry())) << size.width();
    }
    Put("|x()");
    Press("Ctrl+Shift+O");
    EXPECT_EQ(Listed(), "");
}
