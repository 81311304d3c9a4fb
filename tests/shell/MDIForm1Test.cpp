// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MDIForm1.h"
#include "shell/MenuPrincipal.h"
#include "support/MainWindow.h"

#include <QApplication>
#include <QMimeData>
#include <QTimer>

using namespace Qt::StringLiterals;
using documents::frmDocumento;
using platform::Answer;
using platform::WindowState;

using MDIForm1Test = support::MainWindow;

TEST_F(MDIForm1Test, TwelveEntriesFollowTheNumberOfDocuments) {
    const auto enabled = [&] {
        int count = 0;
        for (const shell::EntradaMenu& entrada : shell::MenuPrincipal()) {
            const QAction* accion = Entrada(entrada.nombre);
            EXPECT_TRUE(entrada.conDocumento || accion->isEnabled() || accion->isSeparator() ||
                        !accion->isVisible())
                << entrada.nombre;
            count += entrada.conDocumento && Entrada(entrada.nombre)->isEnabled();
        }
        return count;
    };
    EXPECT_EQ(enabled(), 0);
    Press("mnuarchivonuevo");
    EXPECT_TRUE(QTest::qWaitFor([&] { return enabled() == 12; }, 2000));
    principal.ActiveForm()->Unload();
    EXPECT_TRUE(QTest::qWaitFor([&] { return enabled() == 0; }, 2000));
}

TEST_F(MDIForm1Test, NewDocumentsAreNumberedByTheirCount) {
    Press("mnuarchivonuevo");
    frmDocumento* first = principal.FrmDoc;
    Press("mnuarchivonuevo");
    EXPECT_EQ(Captions(), QStringList({u"Nuevo script 1"_s, u"Nuevo script 2"_s}));
    EXPECT_EQ(principal.FrmDoc, Active());
    first->Unload();
    Press("mnuarchivonuevo");
    EXPECT_EQ(Captions(), QStringList({u"Nuevo script 2"_s, u"Nuevo script 2"_s}));
    principal.FrmDoc->Unload();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(principal.FrmDoc.isNull());
}

TEST_F(MDIForm1Test, TheScriptMadeLastIsAlsoSoIfTheExplorerStillReadsItsFolder) {
    QTimer::singleShot(0, &principal, &shell::MDIForm1::mnuarchivonuevo_Click);
    Press("mnuarchivonuevo");
    EXPECT_EQ(principal.FrmDoc->Caption(), u"Nuevo script 2"_s);
}

TEST_F(MDIForm1Test, AbrirShowsTheFileAndRemembersIt) {
    const QString ruta = home.Put("juegos/mi juego.lua", "print(1)\n");
    const frmDocumento* documento = Abrir(ruta);
    ASSERT_NE(documento, nullptr);
    EXPECT_EQ(documento->Caption(), u"mi juego.lua"_s);
    EXPECT_EQ(compartido.numero_documentos, 1);
    EXPECT_TRUE(principal.FrmDoc.isNull());
    EXPECT_EQ(Reciente(1)->text(), u"1 mi juego.lua"_s);
    Reciente(1)->trigger();
    EXPECT_EQ(Captions().count(u"mi juego.lua"_s), 2);
    EXPECT_EQ(compartido.numero_documentos, 2);
    Abrir(QString()); // left by cancel
    EXPECT_EQ(compartido.numero_documentos, 2);
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
    EXPECT_EQ(Reciente(1)->text(), u"1 no está.lua"_s); // the list keeps it
}

