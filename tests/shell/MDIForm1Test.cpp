// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MDIForm1.h"
#include "shell/MenuPrincipal.h"
#include "support/MainWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
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
    // The recent list as its menu shows it.
    QString Recientes() {
        QStringList textos;
        for (const QAction* entrada : Entrada("Pr")->menu()->actions()) {
            if (entrada->isVisible())
                textos.append(entrada->text());
        }
        return textos.join(u'|');
    }
    QWidget* Inside() { return principal.findChild<QMdiArea*>()->viewport(); }
    QRect Area() { return Inside()->rect(); }
    bool InSight(const QWidget* widget) {
        return Area().contains({widget->mapTo(Inside(), QPoint(0, 0)), widget->size()});
    }
};

} // namespace

TEST_F(MDIForm1Test, NewDocumentsAreNumberedByTheirCount) {
    principal.mnuarchivonuevo_Click();
    EXPECT_EQ(principal.ActiveForm()->Caption(), u"Explorador"_s); // comes in front
    frmDocumento* first = principal.FrmDoc;
    EXPECT_EQ(first->Shell()->pos(), QPoint(0, 0));
    EXPECT_NEAR(first->Width(), 8000, 15);
    EXPECT_NEAR(first->Height(), principal.Height() - 900, 15);
    Press("mnuarchivonuevo");
    EXPECT_EQ(Captions(), QStringList({u"Nuevo script 1"_s, u"Nuevo script 2"_s}));
    EXPECT_EQ(principal.FrmDoc, Active());
    first->Unload();
    Press("mnuarchivonuevo");
    EXPECT_EQ(Captions(), QStringList({u"Nuevo script 2"_s, u"Nuevo script 2"_s}));
    principal.FrmDoc->Unload();
    EXPECT_TRUE(principal.FrmDoc.isNull());
    EXPECT_EQ(compartido.numero_documentos, 1);
}

TEST_F(MDIForm1Test, TheScriptMadeLastIsAlsoSoIfTheExplorerStillReadsItsFolder) {
    QTimer::singleShot(0, &principal, &shell::MDIForm1::mnuarchivonuevo_Click);
    Press("mnuarchivonuevo");
    EXPECT_EQ(principal.FrmDoc->Caption(), u"Nuevo script 2"_s);
}

TEST_F(MDIForm1Test, AbrirShowsTheFileAndRemembersSix) {
    for (const char* nombre : {"a", "b", "c", "d", "e", "f", "mi g.lua"})
        Abrir(home.Put(std::string("juegos/") + nombre, nombre));
    EXPECT_EQ(Captions().join(u' '), u"a b c d e f mi g.lua"_s);
    EXPECT_EQ(principal.Forms().size(), 7U); // no explorer
    EXPECT_EQ(Text(), u"mi g.lua"_s);
    EXPECT_EQ(compartido.numero_documentos, 7);
    EXPECT_TRUE(principal.FrmDoc.isNull());
    EXPECT_EQ(Recientes(), u"1 mi g.lua|2 f|3 e|4 d|5 c|6 b"_s);
    Reciente(6)->trigger();
    EXPECT_EQ(Active()->Caption(), u"b"_s);
    EXPECT_EQ(compartido.numero_documentos, 8);
    Abrir(QString()); // left by cancel
    EXPECT_EQ(compartido.numero_documentos, 8);
    EXPECT_EQ(Recientes(), u"1 mi g.lua|2 f|3 e|4 d|5 c|6 b"_s);
}

TEST_F(MDIForm1Test, AFileThatCannotBeOpenedLeavesNothingBehind) {
    Reciente(1)->trigger(); // an empty list
    compartido.nombre_script = u"publicado"_s;
    const QString ruta = u"C:\\no está.lua"_s;
    dialogs.ExpectName(ruta);
    dialogs.Expect(ruta, Answer::Ok);
    Press("mnuarchivoabrir");
    dialogs.Expect(ruta, Answer::Ok);
    Reciente(1)->trigger();
    EXPECT_EQ(dialogs.messages[1].icon, platform::Icon::Error);
    EXPECT_EQ(dialogs.messages[1].title, u"Quillmark"_s);
    EXPECT_EQ(compartido.numero_documentos, 0);
    EXPECT_EQ(compartido.nombre_script, u"publicado"_s);
    EXPECT_TRUE(Captions().isEmpty());
    EXPECT_EQ(Recientes(), u"1 no está.lua"_s); // the list keeps it
    EXPECT_FALSE(std::filesystem::exists(home.Root() / "programa/temp.lua"));
    Press("mnuarchivonuevo");
    dialogs.Expect(ruta, Answer::Ok);
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
    dialogs.Expect(u"es una carpeta"_s, Answer::Ok);
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor, &drop);
    EXPECT_EQ(Captions().mid(1), QStringList({u"uno.lua"_s, u"dos.lua"_s}));
    EXPECT_EQ(compartido.numero_documentos, 3);
    EXPECT_EQ(Recientes(), u"Recientes"_s);
}

