// SPDX-License-Identifier: GPL-3.0-or-later
#include "deploy/Destinos.h"
#include "deploy/cProg.h"
#include "deploy/transfer_form.h"
#include "platform/Clock.h"
#include "platform/DriveListBox.h"
#include "platform/Drives.h"
#include "support/MainWindow.h"

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QtEndian>

using namespace Qt::StringLiterals;
using platform::Answer;
namespace fs = std::filesystem;

namespace {

// The files that a transfer takes; each holds its own name behind more than one step of a copy.
constexpr std::array kDataFiles = {"EBOOT.PBP", "EBOOT2.PBP", "EBOOT3.PBP",  "EBOOT4.PBP",
                                   "hook.prx",  "load.pbp",   "rdriver.prx", "syslib.prx"};
const QByteArray kHead = QByteArray((1 << 20) + 1, 'L');

const QStringList kLoaders = // which go with the first four
    u"Eboot clasico,Eboot HM6.6,Eboot HM8.0,Eboot PhoenixGameEngine 0.02"_s.split(u',');
const QString kDrivers = u" GAME/juego/LPHMDRIVER GAME/juego/LPHMDRIVER/hook.prx "
                         "GAME/juego/LPHMDRIVER/load.pbp GAME/juego/LPHMDRIVER/rdriver.prx "
                         "GAME/juego/LPHMDRIVER/syslib.prx"_s;
// Of the firmwares behind the first one.
const QString kVersions = u"2.71 SE,3.03 OE,3.10 OE,3.30 OE,3.40 OE,3.52 M33,3.71 M33,3.80 M33,"
                          "3.90 M33,3.93 M33,3.93 GEN,3.95 GEN,4.01 M33"_s;

class TransferTest : public support::MainWindow {
protected:
    TransferTest() {
        qputenv("QUILLMARK_DRIVES", "E=" + QByteArray((home.Root() / "stick").c_str()));
        platform::ResetCurrentDrives();
        fs::create_directories(home.Root() / "stick/psp/GAME");
        fs::create_directories(home.Root() / "stick/psp/GAME150");
        platform::ReplaceNow([this] { return now; });
        for (const char* name : kDataFiles)
            home.Put(std::string("programa/data/") + name, kHead + name);
        Abrir(home.Put("juego.lua", "a\xF1o"));
        compartido.nombre_script = u"juego"_s;
        Active()->txtFile().SelText(u"x"_s);
        Active()->flagGuardar = false;
        Press("transfer");
        window = principal.ActiveForm();
    }
    ~TransferTest() override { platform::ReplaceNow({}); }
    template<class Widget>
    Widget* Find(const char* name) {
        return window->findChild<Widget*>(QString::fromLatin1(name));
    }
    void Choose(const QString& drive, int firmware, int loader) {
        Find<platform::DriveListBox>("Drive1")->Drive(drive);
        Find<QComboBox>("Combo1")->setCurrentIndex(firmware);
        Find<QComboBox>("Combo2")->setCurrentIndex(loader);
    }
    // Presses a button some time after the last press.
    void Click(const char* button) {
        now += 5000;
        Find<QPushButton>(button)->click();
    }
    void Transfer() { Click("KewlButtons1"); }
    // What the user does while files are copied.
    template<class Work>
    void Meanwhile(Work work) {
        QTimer::singleShot(0, window, work);
    }
    // All that is in the console's folder of the stick.
    QString Tree() {
        QStringList files;
        for (const auto& entry : fs::recursive_directory_iterator(home.Root() / "stick/psp"))
            files.append(
                QString::fromStdString(fs::relative(entry.path(), home.Root() / "stick/psp")));
        files.sort();
        return files.join(u' ');
    }
    QByteArray Stick(const std::string& name) { return home.Get("stick/psp/" + name); }
    bool Idle() {
        return Find<QPushButton>("KewlButtons1")->isVisible() &&
               !Find<QPushButton>("parar")->isVisible();
    }

    platform::Form* window;
    qint64 now = 0; // milliseconds, of the program's clock
};

} // namespace

