// SPDX-License-Identifier: GPL-3.0-or-later
#include "deploy/Destinos.h"
#include "deploy/Module2.h"
#include "platform/base/Clock.h"
#include "platform/controls/DriveListBox.h"
#include "platform/files/Drives.h"
#include "shared/cProg.h"
#include "support/MainWindow.h"

#include <QLabel>
#include <QTimer>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

// The files that a transfer takes; each holds its own name behind more than one step of a copy.
constexpr std::array kDataFiles = {"EBOOT.PBP", "EBOOT2.PBP", "EBOOT3.PBP",  "EBOOT4.PBP",
                                   "hook.prx",  "load.pbp",   "rdriver.prx", "syslib.prx"};
const QByteArray kHead = QByteArray((1 << 20) + 1, 'L');

// As Tree tells of them.
const QString kScript = u" GAME/juego/script.lua=a\u00C3\u00B1\r\n GAME150"_s;
const QString kDrivers = u" GAME/juego/LPHMDRIVER GAME/juego/LPHMDRIVER/hook.prx=hook.prx "
                         "GAME/juego/LPHMDRIVER/load.pbp=load.pbp "
                         "GAME/juego/LPHMDRIVER/rdriver.prx=rdriver.prx "
                         "GAME/juego/LPHMDRIVER/syslib.prx=syslib.prx"_s;
const QString kLoaders = u"Eboot clasico,Eboot HM6.6,Eboot HM8.0,Eboot PhoenixGameEngine 0.02"_s;
// Of the firmwares behind the first one.
const QString kVersions = u"2.71 SE,3.03 OE,3.10 OE,3.30 OE,3.40 OE,3.52 M33,3.71 M33,3.80 M33,"
                          "3.90 M33,3.93 M33,3.93 GEN,3.95 GEN,4.01 M33"_s;

class TransferTest : public support::MainWindow {
protected:
    TransferTest() {
        fs::create_directories(home.Root() / "stick/psp/GAME");
        fs::create_directories(home.Root() / "stick/psp/GAME150");
        for (const char* name : kDataFiles)
            home.Put(std::string("programa/data/") + name, kHead + name);
        script = Abrir(home.Put("juego.lua", "viejo"));
        script->txtFile().Text(u"aÃ±"_s); // whose bytes in the code page are those of another text
        script->flagGuardar = false;
        compartido.nombre_script = u"juego"_s;
        Open("transfer");
    }
    void Choose(const QString& drive, int firmware, int loader) {
        Find<platform::DriveListBox>("Drive1")->Drive(drive);
        Find<QComboBox>("Combo1")->setCurrentIndex(firmware);
        Find<QComboBox>("Combo2")->setCurrentIndex(loader);
    }
    // Presses a button some time after the last change of the buttons.
    void PressAfter(qint64 later, const char* button = "KewlButtons1") {
        now += later;
        Click(button);
    }
    void Transfer() { PressAfter(5000); }
    // All that is in the console's folder of the stick, files with what they hold behind kHead.
    QString Tree() {
        const fs::path psp = home.Root() / "stick/psp";
        QStringList files;
        for (const auto& entry : fs::recursive_directory_iterator(psp)) {
            const std::string name = fs::relative(entry.path(), psp);
            files.append(QString::fromStdString(name));
            if (entry.is_regular_file())
                files.last() += u'=' + QString::fromLatin1(Stick(name).replace(kHead, ""));
        }
        files.sort();
        return files.join(u' ');
    }
    QByteArray Stick(const std::string& name) { return home.Get("stick/psp/" + name); }
    bool Idle() { return Find("KewlButtons1")->isVisible() && !Find("parar")->isVisible(); }

    documents::frmDocumento* script = nullptr;
    int64_t now = 0; // milliseconds, of the program's clock
    support::Override<std::function<int64_t()>> clock{platform::NowSeam(), [this] { return now; }};
    support::Override<std::unique_ptr<platform::Drives>> drives{
        platform::DrivesSeam(), std::make_unique<platform::Drives>(
                                    home.Root(), u"E=%1"_s.arg((home.Root() / "stick").c_str()))};
};

} // namespace

