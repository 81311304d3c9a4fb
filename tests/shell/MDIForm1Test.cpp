// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MDIForm1.h"
#include "support/MainWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QMdiArea>
#include <QMimeData>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;
using documents::frmDocumento;
using platform::Answer;
using platform::WindowState;

namespace {

class MDIForm1Test : public support::MainWindow {
protected:
    QWidget* Inside() { return principal.findChild<QMdiArea*>()->viewport(); }
    QRect Area() { return Inside()->rect(); }
    bool InSight(const QWidget* widget) {
        return Area().contains({widget->mapTo(Inside(), QPoint(0, 0)), widget->size()});
    }
    // What the windows cover with this, all in sight and none over another.
    QRegion Apart(QRegion covered = {}) {
        for (const platform::Form* form : Windows()) {
            const QRect place = form->Shell()->geometry();
            EXPECT_TRUE(InSight(form->Shell()) && !covered.intersects(place));
            covered += place;
        }
        return covered;
    }
};

} // namespace

TEST_F(MDIForm1Test, NewDocumentsAreNumberedByTheirCount) {
    // A second one comes while the explorer of the first still reads its folder.
    QTimer::singleShot(0, &principal, &shell::MDIForm1::mnuarchivonuevo_Click);
    principal.mnuarchivonuevo_Click();
    EXPECT_EQ(principal.ActiveForm()->Caption(), u"Explorador"_s); // comes in front
    EXPECT_EQ(Captions(), QStringList({u"Nuevo script 1"_s, u"Nuevo script 2"_s}));
    EXPECT_EQ(principal.FrmDoc, Windows()[1]);
    Windows()[0]->Unload();
    Press("mnuarchivonuevo");
    EXPECT_EQ(Captions(), QStringList({u"Nuevo script 2"_s, u"Nuevo script 2"_s}));
    principal.FrmDoc->Unload();
    EXPECT_TRUE(principal.FrmDoc.isNull());
    EXPECT_EQ(compartido.numero_documentos, 1);
}

TEST_F(MDIForm1Test, AbrirShowsTheFileAndRemembersSix) {
    for (const char* nombre : {"a", "b", "c", "d", "e", "f", "mi g.lua"})
        Abrir(home.Put(std::string("juegos/") + nombre, nombre));
    EXPECT_EQ(Captions().join(u' '), u"a b c d e f mi g.lua"_s);
    EXPECT_EQ(principal.Forms().size(), 7U); // no explorer
    EXPECT_EQ(Text(), u"mi g.lua"_s);
    EXPECT_TRUE(principal.FrmDoc.isNull());
    Reciente(6)->trigger();
    EXPECT_EQ(Active()->Caption(), u"b"_s);
    Abrir(QString()); // left by cancel
    EXPECT_EQ(compartido.numero_documentos, 8);
    EXPECT_EQ(Reciente(1)->text() + Reciente(6)->text(), u"1 mi g.lua6 b"_s);
    EXPECT_FALSE(Reciente(7)->isVisible());
}

TEST_F(MDIForm1Test, AFileThatCannotBeOpenedLeavesNothingBehind) {
    Reciente(1)->trigger(); // an empty list
    compartido.nombre_script = u"publicado"_s;
    const QString ruta = u"C:\\no está.lua"_s;
    dialogs.ExpectName(ruta);
    dialogs.Expect(ruta);
    Press("mnuarchivoabrir");
    dialogs.Expect(ruta);
    Reciente(1)->trigger();
    EXPECT_EQ(dialogs.messages[1].icon, platform::Icon::Error);
    EXPECT_EQ(compartido.numero_documentos, 0);
    EXPECT_EQ(compartido.nombre_script, u"publicado"_s);
    EXPECT_TRUE(Captions().isEmpty());
    EXPECT_EQ(Reciente(1)->text(), u"1 no está.lua"_s); // the list keeps it
    EXPECT_FALSE(std::filesystem::exists(home.Root() / "programa/temp.lua"));
    Press("mnuarchivonuevo");
    dialogs.Expect(ruta);
    Reciente(1)->trigger();
    EXPECT_EQ(home.Get("programa/temp.lua"), "\r\n"); // the other document's
}

