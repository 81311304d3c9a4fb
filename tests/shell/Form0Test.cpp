// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Form0.h"
#include "platform/Clock.h"
#include "platform/Program.h"
#include "shell/Cuadro.h"
#include "shell/Dibujos.h"
#include "shell/Form3.h"
#include "shell/MDIForm1.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHome.h"

#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QSet>
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
            QMetaObject::invokeMethod(
                portada, [this] { ++turns; }, Qt::QueuedConnection);
        });
    }
    ~Form0Test() override { platform::ReplaceSleep({}); }

    // A start with this settings file, up to the end of the splash; the captions of what is open
    // then.
    QStringList Start(const QByteArray& config, const QString& lineaDeComandos = {}) {
        home.Put("programa/config.ini", config);
        principal = std::make_unique<shell::MDIForm1>(compartido, lineaDeComandos);
        principal->resize(1280, 800);
        portada = new shell::Form0;
        const QPoint centro = portada->screen()->availableGeometry().center();
        EXPECT_LE((portada->geometry().center() - centro).manhattanLength(), 1);
        EXPECT_EQ(portada->windowTitle(), QString());
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
};

} // namespace

TEST_F(Form0Test, FadesInAndOutInFiveSeconds) {
    Start("[inicio]\r\nejecuciones=1\r\n");
    EXPECT_EQ(slept, 5020);
    ASSERT_EQ(opacities.size(), 502U);
    for (int i = 0; i < 502; ++i) { // as it was before the step
        const int alfa = i <= 251 ? std::max(0, i - 1) : 502 - i;
        EXPECT_NEAR(opacities[static_cast<size_t>(i)], alfa / 255.0, 0.003) << i;
    }
    EXPECT_EQ(turns, 502); // each step leaves the events their turn
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
    EXPECT_EQ(abierto->Shell()->pos(), QPoint(0, 0));
    EXPECT_NEAR(abierto->Width(), 8000, 15);
    EXPECT_NEAR(abierto->Height(), 10350, 15);
    EXPECT_TRUE(principal->FrmDoc.isNull());
    EXPECT_EQ(compartido.numero_documentos, 2);
    compartido.numero_documentos = 0;
    EXPECT_EQ(Start("[inicio]\nejecuciones=0\n", ruta),
              QStringList({u"el juego.lua"_s, u"Explorador"_s, u"Configuración"_s}));
}

TEST_F(Form0Test, ThePicturesShowTheirThings) {
    const auto paint = [&](shell::Cuadro::Pintor picture, QSize size) {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        picture(painter, QRectF(QPointF(0, 0), size));
        return image;
    };
    const auto all = [](const QImage& image, QRgb color, std::initializer_list<QPoint> points) {
        for (const QPoint& point : points)
            EXPECT_EQ(image.pixel(point), color) << point.x() << ' ' << point.y();
    };
    const QImage quill = paint(shell::PintarPluma, {100, 100});
    all(quill, 0, {{10, 10}, {90, 60}, {30, 40}});
    all(quill, 0xFF2B2B3A, {{56, 43}, {11, 90}}); // the shaft and the nib
    all(quill, QColor(0xE0, 0xA8, 0x3C).darker(120).rgb(), {{18, 82}});
    EXPECT_EQ(qAlpha(quill.pixel(45, 50)) + qAlpha(quill.pixel(80, 25)), 510);
    const QImage console = paint(shell::PintarConsola, {200, 100});
    all(console, 0xFF2B2B3A, {{100, 5}, {180, 50}, {12, 42}});
    all(console, 0xFF121C33, {{45, 18}, {50, 32}});
    all(console, 0xFFE0A83C, {{60, 23}, {50, 77}}); // lines on its screen
    all(console, 0xFFF4EEDD, {{60, 32}, {10, 50}, {20, 40}, {20, 60}, {30, 50}});
    all(console, 0xFFF4EEDD, {{190, 50}, {169, 50}, {180, 39}, {180, 60}});
    const QImage cover = paint(shell::PintarPortada, {480, 272});
    const auto light = [&](int x, int y) { return cover.pixelColor(x, y).lightness(); };
    EXPECT_GT(light(478, 270), light(1, 1) + 20); // from the night to the sea
    EXPECT_GT(light(60, 24), light(60, 10) + 10); // the first line of the script
    EXPECT_GT(light(350, 114), 120);              // the quill
    QRegion title;
    for (int i = 0; i < 480 * 122; ++i)
        title += cover.pixel(i % 480, 150 + i / 480) == 0xFFF4EEDD
                     ? QRect(i % 480, 150 + i / 480, 1, 1)
                     : QRect();
    EXPECT_TRUE(QRect(32, 190, 380, 65).contains(title.boundingRect()));
    EXPECT_GT(title.boundingRect().width(), 200);
    shell::Form0 splash;
    shell::Form3 about(nullptr);
    EXPECT_TRUE(about.windowFlags().testFlag(Qt::Dialog));
    EXPECT_TRUE(about.IsFixedSize() && splash.windowFlags().testFlag(Qt::FramelessWindowHint));
    for (const auto& [form, name] : {std::pair<QWidget*, QString>(&splash, u"Image1"_s),
                                     {&splash, u"Image2"_s},
                                     {&about, u"Image1"_s},
                                     {&about, u"Image2"_s},
                                     {&about, u"Image3"_s}}) {
        const QImage image = form->findChild<QWidget*>(name)->grab().toImage();
        QSet<QRgb> colors;
        for (int i = 0; i < image.width() * image.height(); ++i)
            colors.insert(image.pixel(i % image.width(), i / image.width()));
        EXPECT_GT(colors.size(), 20) << name.toStdString(); // soft edges
    }
    EXPECT_EQ(shell::Icono().availableSizes(),
              QList<QSize>({{16, 16}, {32, 32}, {48, 48}, {128, 128}}));
}