TEST_F(MDIForm1Test, GuardarWritesWhereTheDocumentCameFrom) {
    dialogs.Expect(u"No hay documentos para guardar"_s, Answer::Ok);
    principal.mnuarchivoguardar_Click();
    EXPECT_EQ(dialogs.messages[0].icon, platform::Icon::Information);

    Abrir(home.Put("lejos/a.lua", "uno"));
    std::filesystem::current_path("/");
    Type(u"x"_s);
    principal.mnuarchivoguardar_Click();
    EXPECT_EQ(home.Get("lejos/a.lua"), "xuno");
    EXPECT_TRUE(Active()->flagGuardar);
}

TEST_F(MDIForm1Test, GuardarAsksForANameAsLongAsTheCaptionIsThatOfANewScript) {
    Press("mnuarchivonuevo");
    Active()->Caption(u"copia de Nuevo script 1.lua"_s);
    for (const char16_t* name : {u"", u"C:\\no\\hay.qmk"}) { // the second fails, and says nothing
        dialogs.ExpectName(QString::fromUtf16(name));
        principal.mnuarchivoguardar_Click();
        EXPECT_EQ(Active()->Caption(), u"copia de Nuevo script 1.lua"_s);
    }
    dialogs.ExpectName(u"C:\\juego"_s);
    principal.mnuarchivoguardar_Click();
    EXPECT_EQ(Active()->Caption(), u"juego"_s);
    EXPECT_TRUE(home.Get("juego").startsWith("while true do\r"));
    dialogs.ExpectName(u"C:\\otro.lua"_s);
    principal.mnuarchivocomo_Click();
    EXPECT_EQ(Active()->Caption(), u"otro.lua"_s);
    Type(u"--"_s);
    for (const char16_t* caption : {u"nuevo script 1", u"Nuevo script", u"Nuevo  script 1"}) {
        Active()->Caption(QString::fromUtf16(caption));
        principal.mnuarchivoguardar_Click(); // without a question
    }
    EXPECT_TRUE(home.Get("otro.lua").startsWith("--while"));
    EXPECT_TRUE(home.Get("juego").startsWith("while"));
    for (const platform::FileQuestion& question : dialogs.questions)
        EXPECT_EQ(question.filters[0].name + question.filters[0].pattern, u"Archivos .qmk*.qmk"_s);
    Active()->flagGuardar = false;
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
    dialogs.Expect(u"c.lua generado en C:\\c.lua"_s, Answer::Ok);
    Press("mnugenerarlua");
    EXPECT_EQ(home.Get("c.lua"), "-dos");
    last->flagGuardar = false;
    last->Unload();
    PutPlayer();
    Press("ejecutar_lua");
    EXPECT_TRUE(QTest::qWaitFor([&] { return home.Get("visto") == "uno\r\n"; }));

    Press("mnuventanacerrar");
    for (const auto orden :
         {&shell::MDIForm1::ejecutar_lua_Click, &shell::MDIForm1::mnugenerarlua_Click,
          &shell::MDIForm1::mnuarchivoconfig_Click, &shell::MDIForm1::mnuarchivoimprimir_Click}) {
        dialogs.Expect(u"No hay ningún script abierto. Haz uno con Archivo, Nuevo"_s, Answer::Ok);
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
    principal.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&principal));
    const QString text = Text();
    press(Qt::Key_E, Qt::ControlModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Text(), QString());
    Press("mnuediciondeshacer");
    EXPECT_EQ(Text(), text);
    Press("mnuedicionrehacer");
    EXPECT_EQ(Text(), QString());
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(Text().startsWith(u"while true do"_s));
    Active()->txtFile().Text(u"abc"_s);
    for (const char* entrada :
         {"mnuedicionseleccionar", "mnuedicioncopiar", "mnuedicionpegar", "mnuedicionpegar"})
        Press(entrada);
    EXPECT_EQ(Text(), u"abcabc"_s);
    Press("mnuedicionseleccionar");
    Press("mnuedicioncortar");
    EXPECT_EQ(Text() + QApplication::clipboard()->text(), u"abcabc"_s);
    dialogs.ExpectName(home.Put("a.lua", "abierto"));
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Active()->Caption(), u"a.lua"_s);
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Active()->Caption(), u"Nuevo script 1"_s);
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Active()->Caption(), u"a.lua"_s);
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