TEST_F(TransferTest, EachLoaderMakesItsTree) {
    EXPECT_EQ(principal.ActiveForm()->Caption(), QString(54, u' ') + u"Ventana de Transferencia"_s);
    EXPECT_TRUE(InTheMiddle());
    auto* firmwares = Find<QComboBox>("Combo1");
    auto* loaders = Find<QComboBox>("Combo2");
    EXPECT_EQ(loaders->currentIndex(), -1);
    loaders->setCurrentIndex(0);
    EXPECT_FALSE(Find("KewlButtons1")->isEnabled());
    Choose(u"E:"_s, 0, -1); // the firmware alone is enough
    Transfer();
    EXPECT_EQ(Tree(), u"GAME GAME/juego"_s + kScript);
    home.Put("stick/psp/GAME/juego/añadido", "x");
    for (int i = 0; const QString& loader : kLoaders.split(u',')) {
        Choose(u"E:"_s, 0, i);
        EXPECT_EQ(loaders->currentText(), loader);
        EXPECT_TRUE(support::Shipped(std::string("data/") + kDataFiles[size_t(i)])
                        .contains("Sustituir por: " + loader.toUtf8()));
        Transfer();
        EXPECT_TRUE(Idle());
        EXPECT_EQ(Find<shared::cProg>("cProg1")->Value(), 100);
        EXPECT_EQ(Tree(), u"GAME GAME/juego GAME/juego/EBOOT.PBP=%1"_s.arg(kDataFiles[size_t(i)]) +
                              (i == 2 ? kDrivers : QString()) + kScript);
        ++i;
    }
    ASSERT_EQ(firmwares->count(), 14);
    EXPECT_EQ(firmwares->itemText(0), u"Firmware 1.5"_s);
    for (int firmware = 0; const QString& version : kVersions.split(u',')) {
        compartido.nombre_script = version;
        Choose(u"E:"_s, ++firmware, -1); // the loader of the last transfer goes again
        EXPECT_EQ(firmwares->currentText(), u"CF %1-Todas versiones"_s.arg(version));
        Transfer();
        EXPECT_TRUE(Stick("GAME150/" + version.toStdString() + "/EBOOT.PBP").endsWith("4.PBP"));
    }
}

TEST_F(TransferTest, WhatCannotBeIsRefusedBeforeTheStickIsTouched) {
    home.Put("stick/psp/GAME/juego/mío", "x");
    home.Put("stick/psp/GAME/ajeno", "x");
    const QString before = Tree();
    const auto refused = [&](const QString& drive, const QString& name, const QString& text) {
        compartido.nombre_script = name;
        Choose(drive, 0, 0);
        dialogs.Expect(text);
        Transfer();
        EXPECT_TRUE(Idle());
    };
    refused(u"E:"_s, u".."_s, u"\"..\" no puede ser el nombre"_s);
    refused(u"E:"_s, QString(), u"si no tiene más de cuatro, guárdalo"_s); // hovering won't do
    refused(QString(), u"juego"_s, u"Elige en PSP"_s);
    refused(u"E:"_s, u"ajeno"_s, u"GAME\\ajeno\": ya existe"_s); // no folder
    refused(u"C:"_s, u"juego"_s, u"no existe la carpeta C:\\PSP\\GAME"_s);
    fs::rename(home.Root() / "stick", home.Root() / "fuera");
    refused(u"E:"_s, u"juego"_s, u"La unidad E: no está"_s);
    fs::rename(home.Root() / "fuera", home.Root() / "stick");
    script->txtFile().Text(QString());
    script->flagGuardar = false;
    refused(u"E:"_s, u"juego"_s, u"Error en la transmision del Script: juego"_s);
    EXPECT_EQ(dialogs.messages.back().icon, platform::Icon::None);
    EXPECT_EQ(Tree(), before);
}

TEST_F(TransferTest, APressThatFollowsAtOnceIsNotMeant) {
    auto* transferir = Find<QPushButton>("KewlButtons1");
    const std::string mark = "stick/psp/GAME/juego/señal"; // which a further transfer takes away
    const auto press = [&](int later) {
        home.Put(mark, "x");
        PressAfter(later);
        return home.Get(mark).isEmpty();
    };
    const int hurry = QApplication::doubleClickInterval() - 1;
    Choose(u"E:"_s, 0, 2);
    QTimer::singleShot(0, tool, [&] { PressAfter(hurry, "parar"); }); // while files are copied
    EXPECT_TRUE(press(0));
    EXPECT_TRUE(Tree().contains(kDrivers));
    EXPECT_FALSE(press(0));
    EXPECT_FALSE(press(hurry));
    QTimer::singleShot(0, tool, [&] {
        EXPECT_TRUE(Find("parar")->isVisible());
        EXPECT_FALSE(transferir->isVisible());
        compartido.nombre_script = u"otro"_s; // has no say any more
        PressAfter(hurry + 1, "parar");
    });
    EXPECT_TRUE(press(1));
    EXPECT_TRUE(Idle());
    EXPECT_EQ(Tree(), u"GAME GAME/juego GAME/juego/LPHMDRIVER"_s + kScript);
    compartido.nombre_script = u"juego"_s;
    for (const bool held : {true, false}) { // a key that is held down, and one press of it
        const auto type = [&](Qt::Key key, Qt::KeyboardModifiers modifiers) {
            home.Put(mark, "x");
            now += 5000;
            qt_handleKeyEvent(principal.windowHandle(), QEvent::KeyPress, key, modifiers, u"t"_s,
                              held);
        };
        type(Qt::Key_T, Qt::AltModifier);
        EXPECT_NE(transferir->isDown(), held);
        EXPECT_TRUE(held || QTest::qWaitFor([&] { return home.Get(mark).isEmpty() && Idle(); }));
        transferir->setFocus();
        type(Qt::Key_Return, {});
        EXPECT_EQ(home.Get(mark).isEmpty(), !held);
    }
    EXPECT_TRUE(Tree().contains(kDrivers)); // the stop held for one transfer
}

