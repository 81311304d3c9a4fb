// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/find/FolderSearchPane.h"
#include "support/TestHome.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace documents;

namespace {

class FolderSearchTest : public testing::Test {
protected:
    FolderSearchTest() {
        auto* layout = new QVBoxLayout(&control);
        layout->addWidget(&editor);
        layout->addWidget(&pane);
        control.show();
        control.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&control));
        editor.setFocus();
        QTest::keyClick(&editor, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    }
    // The rows as "file:line:text", when the search is over.
    QStringList Look(const QString& what) {
        field->setText(what);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitFor([&] { return State() != u"Buscando…"_s; }));
        QStringList rows;
        for (int i = 0; i < list->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* row = list->topLevelItem(i);
            rows.append(row->text(0) + u':' + row->text(1) + u':' + row->text(2));
        }
        return rows;
    }
    QString State() { return pane.findChild<QLabel*>()->text(); }

    support::TestHome home;
    QString folder = u"C:\\juego"_s;
    QWidget control;
    ScriptEditor editor{&control};
    CommandSet commands{editor, control};
    FolderSearchPane pane{editor, commands, [this] { return folder; }, &control};
    QLineEdit* field = pane.findChild<QLineEdit*>();
    QTreeWidget* list = pane.findChild<QTreeWidget*>();
};

} // namespace

TEST_F(FolderSearchTest, ListsTheLinesOfAllScriptsBelow) {
    home.Put("juego/b.lua", "x\r\n  a\xF1o a\xF1o\r\ry = a\xF1o"); // in the code page
    home.Put("juego/a.QMK", u"\uFEFFAÑO"_s.toUtf8());
    home.Put("juego/lib/c.lua", u"-- →\n\n\taño"_s.toUtf8());
    home.Put("juego/d.txt", u"año"_s.toUtf8());
    home.Put("juego/e.lua", QByteArray("\0año", 4));
    home.Put("otro/f.lua", u"año"_s.toUtf8());
    home.Put("juego/raro\x01?.lua", "z");
    EXPECT_EQ(Look(u"año"_s), (QStringList{u"a.QMK:1:AÑO"_s, u"b.lua:2:año año"_s,
                                           u"b.lua:4:y = año"_s, u"lib\\c.lua:3:año"_s}));
    EXPECT_EQ(State(), u"4 líneas en 4 archivos guardados · 1 no se ha podido leer"_s);
    QSignalSpy wanted(&pane, &FolderSearchPane::OpenAt);
    list->setCurrentItem(list->topLevelItem(3));
    QTest::keyClick(list, Qt::Key_Return);
    ASSERT_EQ(wanted.count(), 1);
    EXPECT_EQ(wanted[0][0].toString(), u"C:\\juego\\lib\\c.lua"_s);
    EXPECT_EQ(wanted[0][1].value<qsizetype>(), 2);
    field->setFocus();
    EXPECT_EQ(Look(u"nada"_s), QStringList());
    EXPECT_EQ(State(), u"No se encuentra en 4 archivos guardados · 1 no se ha podido leer"_s);
}

TEST_F(FolderSearchTest, NothingInTheFolderHoldsItUp) {
    const std::filesystem::path root = home.Root() / "juego";
    home.Put("juego/a.lua", QByteArray("x\n").repeated(FolderSearch::kMostLines + 1));
    std::filesystem::create_directory_symlink(root, root / "vuelta");
    std::filesystem::create_symlink("circulo.lua", root / "circulo.lua");
    ASSERT_EQ(mkfifo((root / "tubo.lua").c_str(), 0600), 0);
    home.Put("juego/ancho.lua", QByteArray(1 << 20, 'y'));
    std::filesystem::resize_file(root / "ancho.lua", FolderSearch::kLargestFile + 1);
    EXPECT_EQ(Look(u"y"_s), QStringList());
    EXPECT_EQ(State(), u"No se encuentra en 1 archivo guardado · 3 no se han podido leer"_s);
    EXPECT_EQ(Look(u"x"_s).size(), FolderSearch::kMostLines);
    EXPECT_TRUE(State().endsWith(u"puede haber más"_s)) << State().toStdString();
    // A new search or none takes the place of one that is still running.
    home.Put("juego/a.lua", QByteArray("(a\n").repeated(1 << 20));
    for (int i = 0; i < 20; ++i)
        QTest::keyClick(field, Qt::Key_Return);
    QTest::mouseClick(pane.findChildren<QAbstractButton*>()[0], Qt::LeftButton);
    EXPECT_EQ(State(), u"Detenido"_s);
    EXPECT_EQ(Look(u"(a"_s).size(), FolderSearch::kMostLines);
    QTest::keyClick(field, Qt::Key_Return);
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_FALSE(pane.isVisible());
    EXPECT_TRUE(editor.hasFocus());
    QTest::keyClick(&editor, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(field, Qt::Key_Return); // and is running when all is gone
}

TEST_F(FolderSearchTest, SaysWhyItCannotSearch) {
    folder = QString();
    EXPECT_EQ(Look(u"x"_s), QStringList());
    EXPECT_EQ(State(), u"Guarda antes el script: se busca en su carpeta."_s);
    folder = u"Q:\\nada"_s;
    Look(u"x"_s);
    EXPECT_FALSE(State().isEmpty());
    folder = u"C:\\nada"_s;
    Look(u"x"_s);
    EXPECT_EQ(State(), u"No se encuentra en 0 archivos guardados"_s);
    pane.findChildren<QAbstractButton*>()[4]->click();
    Look(u"["_s);
    EXPECT_EQ(State(), u"El patrón no vale: falta el ] de un conjunto"_s);
}