TEST_F(TransferTest, EachLoaderMakesItsTree) {
    EXPECT_EQ(window->Caption(), QString(54, u' ') + u"Ventana de Transferencia"_s);
    EXPECT_TRUE(InTheMiddle(window));
    auto* button = Find<QPushButton>("KewlButtons1");
    EXPECT_FALSE(button->isEnabled());
    EXPECT_EQ(Find<QComboBox>("Combo2")->currentIndex(), -1);
    EXPECT_EQ(Find<deploy::cProg>("cProg1")->Value(), 0);
    Find<QComboBox>("Combo2")->setCurrentIndex(0);
    EXPECT_FALSE(button->isEnabled());
    Choose(u"E:"_s, 0, -1);
    EXPECT_TRUE(button->isEnabled()); // the firmware alone is enough
    Transfer();
    EXPECT_EQ(Tree(), u"GAME GAME/juego GAME/juego/script.lua GAME150"_s);
    EXPECT_EQ(Stick("GAME/juego/script.lua"), "xa\xF1o\r\n");
    home.Put("stick/psp/GAME/juego/añadido", "x");
    ASSERT_EQ(Find<QComboBox>("Combo2")->count(), 4);
    for (int i = 0; i < 4; ++i) {
        Choose(u"E:"_s, 0, i);
        EXPECT_EQ(Find<QComboBox>("Combo2")->currentText(), kLoaders[i]);
        Transfer();
        EXPECT_TRUE(Idle());
        EXPECT_EQ(Find<deploy::cProg>("cProg1")->Value(), 100);
        EXPECT_EQ(Tree(), u"GAME GAME/juego GAME/juego/EBOOT.PBP"_s +
                              (i == 2 ? kDrivers : QString()) +
                              u" GAME/juego/script.lua GAME150"_s);
        EXPECT_TRUE(Stick("GAME/juego/EBOOT.PBP") == kHead + kDataFiles.at(size_t(i)));
        for (const char* driver : {"hook.prx", "load.pbp", "rdriver.prx", "syslib.prx"})
            EXPECT_TRUE(i != 2 ||
                        Stick(std::string("GAME/juego/LPHMDRIVER/") + driver) == kHead + driver);
    }
    ASSERT_EQ(Find<QComboBox>("Combo1")->count(), 14);
    EXPECT_EQ(Find<QComboBox>("Combo1")->itemText(0), u"Firmware 1.5"_s);
    for (int firmware = 0; const QString& version : kVersions.split(u',')) {
        compartido.nombre_script = version;
        Choose(u"E:"_s, ++firmware, -1); // the loader of the last transfer goes again
        EXPECT_EQ(Find<QComboBox>("Combo1")->currentText(),
                  u"CF %1-Todas versiones"_s.arg(version));
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
        dialogs.Expect(text, Answer::Ok);
        Transfer();
        EXPECT_TRUE(Idle());
        EXPECT_EQ(Tree(), before);
    };
    refused(u"E:"_s, u".."_s, u"\"..\" no puede ser el nombre"_s);
    refused(u"E:"_s, QString(), u"si no tiene más de cuatro, guárdalo"_s); // hovering won't do
    refused(QString(), u"juego"_s, u"Elige en PSP"_s);
    refused(u"E:"_s, u"ajeno"_s, u"GAME\\ajeno\": ya existe"_s); // no folder
    refused(u"C:"_s, u"juego"_s, u"no existe la carpeta C:\\PSP\\GAME"_s);
    fs::rename(home.Root() / "stick", home.Root() / "fuera");
    dialogs.Expect(u"La unidad E: no está"_s, Answer::Ok);
    Choose(u"E:"_s, 0, 0);
    Transfer();
    fs::rename(home.Root() / "fuera", home.Root() / "stick");
    Abrir(home.Put("vacio.lua", ""));
    Active()->txtFile().SelText(u"x"_s);
    Active()->txtFile().Undo();
    refused(u"E:"_s, u"juego"_s, u"Error en la transmision del Script: juego"_s);
    EXPECT_EQ(dialogs.messages.back().icon, platform::Icon::None);
    Active()->flagGuardar = false;
}

