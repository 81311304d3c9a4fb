// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/engine/CodeMaxConstants.h"
#include "platform/controls/SSTab.h"
#include "support/MainWindow.h"

#include <QAccessible>
#include <QComboBox>
#include <QCryptographicHash>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

class Form4Test : public support::MainWindow {
protected:
    Form4Test() {
        Press("mnuarchivonuevo");
        script = Active();
        script->txtFile().Text(QString());
        Open("mnuherramientasventana");
    }
    platform::SSTab* Tabs() { return Find<platform::SSTab>("SSTab1"); }
    void Insert() { Click("KewlButtons1"); }
    // What a press of "Insertar" puts into an empty script.
    QString Inserted() {
        script->txtFile().Text(QString());
        Insert();
        return script->txtFile().Text();
    }
    // Each entry as it's seen and what it inserts: tab, control's name, caption, text.
    QStringList Shown() {
        QStringList shown;
        for (int i = 0; const auto* tab : Tabs()->findChildren<QToolButton*>()) {
            Tabs()->Tab(i++);
            auto* frame = Find<QGroupBox>(("Frame" + std::to_string(i)).c_str());
            const auto show = [&](const QWidget* control, const QString& caption) {
                shown.append(tab->text() + u' ' + control->objectName() + u' ' + caption + u' ' +
                             Inserted());
            };
            for (auto* option : frame->findChildren<QRadioButton*>()) {
                EXPECT_TRUE(option->isVisibleTo(tool) &&
                            frame->rect().contains({option->pos(), option->sizeHint()}));
                EXPECT_EQ(option->isChecked(), option == frame->findChild<QRadioButton*>());
                option->click();
                show(option, option->text());
            }
            for (auto* list : frame->findChildren<QComboBox*>()) {
                EXPECT_EQ(list->currentIndex(), 0);
                for (int entry = 0; entry < list->count(); ++entry) {
                    list->setCurrentIndex(entry);
                    show(list, list->currentText());
                }
                const auto* inner = frame->findChild<QGroupBox*>();
                shown.append(inner->objectName() + inner->title() + list->accessibleName());
            }
        }
        return shown;
    }

    documents::frmDocumento* script;
};

} // namespace

TEST_F(Form4Test, EveryEntryIsInSightAndInsertsItself) {
    // All of them as they were given; a change that is meant needs another sum.
    const QByteArray all = Shown().join(u'\n').toUtf8();
    EXPECT_EQ(QCryptographicHash::hash(all, QCryptographicHash::Sha1).toHex(),
              "deb9663c2e2318a9800191500ce8db990970c439")
        << all.toStdString();
}

TEST_F(Form4Test, TheSnippetReplacesTheSelectionAndTypingGoesOn) {
    script->txtFile().OpenFile(home.Put("a.lua", "dos palabras\n"));
    script->txtFile().ExecuteCmd(documents::kSelectAllCommand);
    Tabs()->Tab(4);
    Insert();
    EXPECT_EQ(script->txtFile().Text(), u"while true do\r\n\r\nend"_s);
    EXPECT_EQ(principal.ActiveForm(), script);
    QTest::keyClicks(QApplication::focusWidget(), u"x"_s);
    EXPECT_EQ(script->txtFile().Text(), u"while true do\r\n\r\nendx"_s);
}

TEST_F(Form4Test, ItStandsBesideTheScriptAndStartsAnew) {
    const platform::Form* window = principal.ActiveForm();
    EXPECT_EQ(window->Caption(), QString(61, u' ') + u"Ventana de códigos"_s);
    EXPECT_EQ(window->Shell()->pos(), QPoint(support::kDocumentWidth, 0));
    script->State(platform::WindowState::Minimised);
    Tabs()->Tab(1);
    Insert();
    EXPECT_EQ(script->State(), platform::WindowState::Normal);
    Open("mnuherramientasventana");
    EXPECT_EQ(tool, window);
    Click("KewlButtons2");
    principal.mnuherramientasventana_Click(); // at once, before the old one is destroyed
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    tool = principal.ActiveForm();
    EXPECT_EQ(Tabs()->Tab(), 0);
    QTest::keyClick(tool, Qt::Key_Escape);
    EXPECT_NE(principal.ActiveForm(), tool);
}

TEST_F(Form4Test, TheYoungestNewScriptIsTheTarget) {
    Press("mnuarchivonuevo");
    documents::frmDocumento* younger = Active();
    Abrir(home.Put("a.lua", "x"));
    EXPECT_EQ(Inserted(), QString());
    EXPECT_TRUE(younger->txtFile().Text().startsWith(u"screen.waitVblankStart()while"_s));
    younger->flagGuardar = false;
    younger->Unload();
    Press("mnuherramientasventana");
    EXPECT_EQ(Inserted(), QString()); // without a target nothing happens
}

TEST_F(Form4Test, AListTakesItsEntriesExactly) {
    Tabs()->Tab(3);
    auto* list = Find<QComboBox>("Combo1");
    const auto typed = [&](const QString& text) {
        list->lineEdit()->selectAll();
        QTest::keyClicks(list->lineEdit(), text);
        return Inserted();
    };
    EXPECT_EQ(typed(u"controls.read()"_s), QString()); // it stays as it is typed
    EXPECT_EQ(typed(u"Controls.read():up()"_s), u"Controls.read():up()"_s);
    QTest::keyClicks(list->lineEdit(), u"print()\r"_s); // is no entry from now on
    EXPECT_EQ(list->count(), 16);
}

TEST_F(Form4Test, TabsAreReachedByKeysAndSpokenOf) {
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(principal.windowHandle(), key, modifiers);
        return Tabs()->Tab();
    };
    for (const char* next : {"Option1", "KewlButtons1", "KewlButtons2"}) {
        press(Qt::Key_Tab);
        EXPECT_TRUE(Find(next)->hasFocus()) << next;
    }
    Tabs()->setFocus();
    EXPECT_EQ(press(Qt::Key_Left), 11);
    EXPECT_EQ(press(Qt::Key_Right), 0);
    EXPECT_EQ(press(Qt::Key_Right), 1);
    EXPECT_EQ(press(Qt::Key_Down), 7);
    EXPECT_EQ(press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier), 6);
    EXPECT_EQ(press(Qt::Key_Tab), 6);
    EXPECT_TRUE(Find("Option39")->hasFocus());
    press(Qt::Key_Tab);
    EXPECT_TRUE(Find("KewlButtons1")->hasFocus());
    EXPECT_EQ(press(Qt::Key_Tab, Qt::ControlModifier), 7);
    Tabs()->Tab(11);
    EXPECT_EQ(press(Qt::Key_Tab, Qt::ControlModifier), 0);
    press(Qt::Key_Return);
    EXPECT_EQ(script->txtFile().Text(), u"screen.waitVblankStart()"_s);
    auto* second = Tabs()->findChildren<QToolButton*>().at(1);
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(second);
    EXPECT_EQ(spoken->role(), QAccessible::PageTab);
    EXPECT_EQ(spoken->parent()->role(), QAccessible::PageTabList);
    EXPECT_EQ(spoken->text(QAccessible::Name), u"Imagenes"_s);
    EXPECT_FALSE(spoken->state().selected);
    spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(spoken->state().selected);
    EXPECT_EQ(Tabs()->Tab(), 1);
}