TEST_F(MDIForm1Test, CerrarTodasGoesOnBehindACancel) {
    for (int i = 0; i < 3; ++i) {
        Press("mnuarchivonuevo");
        Active()->flagGuardar = true;
    }
    Press("mnuopcionesconfiguracion");
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::No);
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::Cancel);
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::No);
    Press("mnuventanacerrar");
    EXPECT_EQ(Captions(), QStringList{u"Nuevo script 2"_s});
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
    QRect last = Windows()[0]->Shell()->geometry();
    EXPECT_EQ(last.bottomLeft(), Area().bottomLeft());
    for (size_t i = 1; i < 3; ++i) {
        const QRect icon = Windows()[i]->Shell()->geometry();
        EXPECT_TRUE(Area().contains(icon) && !icon.intersects(last));
        last = icon;
    }
    Press("mnuventanarestaurar");
    all(WindowState::Normal);
    Press("mnuventanacascada");
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_TRUE(InSight(Windows()[i]->Shell()));
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
            QRegion covered(explorer->geometry());
            for (const platform::Form* form : Windows()) {
                const QRect place = form->Shell()->geometry();
                EXPECT_TRUE(InSight(form->Shell()) && !covered.intersects(place)) << entrada;
                EXPECT_EQ((place.*edge)(), 0);
                covered += place;
            }
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

TEST_F(MDIForm1Test, SalirAsksOnceAndEndsWithoutClosing) {
    Press("mnuarchivonuevo");
    home.Put("programa/temp.lua", "x");
    Active()->flagGuardar = true;
    dialogs.Expect(u"¿Salir del programa?"_s, Answer::No);
    Press("mnuarchivosalir");
    EXPECT_EQ(ended, 0);
    dialogs.Expect(u"¿Salir del programa?"_s, Answer::Yes);
    Press("mnuarchivosalir");
    EXPECT_EQ(ended, 1);
    EXPECT_TRUE(principal.FrmDoc.isNull());
    EXPECT_EQ(home.Get("programa/temp.lua"), "x");
    EXPECT_EQ(dialogs.messages[0].icon, platform::Icon::Question);
    EXPECT_EQ(dialogs.messages[0].buttons, platform::Buttons::YesNo);
    EXPECT_EQ(dialogs.messages[0].title, u"Quillmark"_s);
    Active()->flagGuardar = false;
}

TEST_F(MDIForm1Test, ClosingTheFrameAsksTheChildrenAndThenTheUser) {
    for (int i = 0; i < 3; ++i) {
        Press("mnuarchivonuevo");
        Active()->flagGuardar = true;
    }
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::No);
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::Cancel);
    EXPECT_FALSE(principal.close()); // and asks no more
    EXPECT_EQ(Captions(), QStringList({u"Nuevo script 2"_s, u"Nuevo script 3"_s}));
    for (int i = 0; i < 2; ++i)
        dialogs.Expect(u"¿Guardar cambios?"_s, Answer::No);
    dialogs.Expect(u"¿Salir del programa?"_s, Answer::No);
    EXPECT_FALSE(principal.close());
    EXPECT_TRUE(principal.isVisible());
    EXPECT_TRUE(principal.Forms().empty());
    dialogs.Expect(u"¿Salir del programa?"_s, Answer::Yes);
    EXPECT_TRUE(principal.close());
}

TEST_F(MDIForm1Test, ASaveThatFailsWhileClosingStopsNothing) {
    principal.AbrirProyecto(home.Put("lejos/a.qmk", "uno"), u"a"_s);
    EXPECT_EQ(compartido.documento_explorador, Active());
    EXPECT_EQ(Active()->Caption(), u"a"_s);
    EXPECT_EQ(Active()->Shell()->pos(), QPoint(0, 0));
    EXPECT_NEAR(Active()->Width(), 8000, 15);
    EXPECT_NEAR(Active()->Height(), 10350, 15);
    Type(u"x"_s);
    std::filesystem::remove_all(home.Root() / "lejos");
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::Yes);
    Active()->Unload();
    EXPECT_TRUE(principal.Forms().empty());
    EXPECT_TRUE(compartido.documento_explorador.isNull());
    EXPECT_EQ(compartido.numero_documentos, 0);
}

TEST_F(MDIForm1Test, TheHelpMenuTellsOfTheProgram) {
    dialogs.ExpectForm([](platform::Form& form) {
        EXPECT_EQ(form.Caption(), u"Acerca de Quillmark"_s);
        const auto text = [&](const char* name) {
            return form.findChild<QLabel*>(QString::fromLatin1(name))->text();
        };
        EXPECT_TRUE(text("Label1").contains(u"v3.0.0"_s));
        EXPECT_TRUE(text("lblcontenido").startsWith(u"Quillmark nace como consecuencia a la"_s));
        EXPECT_EQ(text("Label2"), u"Info del Coder y BetaTester del proyecto:"_s);
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(form.IsLoaded());
    });
    Press("mnuayudaacerca");
    dialogs.Expect(u"Actualizacion OnLine aun no disponible"_s, Answer::Ok);
    dialogs.ExpectForm([](platform::Form&) {});
    Press("actualizacion_online");
    EXPECT_EQ(dialogs.messages[0].title, u"Quillmark v3.0.0"_s);
    EXPECT_EQ(dialogs.messages[0].icon, platform::Icon::Information);
}