TEST_F(TransferTest, NamesFollowTheFileSystemOfTheStick) {
    const auto judged = [](const QStringList& names) {
        QString verdicts;
        for (const QString& name : names)
            verdicts += deploy::DefectoDeNombre(name) ? u'-' : u'+';
        return verdicts;
    };
    const QStringList refused =
        u".,..,a\nb,a\u001Fb,a\u007Fb,a\uF03Fb,a.,a ,con,Prn.x,AUX,nul.x.y,conin$,"
        "CONOUT$.a,com0,lpt³,a~1,JUEGOL~1,JUEGOL~1.LUA,a~123456."_s.split(u',');
    EXPECT_EQ(judged(refused), QString(refused.size(), u'-'));
    EXPECT_EQ(judged({QString(QChar(0xD800)), QString(256, u'a'), QString(255, u'a')}), u"--+"_s);
    for (const QChar c : u"\\/:*?\"<>|\uFFFD"_s)
        EXPECT_EQ(judged({QString(c), u'a' + c, c + u"a"_s}), u"---"_s);
    const QStringList allowed =
        u"a,.a, a,a b,ñ→,con1,nulo,com,com10,xlpt1,~1,JUEGOLA~1,a~b,a~1234567,"
        "a~1.abcd,a.b~1"_s.split(u',');
    EXPECT_EQ(judged(allowed), QString(allowed.size(), u'+'));
}

TEST_F(TransferTest, StoppingEndsAllCopiesOfThisTransfer) {
    Choose(u"E:"_s, 0, 2);
    Meanwhile([this] {
        EXPECT_TRUE(Find<QPushButton>("parar")->isVisible());
        EXPECT_FALSE(Find<QPushButton>("KewlButtons1")->isVisible());
        compartido.nombre_script = u"otro"_s; // has no say any more
        Click("parar");
    });
    Transfer();
    EXPECT_TRUE(Idle());
    EXPECT_EQ(Tree(), u"GAME GAME/juego GAME/juego/LPHMDRIVER GAME/juego/script.lua GAME150"_s);
    compartido.nombre_script = u"juego"_s;
    Transfer();
    EXPECT_TRUE(Tree().contains(kDrivers));
}

TEST_F(TransferTest, APressThatFollowsAtOnceIsNotMeant) {
    principal.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&principal));
    auto* transferir = Find<QPushButton>("KewlButtons1");
    const std::string mark = "stick/psp/GAME/juego/señal"; // which a further transfer takes away
    const auto press = [&](const char* button, int later) {
        home.Put(mark, "x");
        now += later;
        QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton);
        return home.Get(mark).isEmpty();
    };
    const int hurry = QApplication::doubleClickInterval() - 1;
    Choose(u"E:"_s, 0, 2);
    Meanwhile([&] {
        now += hurry;
        QTest::mouseClick(Find<QPushButton>("parar"), Qt::LeftButton);
    });
    EXPECT_TRUE(press("KewlButtons1", 0));
    EXPECT_TRUE(Tree().contains(kDrivers));
    EXPECT_FALSE(press("KewlButtons1", 0));
    EXPECT_FALSE(press("KewlButtons1", hurry));
    EXPECT_TRUE(press("KewlButtons1", 1));
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
}

TEST_F(TransferTest, TheWindowStaysWhileFilesAreCopied) {
    principal.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&principal));
    auto* script = dynamic_cast<documents::frmDocumento*>(principal.Forms().front());
    Choose(u"E:"_s, 0, 0);
    bool tried = false;
    Meanwhile([&] {
        EXPECT_FALSE(Find<QPushButton>("KewlButtons2")->isEnabled());
        EXPECT_FALSE(principal.close());
        EXPECT_EQ(principal.Forms().size(), 2U); // the script is still there, too
        EXPECT_FALSE(window->Unload());
        EXPECT_TRUE(Find<QLabel>("aviso")->text().contains(u"está en marcha"_s));
        script->Show();
        script->txtFile().SetFocus();
        tried = true;
    });
    Transfer();
    EXPECT_TRUE(tried);
    EXPECT_TRUE(Tree().contains(u"EBOOT.PBP"_s));
    EXPECT_EQ(principal.ActiveForm(), script); // typing goes on there
    EXPECT_EQ(Find<QLabel>("aviso")->text(), QString());
    QTest::keyClick(window, Qt::Key_Escape); // presses "&Cerrar"
    EXPECT_EQ(principal.Forms().size(), 1U);
}

