// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Form0.h"
#include "platform/Clock.h"
#include "platform/Program.h"
#include "shell/MDIForm1.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHome.h"

#include <QPointer>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
namespace {

class Form0Test : public testing::Test {
protected:
    Form0Test() {
        platform::ReplaceSleep([this](int milliseconds) {
            slept += milliseconds;
            opacities.push_back(portada->windowOpacity());
        });
    }
    ~Form0Test() override { platform::ReplaceSleep({}); }

    // A start with this settings file, up to the end of the splash; the captions of what is open
    // then.
    QStringList Start(const QByteArray& config, const QString& lineaDeComandos = {}) {
        home.Put("programa/config.ini", config);
        principal = std::make_unique<shell::MDIForm1>(compartido, lineaDeComandos);
        portada = new shell::Form0;
        portada->EntregarA(*principal);
        portada->Show();
        EXPECT_TRUE(QTest::qWaitFor([&] { return portada.isNull(); }, 20000));
        EXPECT_TRUE(principal->isVisible());
        QStringList captions;
        for (const platform::Form* form : principal->Forms())
            captions.append(form->Caption().trimmed());
        return captions;
    }

    support::TestHome home;
    support::ScriptedDialogs dialogs;
    shared::ValoresCompartidos compartido;
    std::unique_ptr<shell::MDIForm1> principal;
    QPointer<shell::Form0> portada;
    int slept = 0;
    std::vector<double> opacities;
};

} // namespace

TEST_F(Form0Test, FadesInAndOutInFiveSeconds) {
    Start("[inicio]\r\nejecuciones=1\r\n");
    EXPECT_EQ(slept, 5020);
    EXPECT_EQ(opacities.front(), 0);
    EXPECT_NEAR(*std::max_element(opacities.begin(), opacities.end()), 250 / 255.0, 0.005);
    EXPECT_LT(opacities.back(), 0.01);
}

TEST_F(Form0Test, TheFirstRunOpensTheConfigurationAndOnlyOnce) {
    for (const char* ejecuciones : {"0", "", "hola", "0.0"}) {
        const QByteArray config =
            QByteArray("[inicio]\r\nejecuciones=") + ejecuciones + "\r\n[general]\r\nnuevo=si\r\n";
        EXPECT_EQ(Start(config), QStringList{u"Configuración"_s}) << ejecuciones;
        EXPECT_EQ(home.Get("programa/config.ini"),
                  "[inicio]\r\nejecuciones=1\r\n[general]\r\nnuevo=si\r\n");
    }
    EXPECT_EQ(Start(home.Get("programa/config.ini")),
              QStringList({u"Nuevo script 1"_s, u"Explorador"_s}));
}

TEST_F(Form0Test, ANormalStartFollowsTheSetting) {
    for (const char* nuevo : {"no", "Si", "SI", ""}) {
        const QByteArray config =
            QByteArray("[inicio]\r\nejecuciones=7\r\n[general]\r\nnuevo=") + nuevo + "\r\n";
        EXPECT_EQ(Start(config), QStringList()) << nuevo;
    }
    EXPECT_EQ(principal->Caption(), u"Quillmark v3.0.0"_s);
    EXPECT_EQ(std::filesystem::current_path(), home.Root() / "programa");
}

TEST_F(Form0Test, AFileOnTheCommandLineComesFirst) {
    const QString ruta = home.Put("mis juegos/el juego.lua", "print(1)");
    EXPECT_EQ(Start("[inicio]\nejecuciones=1\n[general]\nnuevo=si\n", ruta),
              QStringList({u"el juego.lua"_s, u"Explorador"_s, u"Nuevo script 2"_s}));
    const platform::Form* abierto = principal->Forms().front();
    EXPECT_NEAR(abierto->Height(), 10350, 15);
    EXPECT_TRUE(principal->FrmDoc.isNull());
    EXPECT_EQ(compartido.numero_documentos, 2);
    compartido.numero_documentos = 0;
    EXPECT_EQ(Start("[inicio]\nejecuciones=0\n", ruta),
              QStringList({u"el juego.lua"_s, u"Explorador"_s, u"Configuración"_s}));
}