TEST_F(MDIForm1Test, DroppedFilesOpenAndStayOutOfTheList) {
    home.Put("uno.lua", "1");
    home.Put("dos.lua", "2");
    Press("mnuarchivonuevo");
    QMimeData data;
    const QString root = QString::fromStdString(home.Root().native());
    data.setUrls({QUrl::fromLocalFile(root + u"/uno.lua"_s), QUrl::fromLocalFile(root),
                  QUrl::fromLocalFile(root + u"/dos.lua"_s)});
    QWidget* editor = Active()->findChild<QAbstractScrollArea*>()->viewport();
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor, &enter); // which leaves it to the main window
    dialogs.Expect(u"es una carpeta"_s);
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor, &drop);
    EXPECT_EQ(Captions().mid(1), QStringList({u"uno.lua"_s, u"dos.lua"_s}));
    EXPECT_EQ(compartido.numero_documentos, 3);
    EXPECT_EQ(Reciente(1)->text(), u"Recientes"_s);
}

TEST_F(MDIForm1Test, ALineWantedIsShownInTheDocumentThatHasItOrInANewOne) {
    const QString uno = home.Put("uno.lua", "a\nb\nc\n");
    const QString dos = home.Put("dos.lua", QByteArray("x\n").repeated(500));
    documents::frmDocumento* first = Abrir(uno);
    Q_EMIT first->txtFile().LineWanted(dos, 400);
    ASSERT_EQ(Captions(), (QStringList{u"uno.lua"_s, u"dos.lua"_s}));
    EXPECT_EQ(compartido.numero_documentos, 2);
    Type(u"y"_s);
    EXPECT_EQ(Text().indexOf(u'y'), 2 * 399);
    first->State(platform::WindowState::Minimised);
    Q_EMIT Active()->txtFile().LineWanted(u"c:\\UNO.lua"_s, 99); // behind the last line
    EXPECT_EQ(Active(), first);
    EXPECT_EQ(first->State(), platform::WindowState::Normal);
    Type(u"z"_s);
    EXPECT_EQ(Text(), u"a\nb\nc\nz"_s);
    dialogs.Expect(u"No se puede abrir el archivo \"C:\\no.lua\": no existe."_s);
    Q_EMIT first->txtFile().LineWanted(u"C:\\no.lua"_s, 1);
    EXPECT_EQ(Windows().size(), 2U);
}

TEST_F(MDIForm1Test, ToolWindowsInFrontLeaveRunAndPrintTheLastScript) {
    Abrir(home.Put("a.lua", "uno"));
    frmDocumento* last = Abrir(home.Put("b.lua", "dos"));
    Type(u"-"_s);
    Press("mnuopcionesconfiguracion");
    Press("mnuherramientascolores");
    for (const char* entrada :
         {"mnuarchivoguardar", "mnuediciondeshacer", "mnuedicionrehacer", "mnuedicioncopiar",
          "mnuedicioncortar", "mnuedicionpegar", "mnuedicionseleccionar"})
        Press(entrada); // do nothing
    dialogs.ExpectName(u"C:\\x.qmk"_s);
    Press("mnuarchivocomo");
    EXPECT_EQ(home.Get("x.qmk") + home.Get("b.lua"), "dos");

    for (int i = 0; i < 2; ++i)
        dialogs.ExpectPrinter([](QPrinter&) { return false; });
    Press("mnuarchivoconfig");
    Press("mnuarchivoimprimir");
    EXPECT_EQ(dialogs.printers, QStringList({u"page"_s, u"print"_s}));
    dialogs.ExpectName(u"C:\\c.lua"_s);
    dialogs.Expect(u"c.lua generado en C:\\c.lua"_s);
    Press("mnugenerarlua");
    EXPECT_EQ(home.Get("c.lua"), "-dos");
    last->flagGuardar = false;
    last->Unload();
    PutPlayer();
    Press("ejecutar_lua");
    EXPECT_TRUE(QTest::qWaitFor([&] { return home.Get("visto") == "uno\r\n"; }));

    Windows()[0]->Unload();
    principal.mnuarchivoguardar_Click(); // says nothing as long as there is a window
    Press("mnuventanacerrar");
    const QString none = u"No hay ningún script abierto. Haz uno con Archivo, Nuevo"_s;
    const QString nothing = u"No hay documentos para guardar"_s;
    for (const auto& [orden, aviso] : {std::pair(&shell::MDIForm1::ejecutar_lua_Click, none),
                                       {&shell::MDIForm1::mnugenerarlua_Click, none},
                                       {&shell::MDIForm1::mnuarchivoconfig_Click, none},
                                       {&shell::MDIForm1::mnuarchivoimprimir_Click, none},
                                       {&shell::MDIForm1::mnuarchivoguardar_Click, nothing},
                                       {&shell::MDIForm1::mnuarchivocomo_Click, nothing}}) {
        dialogs.Expect(aviso);
        (principal.*orden)();
        EXPECT_EQ(dialogs.messages.back().icon, platform::Icon::Information);
    }
}

