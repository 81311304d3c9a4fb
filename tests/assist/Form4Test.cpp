// SPDX-License-Identifier: GPL-3.0-or-later
#include "assist/Form4.h"
#include "assist/Catalogo.h"
#include "platform/SSTab.h"
#include "support/MainWindow.h"

#include <QAccessible>
#include <QComboBox>
#include <QCryptographicHash>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

class Form4Test : public support::MainWindow {
protected:
    Form4Test() {
        principal.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&principal));
        Press("mnuarchivonuevo");
        script = Active();
        script->txtFile().Text(QString());
        Press("mnuherramientasventana");
        window = dynamic_cast<assist::Form4*>(principal.ActiveForm());
    }
    template<class Widget>
    Widget* Find(const char* name) {
        return window->findChild<Widget*>(QString::fromLatin1(name));
    }
    platform::SSTab* Tabs() { return Find<platform::SSTab>("SSTab1"); }
    void Insert() { QTest::mouseClick(Find<QPushButton>("KewlButtons1"), Qt::LeftButton); }
    // What a press of "Insertar" puts into an empty script.
    QString Inserted() {
        script->txtFile().Text(QString());
        Insert();
        return script->txtFile().Text();
    }
    // Each entry as it's seen and what it inserts: its tab, its control's name, its caption, the
    // text.
    QStringList Shown() {
        QStringList shown;
        for (size_t i = 0; i < assist::Pestanas().size(); ++i) {
            Tabs()->Tab(static_cast<int>(i));
            auto* frame = Find<QGroupBox>(assist::Pestanas()[i].marco);
            for (auto* option : frame->findChildren<QRadioButton*>()) {
                EXPECT_TRUE(option->isVisibleTo(window) &&
                            frame->rect().contains({option->pos(), option->sizeHint()}));
                EXPECT_EQ(option->isChecked(), option == frame->findChild<QRadioButton*>());
                option->click();
                shown.append(
                    u"%1 %2 %3 %4"_s.arg(i).arg(option->objectName(), option->text(), Inserted()));
            }
            if (auto* list = frame->findChild<QComboBox*>()) {
                EXPECT_EQ(list->currentIndex(), 0);
                for (int entry = 0; entry < list->count(); ++entry) {
                    list->setCurrentIndex(entry);
                    shown.append(u"%1 %2 %3 %4"_s.arg(i).arg(list->objectName(),
                                                             list->currentText(), Inserted()));
                }
            }
        }
        return shown;
    }

    documents::frmDocumento* script;
    assist::Form4* window;
};

} // namespace

TEST_F(Form4Test, EveryEntryIsInSightAndInsertsItself) {
    ASSERT_EQ(assist::Pestanas().size(), 12U);
    QStringList captions;
    for (const auto* tab : Tabs()->findChildren<QToolButton*>())
        captions.append(tab->text());
    EXPECT_EQ(captions.join(u' '), u"Pantalla Imagenes Fuentes Controles Bucles Bateria IrDA "
                                   "Entrada/Salida Memoria Usb Sonido Wlan"_s);
    EXPECT_EQ(Find<QGroupBox>("Frame13")->title(), u"Direccion, juego y botonos principales"_s);
    EXPECT_EQ(Find<QGroupBox>("Frame18")->title(), u"Music, Sound  y Voice"_s);
    const QStringList shown = Shown();
    EXPECT_EQ(shown.size(), 95);
    EXPECT_TRUE(shown.contains(u"1 Option12 Image:pixel(x, y) Image:pixel(x, y))"_s));
    EXPECT_TRUE(shown.contains(u"4 Option24 while true do ... end while true do\r\n\r\nend"_s));
    // All of them as they were given; a change that is meant needs another sum.
    const QByteArray all = shown.join(u'\n').toUtf8();
    EXPECT_EQ(QCryptographicHash::hash(all, QCryptographicHash::Sha1).toHex(),
              "a3e633a6383fd88c25b5707b1a570cdebdc91be1")
        << all.toStdString();
}

