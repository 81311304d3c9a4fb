// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Form0.h"
#include "platform/base/Clock.h"
#include "shell/Dibujos.h"
#include "shell/Form3.h"
#include "support/Colors.h"
#include "support/MainWindow.h"

#include <QLabel>
#include <QPointer>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
namespace {

class Form0Test : public testing::Test {
protected:
    // A start with this settings file, up to the end of the splash; the captions of what is open
    // then.
    QStringList Start(const QByteArray& config, const QString& lineaDeComandos = {}) {
        home.Put("programa/config.ini", config);
        principal = std::make_unique<shell::MDIForm1>(compartido, lineaDeComandos);
        principal->resize(1280, 800);
        portada = new shell::Form0;
        const QPoint centro = portada->screen()->availableGeometry().center();
        EXPECT_LE((portada->geometry().center() - centro).manhattanLength(), 1);
        EXPECT_EQ(portada->findChild<QLabel*>(u"Label1"_s)->text().left(16), u"Quillmark v3.0.0"_s);
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
    int turns = 0;
    std::vector<double> opacities;
    support::Override<std::function<void(int)>> sleep{
        platform::SleepSeam(), [this](int milliseconds) {
            slept += milliseconds;
            opacities.push_back(portada->windowOpacity());
            QMetaObject::invokeMethod(
                portada, [this] { ++turns; }, Qt::QueuedConnection);
        }};
};

} // namespace

TEST_F(Form0Test, FadesInAndOutInFiveSeconds) {
    Start("[inicio]\r\nejecuciones=1\r\n");
    constexpr int kPasos = 2 * 251; // up and down again
    EXPECT_EQ(slept, kPasos * 10);
    ASSERT_EQ(opacities.size(), size_t(kPasos));
    for (int i = 0; i < kPasos; ++i) { // as it was before the step
        const int alfa = i <= kPasos / 2 ? std::max(0, i - 1) : kPasos - i;
        EXPECT_NEAR(opacities[static_cast<size_t>(i)], alfa / 255.0, 0.003) << i;
    }
    EXPECT_EQ(turns, kPasos); // each step leaves the events their turn
}

TEST_F(Form0Test, TheFirstRunOpensTheConfigurationAndAnyOtherFollowsTheSetting) {
    for (const QByteArray ejecuciones : {"0", "", "hola", "0.0"}) {
        const QByteArray general = "\r\n[general]\r\nnuevo=si\r\n";
        EXPECT_EQ(Start("[inicio]\r\nejecuciones=" + ejecuciones + general),
                  QStringList{u"Configuración"_s});
        EXPECT_EQ(home.Get("programa/config.ini"), "[inicio]\r\nejecuciones=1" + general);
    }
    EXPECT_EQ(Start(home.Get("programa/config.ini")),
              QStringList({u"Nuevo script 1"_s, u"Explorador"_s}));
    for (const QByteArray nuevo : {"no", "Si", "SI", ""})
        EXPECT_EQ(Start("[inicio]\r\nejecuciones=7\r\n[general]\r\nnuevo=" + nuevo), QStringList());
    EXPECT_EQ(principal->Caption(), u"Quillmark v3.0.0"_s);
    EXPECT_EQ(std::filesystem::current_path(), home.Root() / "programa");
}

TEST_F(Form0Test, AFileOnTheCommandLineComesFirst) {
    const QString ruta = home.Put("mis juegos/el juego.lua", "print(1)");
    EXPECT_EQ(Start("[inicio]\nejecuciones=1\n[general]\nnuevo=si\n", ruta),
              QStringList({u"el juego.lua"_s, u"Explorador"_s, u"Nuevo script 2"_s}));
    EXPECT_TRUE(principal->FrmDoc.isNull());
    EXPECT_EQ(support::Place(*principal->Forms().front()), support::kOpenedPlace);
    EXPECT_EQ(compartido.numero_documentos, 2);
}

TEST_F(Form0Test, ThePicturesAreDrawn) {
    shell::Form0 splash;
    shell::Form3 about(nullptr);
    EXPECT_TRUE(about.windowFlags().testFlag(Qt::Dialog));
    EXPECT_TRUE(about.IsFixedSize() && splash.windowFlags().testFlag(Qt::FramelessWindowHint));
    const QRegularExpression name(u"Image."_s);
    const auto pictures = splash.findChildren<QWidget*>(name) + about.findChildren<QWidget*>(name);
    EXPECT_EQ(pictures.size(), 5);
    for (QWidget* picture : pictures)
        EXPECT_GT(support::Colors(*picture).size(), 20); // soft edges
    EXPECT_EQ(shell::Icono().availableSizes(),
              QList<QSize>({{16, 16}, {32, 32}, {48, 48}, {128, 128}}));
}