TEST_F(MDIForm1Test, TheMenuHasItsKeysWhileTheEditorHasTheFocus) {
    Press("mnuarchivonuevo");
    principal.Forms().back()->Unload(); // the explorer, which Ctrl+Tab would reach
    principal.Timer1_Timer();
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(principal.windowHandle(), key, modifiers);
    };
    const QString text = Text();
    press(Qt::Key_E, Qt::ControlModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    for (const QString& now : {QString(), text}) {
        EXPECT_EQ(Text(), now);
        Press(now.isEmpty() ? "mnuediciondeshacer" : "mnuedicionrehacer");
    }
    press(Qt::Key_Y, Qt::NoModifier);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(Text().startsWith(u"ywhile true do"_s));
    Active()->txtFile().Text(u"abc"_s);
    for (const char* entrada : {"mnuedicionseleccionar", "mnuedicioncopiar", "mnuedicionpegar",
                                "mnuedicionpegar", "mnuedicionseleccionar", "mnuedicioncortar"})
        Press(entrada);
    EXPECT_EQ(Text() + QApplication::clipboard()->text(), u"abcabc"_s);
    dialogs.ExpectName(home.Put("a.lua", "abierto"));
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Active()->Caption(), u"a.lua"_s);
    for (const QString& next : {u"Nuevo script 1"_s, u"a.lua"_s}) {
        press(Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(Active()->Caption(), next);
    }
    press(Qt::Key_F4, Qt::ControlModifier);
    EXPECT_EQ(Captions(), QStringList{u"Nuevo script 1"_s});
    press(Qt::Key_F4, Qt::NoModifier);
    EXPECT_EQ(Captions().size(), 2);
    principal.FrmDoc->flagGuardar = false;
}

TEST_F(MDIForm1Test, AHeldKeyMakesOneDocument) {
    // The toolkit has seen a new press, but at the time of the release.
    for (const quint64 when : {1000, 1030}) {
        QKeyEvent press(QEvent::ShortcutOverride, Qt::Key_N, Qt::ControlModifier);
        press.setTimestamp(when);
        QApplication::sendEvent(&principal, &press);
        QShortcutEvent shortcut(QKeySequence(u"Ctrl+N"_s), 0);
        QApplication::sendEvent(Entrada("mnuarchivonuevo"), &shortcut);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_N, Qt::ControlModifier);
        release.setTimestamp(1030);
        QApplication::sendEvent(&principal, &release);
    }
    EXPECT_EQ(compartido.numero_documentos, 1);
}

TEST_F(MDIForm1Test, WindowCommandsReachAllChildren) {
    Press("mnuarchivonuevo");
    Press("mnuarchivonuevo");
    Press("mnuopcionesconfiguracion");
    const auto all = [&](WindowState state) {
        for (const platform::Form* form : Windows())
            EXPECT_EQ(form->State(), state);
    };
    for (const WindowState before : {WindowState::Normal, WindowState::Maximised}) {
        principal.ActiveForm()->State(before);
        Press("mnuventanaminimizar");
        all(WindowState::Minimised);
        principal.ActiveForm()->Show();
    }
    for (platform::Form* form : principal.Forms())
        form->Shell()->move(100, 100);
    Press("mnuventanaorganizar");
    EXPECT_EQ(Apart().boundingRect().bottomLeft(), Area().bottomLeft());
    Press("mnuventanarestaurar");
    all(WindowState::Normal);
    Press("mnuventanacascada");
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_TRUE(InSight(Windows()[i]->Shell())) << i;
        EXPECT_TRUE(i == 0 || Windows()[i]->Shell()->x() > Windows()[i - 1]->Shell()->x());
    }
}

