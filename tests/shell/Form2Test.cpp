// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Form2.h"
#include "platform/Registry.h"
#include "shared/Module1.h"
#include "shell/CAssociate.h"
#include "support/MainWindow.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;
using platform::Answer;
using platform::Failure;

namespace {

class Form2Test : public support::MainWindow {
protected:
    // Opens the window over a settings file and answers whether the box is ticked.
    bool Open(const QByteArray& settings) {
        home.Put("programa/config.ini", settings);
        Press("mnuopcionesconfiguracion");
        return Check()->isChecked();
    }
    shell::Form2* Window() { return dynamic_cast<shell::Form2*>(principal.ActiveForm()); }
    QCheckBox* Check() { return Window()->findChild<QCheckBox*>(u"Check1"_s); }
    QLineEdit* Path() { return Window()->findChild<QLineEdit*>(u"Text1"_s); }
    void Click(const char* name) {
        QTest::mouseClick(Window()->findChild<QPushButton*>(QString::fromLatin1(name)),
                          Qt::LeftButton);
    }
    static QString Value(const char* key) {
        return platform::RegQueryValueA(platform::HKEY_CLASSES_ROOT, QString::fromUtf8(key));
    }
    QByteArray Settings() { return home.Get("programa/config.ini"); }
};

} // namespace

TEST_F(Form2Test, TheWindowSaysWhatItIsFor) {
    EXPECT_FALSE(Open(""));
    EXPECT_EQ(Window()->Caption(), QString(33, u' ') + u"Configuración"_s);
    QStringList seen{Check()->text(), Window()->findChild<QLabel*>(u"Label2"_s)->text()};
    for (const char* name : {"Command1", "KewlButtons4", "Command2", "KewlButtons3"})
        seen.append(Window()->findChild<QPushButton*>(QString::fromLatin1(name))->text());
    EXPECT_EQ(seen.join(u'|'), u"Cargar archivo en blanco nada mas abrir el programa|"
                               "Path alternativo del explorador de archivos:|"
                               "Asociar *.qmk|Asociar *.lua|Aceptar|Cancelar"_s);
}

TEST_F(Form2Test, TheSettingsComeAndGo) {
    EXPECT_TRUE(Open("[general]\r\nnuevo=si\r\n[explorador]\r\npath=E\r\n"));
    EXPECT_EQ(Path()->text(), u"E"_s);
    const shell::Form2* window = Window();
    Press("mnuopcionesconfiguracion");
    EXPECT_EQ(Window(), window); // there is only one
    QTest::keyClick(Check(), Qt::Key_Space);
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
    for (int times = 0; times < 2; ++times) {
        Click("Command1");
        Click("KewlButtons4");
    }
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
    auto* button = Window()->findChild<QPushButton*>(u"Command1"_s);
    button->setFocus();
    platform::RegSetValueA(platform::HKEY_CLASSES_ROOT, u".qmk"_s, QString());
    QTest::keyClick(button, Qt::Key_Return); // presses itself, not "Aceptar"
    Click("KewlButtons3");
    EXPECT_EQ(home.Get(".config/Quillmark/Clases de archivos.conf"), store);
    EXPECT_TRUE(Settings().isEmpty());
}

TEST_F(Form2Test, EmptyArgumentsAreRefused) {
    const QString x = u"x"_s;
    dialogs.Expect(u" No se especificó la descripción del programa"_s, Answer::Ok);
    Module1::Asociar({}, {}, {}, x);
    dialogs.Expect(u"  No se ha especificado la ruta del programa"_s, Answer::Ok);
    Module1::Asociar(x, {}, {}, x);
    dialogs.Expect(u"  No se ha especificado la extension del programa"_s, Answer::Ok);
    Module1::Asociar(x, x, {}, x);
    for (const platform::Message& message : dialogs.messages)
        EXPECT_EQ(message.icon, platform::Icon::Error);

    shell::CAssociate association;
    const auto failure = [&] {
        try {
            association.Associate();
        } catch (const Failure& f) {
            EXPECT_EQ(f.Source(), u"Associate Class"_s);
            return u"%1 %2"_s.arg(static_cast<int>(f.Code())).arg(f.Text());
        }
        return QString();
    };
    EXPECT_EQ(failure(), u"922 Associate Class - Application title not specified"_s);
    association.Title = x;
    EXPECT_EQ(failure(), u"926 Associate Class - Application Class name not specified"_s);
    association.Class = x;
    EXPECT_EQ(failure(), u"930 Associate Class - Command line of the program not specified"_s);
    EXPECT_EQ(Value("x"), QString());
}
