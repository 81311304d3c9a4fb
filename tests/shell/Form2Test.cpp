// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Form2.h"
#include "platform/desktop/Registry.h"
#include "shared/Module1.h"
#include "shell/CAssociate.h"
#include "support/MainWindow.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;
using platform::Failure;

namespace {

class Form2Test : public support::MainWindow {
protected:
    // Opens the window over a settings file and answers whether the box is ticked.
    bool Open(const QByteArray& settings) {
        home.Put("programa/config.ini", settings);
        MainWindow::Open("mnuopcionesconfiguracion");
        return Check()->isChecked();
    }
    QCheckBox* Check() { return Find<QCheckBox>("Check1"); }
    QLineEdit* Path() { return Find<QLineEdit>("Text1"); }
    static QString Value(const char* key) {
        return platform::RegQueryValueA(platform::HKEY_CLASSES_ROOT, QString::fromUtf8(key));
    }
    QByteArray Settings() { return home.Get("programa/config.ini"); }
};

} // namespace

TEST_F(Form2Test, TheSettingsComeAndGo) {
    EXPECT_FALSE(Open(""));
    EXPECT_EQ(principal.ActiveForm()->Caption(), QString(33, u' ') + u"Configuración"_s);
    Click("KewlButtons3");
    EXPECT_TRUE(Open("[general]\r\nnuevo=si\r\n[explorador]\r\npath=E\r\n"));
    EXPECT_EQ(Path()->text(), u"E"_s);
    Press("mnuopcionesconfiguracion");
    EXPECT_EQ(principal.Forms().size(), 1U);                 // there is only one
    QTest::keyClick(principal.focusWidget(), Qt::Key_Space); // in the box
    Path()->setText(u"F"_s);
    Click("Command2");
    EXPECT_EQ(Settings(), "[general]\r\nnuevo=no\r\n[explorador]\r\npath=F\r\n");
    EXPECT_TRUE(principal.Forms().empty());

    EXPECT_FALSE(Open("[general]\r\nnuevo=Si\r\n")); // neither "si" nor "no"
    Check()->setChecked(true);
    QTest::keyClick(Path(), Qt::Key_Return);
    EXPECT_EQ(Settings(), "[general]\r\nnuevo=si\r\n[explorador]\r\npath=\r\n");

    EXPECT_FALSE(Open("[general]\r\nnuevo=no\r\n"));
    Check()->setChecked(true);
    QTest::keyClick(Check(), Qt::Key_Escape);
    EXPECT_FALSE(Open(Settings()));
    Check()->setCheckState(Qt::PartiallyChecked);
    Click("Command2");
    EXPECT_EQ(Settings(), "[general]\r\nnuevo=no\r\n[explorador]\r\npath=\r\n");
}

TEST_F(Form2Test, EachTypeOfFileIsRegisteredAtItsButton) {
    Open("");
    Click("Command1");
    Click("KewlButtons4");
    EXPECT_EQ(Value("clase"), u"Quillmark"_s);
    EXPECT_EQ(Value(".qmk"), u"clase"_s);
    EXPECT_EQ(Value("clase\\shell\\open\\command"), u"C:\\programa\\Quillmark.exe %1"_s);
    EXPECT_EQ(Value("clase\\DefaultIcon"), u"C:\\programa\\quillmarkaplication.ico"_s);
    EXPECT_EQ(Value("Script .LUA"), u"Script LUA para PSP"_s);
    EXPECT_EQ(Value(".lua"), u"Script .LUA"_s);
    EXPECT_EQ(Value("Script .LUA\\shell\\open\\command"), u"C:\\programa\\QM\\luaplayer.exe %1"_s);
    EXPECT_EQ(Value("Script .LUA\\DefaultIcon"), u"C:\\programa\\lua.ico"_s);
    EXPECT_TRUE(home.Get(".config/mimeapps.list").contains("text/x-lua=quillmark-lua.desktop"));
    const QByteArray store = home.Get(".config/Quillmark/Clases de archivos.conf");
    auto* button = Find<QPushButton>("Command1");
    button->setFocus();
    platform::RegSetValueA(platform::HKEY_CLASSES_ROOT, u".qmk"_s, QString());
    QTest::keyClick(button, Qt::Key_Return); // presses itself, not "Aceptar"
    Click("KewlButtons3");
    EXPECT_EQ(home.Get(".config/Quillmark/Clases de archivos.conf"), store);
    EXPECT_TRUE(Settings().isEmpty());
}

TEST_F(Form2Test, EmptyArgumentsAreRefused) {
    const QString x = u"x"_s;
    dialogs.Expect(u" No se especificó la descripción del programa"_s);
    Module1::Asociar({}, {}, {}, x);
    dialogs.Expect(u"  No se ha especificado la ruta del programa"_s);
    Module1::Asociar(x, {}, {}, x);
    dialogs.Expect(u"  No se ha especificado la extension del programa"_s);
    Module1::Asociar(x, x, {}, x);
    EXPECT_EQ(dialogs.messages[0].icon, platform::Icon::Error);
    shell::CAssociate association;
    QString failures;
    for (QString* field : {&association.Title, &association.Class, &association.AppCommand}) {
        try {
            association.Associate();
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Source(), u"Associate Class"_s);
            failures += u"%1 %2|"_s.arg(static_cast<int>(failure.Code())).arg(failure.Text());
        }
        *field = x;
    }
    EXPECT_EQ(failures, u"922 Associate Class - Application title not specified|"
                        "926 Associate Class - Application Class name not specified|"
                        "930 Associate Class - Command line of the program not specified|"_s);
    EXPECT_EQ(Value("x"), QString());
}