TEST_F(TransferTest, TheWindowStaysWhileFilesAreCopied) {
    auto* notice = Find<QLabel>("aviso");
    Choose(u"E:"_s, 0, 0);
    QTimer::singleShot(0, tool, [&] {
        EXPECT_FALSE(Find("KewlButtons2")->isEnabled());
        EXPECT_FALSE(principal.close());
        EXPECT_EQ(principal.Forms().size(), 2U); // the script is still there, too
        EXPECT_FALSE(principal.ActiveForm()->Unload());
        EXPECT_TRUE(notice->text().contains(u"está en marcha"_s));
        script->Show();
        script->txtFile().SetFocus();
    });
    Transfer();
    EXPECT_TRUE(Tree().contains(u"EBOOT.PBP"_s));
    EXPECT_EQ(principal.ActiveForm(), script); // typing goes on there
    EXPECT_EQ(notice->text(), QString());
    QTest::keyClick(tool, Qt::Key_Escape); // presses "&Cerrar"
    EXPECT_EQ(principal.Forms().size(), 1U);
}

TEST_F(TransferTest, FailuresHaveASoundEnd) {
    fs::remove(home.Root() / "programa/data/EBOOT3.PBP"); // says nothing, and the rest runs
    Choose(u"E:"_s, 0, 2);
    Transfer();
    EXPECT_EQ(Tree(), u"GAME GAME/juego"_s + kDrivers + kScript);
    home.Put("programa/data/EBOOT3.PBP", kHead);
    QTimer::singleShot(0, tool,
                       [this] { fs::remove_all(home.Root() / "stick"); }); // it is pulled out
    dialogs.Expect(u"No se puede crear la carpeta \"E:\\PSP\\GAME\\juego\\LPHMDRIVER\""_s);
    Transfer();
    EXPECT_TRUE(Idle());
    EXPECT_EQ(dialogs.messages.back().icon, platform::Icon::Error);
}

TEST_F(TransferTest, NamesFollowTheFileSystemOfTheStick) {
    QStringList refused =
        u".,..,a\nb,a\u001Fb,a\u007Fb,a\uF03Fb,a.,a ,con,Prn.x,AUX,nul.x.y,conin$,"
        "CONOUT$.a,com0,lpt³,a~1,JUEGOL~1,JUEGOL~1.LUA,a~123456."_s.split(u',');
    refused << QString(QChar(0xD800)) << QString(256, u'a');
    for (const QChar c : u"\\/:*?\"<>|\uFFFD"_s)
        refused << QString(c) << u'a' + c << c + u"a"_s;
    for (const QString& name : refused)
        EXPECT_TRUE(deploy::DefectoDeNombre(name)) << name.toStdString();
    QStringList allowed = u"a,.a, a,a b,ñ→,con1,nulo,com,com10,xlpt1,~1,JUEGOLA~1,a~b,a~1234567,"
                          "a~1.abcd,a.b~1"_s.split(u',');
    allowed << QString(255, u'a');
    for (const QString& name : allowed)
        EXPECT_FALSE(deploy::DefectoDeNombre(name)) << name.toStdString();
}

TEST(Module2Test, ProgressIsCutOffToAWholePercentage) {
    shared::cProg bar;
    EXPECT_EQ(Module2::CopyProgress(3, 2, bar), 0);
    EXPECT_EQ(bar.Value(), 66);
    Module2::CopyProgress(qint64{1} << 40, (qint64{1} << 40) - 1, bar);
    EXPECT_EQ(bar.Value(), 99);
    Module2::CopyProgress(0, 0, bar);
    EXPECT_EQ(bar.Value(), 100);
}