TEST_F(MDIForm1Test, ASmallScreenLeavesEverythingInReach) {
    principal.resize(1016, 566); // of 1024 x 600, with the borders of a desktop
    for (const int scripts : {1, 3}) {
        while (compartido.numero_documentos < scripts)
            Press("mnuarchivonuevo");
        const QWidget* explorer = principal.Forms()[1]->Shell();
        for (const auto& [entrada, edge] : {std::pair("mnuventanamosaicov", &QRect::top),
                                            std::pair("mnuventanamosaicoh", &QRect::left)}) {
            Press(entrada);
            Apart(explorer->geometry());
            for (const platform::Form* form : Windows())
                EXPECT_EQ((form->Shell()->geometry().*edge)(), 0) << entrada;
            EXPECT_TRUE(Area().contains(explorer->geometry().topRight())); // it is too high
        }
    }
    Press("mnuherramientasventana");
    EXPECT_EQ(principal.ActiveForm()->Shell()->y(), 0);
    for (const QPushButton* boton : principal.ActiveForm()->findChildren<QPushButton*>())
        EXPECT_TRUE(InSight(boton)) << boton->text().toStdString();
    Press("mnuherramientascolores");
    EXPECT_TRUE(InSight(principal.ActiveForm()->Shell())); // which is under that one
}

TEST_F(MDIForm1Test, ACancelKeepsOneScriptOrTheWholeProgram) {
    const auto make = [&](int count) { // which have changed
        for (int i = 0; i < count; ++i) {
            Press("mnuarchivonuevo");
            Active()->flagGuardar = true;
        }
    };
    const auto ask = [&](std::initializer_list<Answer> answers) {
        for (const Answer answer : answers)
            dialogs.Expect(u"¿Guardar cambios?"_s, answer);
    };
    make(3);
    Press("mnuopcionesconfiguracion");
    ask({Answer::No, Answer::Cancel, Answer::No});
    Press("mnuventanacerrar");
    EXPECT_EQ(Captions(), QStringList{u"Nuevo script 2"_s});

    make(2);
    ask({Answer::No, Answer::Cancel});
    EXPECT_FALSE(principal.close()); // and asks no more
    EXPECT_EQ(Captions(), QStringList({u"Nuevo script 2"_s, u"Nuevo script 3"_s}));
    home.Put("programa/temp.lua", "x");
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        dialogs.Expect(u"¿Salir del programa?"_s, answer);
        Press("mnuarchivosalir");
        EXPECT_EQ(ended, answer == Answer::Yes);
        EXPECT_EQ(principal.FrmDoc.isNull(), answer == Answer::Yes);
    }
    EXPECT_EQ(home.Get("programa/temp.lua"), "x"); // nothing is closed first
    EXPECT_EQ(dialogs.messages.back().icon, platform::Icon::Question);
    EXPECT_EQ(dialogs.messages.back().buttons, platform::Buttons::YesNo);
    EXPECT_EQ(dialogs.messages.back().title, u"Quillmark"_s);
    ask({Answer::No, Answer::No});
    dialogs.Expect(u"¿Salir del programa?"_s, Answer::No);
    EXPECT_FALSE(principal.close());
    EXPECT_TRUE(principal.isVisible() && principal.Forms().empty());
    dialogs.Expect(u"¿Salir del programa?"_s, Answer::Yes);
    EXPECT_TRUE(principal.close());
}

TEST_F(MDIForm1Test, TheHelpMenuTellsOfTheProgram) {
    dialogs.ExpectForm([](platform::Form& form) {
        EXPECT_EQ(form.Caption(), u"Acerca de Quillmark"_s);
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(form.IsLoaded());
    });
    Press("mnuayudaacerca");
}