TEST_F(Form4Test, TheSnippetReplacesTheSelectionAndTypingGoesOn) {
    script->txtFile().OpenFile(home.Put("a.lua", "dos palabras\n"));
    script->txtFile().ExecuteCmd(137);
    Tabs()->Tab(4);
    Insert();
    EXPECT_EQ(script->txtFile().Text(), u"while true do\r\n\r\nend"_s);
    EXPECT_EQ(principal.ActiveForm(), script);
    QTest::keyClicks(QApplication::focusWidget(), u"x"_s);
    EXPECT_EQ(script->txtFile().Text(), u"while true do\r\n\r\nendx"_s);
    script->txtFile().Undo();
    script->txtFile().Undo(); // one step
    EXPECT_EQ(script->txtFile().Text(), u"dos palabras\n"_s);
}

TEST_F(Form4Test, ItStandsBesideTheScriptAndStartsAnew) {
    EXPECT_EQ(window->Caption(), QString(61, u' ') + u"Ventana de códigos"_s);
    EXPECT_EQ(window->Shell()->pos(), QPoint(533, 0));
    script->State(platform::WindowState::Minimised);
    Tabs()->Tab(1);
    Insert();
    EXPECT_EQ(script->State(), platform::WindowState::Normal);
    Press("mnuherramientasventana");
    EXPECT_EQ(principal.ActiveForm(), window);
    QTest::mouseClick(Find<QPushButton>("KewlButtons2"), Qt::LeftButton);
    principal.mnuherramientasventana_Click(); // at once, before the old one is destroyed
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    window = dynamic_cast<assist::Form4*>(principal.ActiveForm());
    ASSERT_TRUE(window);
    EXPECT_EQ(Tabs()->Tab(), 0);
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_FALSE(principal.ActiveForm() == window);
}

TEST_F(Form4Test, TheYoungestNewScriptIsTheTarget) {
    Press("mnuarchivonuevo");
    documents::frmDocumento* younger = Active();
    Abrir(home.Put("a.lua", "x"));
    Insert();
    EXPECT_TRUE(younger->txtFile().Text().startsWith(u"screen.waitVblankStart()while"_s));
    EXPECT_EQ(Inserted(), QString());
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
    EXPECT_EQ(typed(u"controls.read()"_s), QString());
    EXPECT_EQ(list->currentText(), u"controls.read()"_s);
    EXPECT_EQ(typed(u"Controls.read():up()"_s), u"Controls.read():up()"_s);
    list->clearEditText();
    EXPECT_EQ(Inserted(), QString());
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
        EXPECT_TRUE(Find<QWidget>(next)->hasFocus()) << next;
    }
    Tabs()->setFocus();
    EXPECT_EQ(press(Qt::Key_Left), 11);
    EXPECT_EQ(press(Qt::Key_Right), 0);
    EXPECT_EQ(press(Qt::Key_Right), 1);
    EXPECT_EQ(press(Qt::Key_Down), 7);
    EXPECT_EQ(press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier), 6);
    EXPECT_EQ(press(Qt::Key_Tab), 6);
    EXPECT_TRUE(Find<QRadioButton>("Option39")->hasFocus());
    press(Qt::Key_Tab);
    EXPECT_TRUE(Find<QPushButton>("KewlButtons1")->hasFocus());
    EXPECT_EQ(press(Qt::Key_Tab, Qt::ControlModifier), 7);
    Tabs()->Tab(11);
    EXPECT_EQ(press(Qt::Key_Tab, Qt::ControlModifier), 0);
    press(Qt::Key_Return);
    EXPECT_EQ(script->txtFile().Text(), u"screen.waitVblankStart()"_s);

    auto* second = Tabs()->findChildren<QToolButton*>().at(1);
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(second);
    EXPECT_EQ(spoken->role(), QAccessible::PageTab);
    EXPECT_EQ(spoken->parent()->role(), QAccessible::PageTabList);
    EXPECT_EQ(spoken->parent()->childCount(), 12);
    EXPECT_EQ(spoken->text(QAccessible::Name), u"Imagenes"_s);
    EXPECT_FALSE(spoken->state().selected);
    spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(spoken->state().selected);
    EXPECT_EQ(Tabs()->Tab(), 1);
}