TEST_F(MDIForm1Test, DroppedFilesOpenAsAbrirDoes) {
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
    EXPECT_EQ(Reciente(1)->text(), u"1 dos.lua"_s);
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

TEST_F(MDIForm1Test, GuardarAsksANewScriptForItsName) {
    Press("mnuarchivonuevo");
    dialogs.ExpectName(QString());
    principal.mnuarchivoguardar_Click();
    EXPECT_EQ(Active()->Caption(), u"Nuevo script 1"_s);
    dialogs.ExpectName(u"C:\\no\\hay.qmk"_s);
    principal.mnuarchivoguardar_Click(); // fails, and says nothing
    EXPECT_EQ(Active()->Caption(), u"Nuevo script 1"_s);
    dialogs.ExpectName(u"C:\\juego"_s);
    principal.mnuarchivoguardar_Click();
    EXPECT_EQ(Active()->Caption(), u"juego"_s);
    EXPECT_TRUE(home.Get("juego").startsWith("while true do\r"));
    dialogs.ExpectName(u"C:\\otro.lua"_s);
    principal.mnuarchivocomo_Click();
    EXPECT_EQ(Active()->Caption(), u"otro.lua"_s);
    Type(u"--"_s);
    principal.mnuarchivoguardar_Click();
    EXPECT_TRUE(home.Get("otro.lua").startsWith("--while"));
    EXPECT_TRUE(home.Get("juego").startsWith("while"));
    Active()->flagGuardar = false;
}

TEST_F(MDIForm1Test, CommandsWithAToolWindowActiveDoNoHarm) {
    Press("mnuarchivonuevo");
    const QString text = principal.FrmDoc->txtFile().Text();
    Press("mnuopcionesconfiguracion");
    Press("mnuopcionesconfiguracion");
    EXPECT_EQ(Captions().size(), 2); // brought forward, not opened twice
    EXPECT_EQ(Active(), nullptr);
    for (const char* entrada : {"mnuarchivoguardar", "mnuarchivoconfig", "mnuarchivoimprimir",
                                "mnuediciondeshacer", "mnuedicionrehacer", "mnuedicioncopiar",
                                "mnuedicioncortar", "mnuedicionpegar", "mnuedicionseleccionar"})
        Press(entrada);
    dialogs.ExpectName(u"C:\\x.qmk"_s);
    Press("mnuarchivocomo");
    EXPECT_EQ(home.Get("x.qmk"), "");
    EXPECT_EQ(principal.FrmDoc->txtFile().Text(), text);
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
    press(Qt::Key_E, Qt::ControlModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Active()->txtFile().Text(), QString());
    Press("mnuediciondeshacer");
    EXPECT_TRUE(Active()->txtFile().Text().startsWith(u"while"_s));
    Press("mnuedicionrehacer");
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(Active()->txtFile().Text().startsWith(u"while"_s));
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
    Press("mnuventanaorganizar");
    Press("mnuventanarestaurar");
    all(WindowState::Normal);
    const auto step = [&](const char* entrada) {
        Press(entrada);
        return Windows()[1]->Shell()->pos() - Windows()[0]->Shell()->pos();
    };
    EXPECT_EQ(step("mnuventanamosaicov").y(), 0);
    EXPECT_EQ(step("mnuventanamosaicoh").x(), 0);
    EXPECT_GT(step("mnuventanacascada").x(), 0);
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
    Active()->flagGuardar = false;
}

TEST_F(MDIForm1Test, ClosingTheFrameAsksTheChildrenAndThenTheUser) {
    Press("mnuarchivonuevo");
    Active()->flagGuardar = true;
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::Cancel);
    EXPECT_FALSE(principal.close());
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::No);
    dialogs.Expect(u"¿Salir del programa?"_s, Answer::No);
    EXPECT_FALSE(principal.close());
    EXPECT_TRUE(principal.isVisible());
    EXPECT_TRUE(Captions().isEmpty());
    dialogs.Expect(u"¿Salir del programa?"_s, Answer::Yes);
    EXPECT_TRUE(principal.close());
}

TEST_F(MDIForm1Test, TheAboutWindow) {
    dialogs.ExpectForm([](platform::Form& form) {
        EXPECT_EQ(form.Caption(), u"Acerca de Quillmark"_s);
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(form.IsLoaded());
    });
    Press("mnuayudaacerca");
}