TEST_F(TransferTest, AnyTextArrivesWhole) {
    fs::rename(home.Root() / "stick/psp", home.Root() / "stick/PSP");
    documents::CodeMax& editor =
        dynamic_cast<documents::frmDocumento*>(principal.Forms().front())->txtFile();
    Choose(u"E:"_s, 0, -1);
    editor.Text(u"→ñ"_s);
    Transfer();
    EXPECT_EQ(home.Get("stick/PSP/GAME/juego/script.lua"), u"→ñ\r\n"_s.toUtf8());
    editor.Text(u"Â© 2024"_s);
    Transfer();
    EXPECT_EQ(home.Get("stick/PSP/GAME/juego/script.lua"), "\xC2\xA9 2024\r\n");
    home.Put("ajeno/mío", "x");
    fs::create_directory_symlink(home.Root() / "ajeno",
                                 home.Root() / "stick/PSP/GAME/juego/enlace");
    editor.Text(u"print(1) -- x\r\n"_s.repeated(20 << 16));
    Transfer();
    EXPECT_EQ(home.Get("stick/PSP/GAME/juego/script.lua").size(), (20 << 16) * 15 + 2);
    EXPECT_EQ(home.Get("ajeno/mío"), "x");
    dynamic_cast<documents::frmDocumento*>(principal.Forms().front())->flagGuardar = false;
}

TEST(Loaders, ThatComeWithTheProgramAreValidContainers) {
    for (const deploy::Eboot& eboot : deploy::Eboots()) {
        const QString name = QString::fromUtf16(eboot.origen).replace(u'\\', u'/');
        const QByteArray bytes = support::Shipped(name.sliced(1).toStdString());
        ASSERT_GT(bytes.size(), 40) << name.toStdString();
        const auto number = [&](qsizetype at) {
            return qFromLittleEndian<quint32>(bytes.constData() + at);
        };
        EXPECT_TRUE(bytes.startsWith(QByteArray("\0PBP\0\0\1\0", 8)));
        EXPECT_EQ(number(8), 40U);
        for (qsizetype part = 1; part < 8; ++part)
            EXPECT_EQ(number(8 + 4 * part), bytes.size());
        EXPECT_EQ(bytes.sliced(40, 4), QByteArray("\0PSF", 4));
        const quint32 data = number(40 + 12);
        EXPECT_EQ(data % 4, 0U);
        const quint32 title = data + number(40 + 20 + 2 * 16 + 12);
        EXPECT_EQ(QByteArray(bytes.constData() + 40 + title),
                  "Sustituir por: " + QString::fromUtf16(eboot.nombre).toUtf8());
    }
}

TEST_F(TransferTest, FailuresHaveASoundEnd) {
    fs::remove(home.Root() / "programa/data/EBOOT3.PBP"); // says nothing, and the rest runs
    Choose(u"E:"_s, 0, 2);
    Transfer();
    EXPECT_TRUE(Tree().contains(u"syslib.prx"_s));
    EXPECT_FALSE(Tree().contains(u"EBOOT"_s));
    Choose(u"E:"_s, 0, 2);
    home.Put("programa/data/EBOOT3.PBP", kHead);
    Meanwhile([this] { fs::remove_all(home.Root() / "stick"); }); // it is pulled out
    dialogs.Expect(u"No se puede crear la carpeta \"E:\\PSP\\GAME\\juego\\LPHMDRIVER\""_s,
                   Answer::Ok);
    Transfer();
    EXPECT_TRUE(Idle());
    EXPECT_EQ(dialogs.messages.back().icon, platform::Icon::Error);
}
