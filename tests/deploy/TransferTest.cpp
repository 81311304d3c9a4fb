// SPDX-License-Identifier: GPL-3.0-or-later
#include "deploy/Destinos.h"
#include "deploy/cProg.h"
#include "deploy/transfer_form.h"
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

const QByteArray kLoader = QByteArray((1 << 20) + 1, 'L');

class TransferTest : public support::MainWindow {
protected:
    TransferTest() {
        qputenv("QUILLMARK_DRIVES", "E=" + QByteArray((home.Root() / "stick").c_str()));
        platform::ResetCurrentDrives();
        fs::create_directories(home.Root() / "stick/psp/GAME");
        fs::create_directories(home.Root() / "stick/psp/GAME150");
        for (const deploy::Eboot& eboot : deploy::Eboots())
            Data(eboot.origen, kLoader + QString::fromUtf16(eboot.origen).toUtf8());
        for (const char16_t* driver : deploy::kDrivers)
            Data((std::u16string(u"\\data") + driver).c_str(), QByteArray("driver"));
        Abrir(home.Put("juego.lua", "a\xF1o"));
        compartido.nombre_script = u"juego"_s;
        Active()->txtFile().SelText(u"x"_s);
        Active()->flagGuardar = false;
        Press("transfer");
        window = principal.ActiveForm();
    }
    void Data(const char16_t* path, const QByteArray& bytes) {
        home.Put("programa" + QString::fromUtf16(path).replace(u'\\', u'/').toStdString(), bytes);
    }
    template<class Widget>
    Widget* Find(const char* name) {
        return window->findChild<Widget*>(QString::fromLatin1(name));
    }
    void Choose(const QString& drive, int firmware, int loader) {
        Find<platform::DriveListBox>("Drive1")->Drive(drive);
        Find<QComboBox>("Combo1")->setCurrentIndex(firmware);
        Find<QComboBox>("Combo2")->setCurrentIndex(loader);
    }
    void Transfer() { Find<QPushButton>("KewlButtons1")->click(); }
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
};

} // namespace

TEST_F(TransferTest, EachLoaderMakesItsTree) {
    EXPECT_EQ(window->Caption(), QString(54, u' ') + u"Ventana de Transferencia"_s);
    auto* button = Find<QPushButton>("KewlButtons1");
    EXPECT_FALSE(button->isEnabled());
    ASSERT_EQ(Find<QComboBox>("Combo1")->count(), 14);
    ASSERT_EQ(Find<QComboBox>("Combo2")->count(), 4);
    Choose(u"E:"_s, 0, -1);
    EXPECT_TRUE(button->isEnabled()); // the firmware alone is enough
    Transfer();
    EXPECT_EQ(Tree(), u"GAME GAME/juego GAME/juego/script.lua GAME150"_s);
    EXPECT_EQ(Stick("GAME/juego/script.lua"), "xa\xF1o\r\n");
    home.Put("stick/psp/GAME/juego/añadido", "x");
    for (int loader = 0; loader < 4; ++loader) {
        Choose(u"E:"_s, 0, loader);
        Transfer();
        EXPECT_TRUE(Idle());
        EXPECT_EQ(Find<deploy::cProg>("cProg1")->Value(), 100);
        const QString driver = loader == 2 ? u"GAME/juego/LPHMDRIVER "
                                             "GAME/juego/LPHMDRIVER/hook.prx "
                                             "GAME/juego/LPHMDRIVER/load.pbp "
                                             "GAME/juego/LPHMDRIVER/rdriver.prx "
                                             "GAME/juego/LPHMDRIVER/syslib.prx "_s
                                           : QString();
        EXPECT_EQ(Tree(), u"GAME GAME/juego GAME/juego/EBOOT.PBP "_s + driver +
                              u"GAME/juego/script.lua GAME150"_s);
        const QString source = QString::fromUtf16(deploy::Eboots()[size_t(loader)].origen);
        EXPECT_TRUE(Stick("GAME/juego/EBOOT.PBP").endsWith("L" + source.toUtf8()));
    }
    for (int firmware = 1; firmware < 14; ++firmware) {
        compartido.nombre_script = u"f%1"_s.arg(firmware);
        Choose(u"E:"_s, firmware, -1); // the loader of the last transfer goes again
        Transfer();
        EXPECT_TRUE(Stick("GAME150/f" + std::to_string(firmware) + "/EBOOT.PBP").endsWith("4.PBP"));
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
    for (const QString& name :
         {u"."_s, u".."_s, u"a\\b"_s, u"a/b"_s, u"C:"_s, u"a\nb"_s, u"a?"_s, u"a\uF03Fb"_s,
          u"nul.x"_s, u"JUEGOL~1"_s, QString(QChar(0xD800)), u"a."_s, u"a "_s, QString(256, u'a')})
        refused(u"E:"_s, name, u"no puede ser el nombre"_s);
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

TEST_F(TransferTest, StoppingEndsAllCopies) {
    Choose(u"E:"_s, 0, 2);
    QTimer::singleShot(0, window, [this] {
        EXPECT_TRUE(Find<QPushButton>("parar")->isVisible());
        EXPECT_FALSE(Find<QPushButton>("KewlButtons1")->isVisible());
        compartido.nombre_script = u"otro"_s; // has no say any more
        Find<QPushButton>("parar")->click();
    });
    Transfer();
    EXPECT_TRUE(Idle());
    EXPECT_EQ(Tree(), u"GAME GAME/juego GAME/juego/LPHMDRIVER GAME/juego/script.lua GAME150"_s);
}

TEST_F(TransferTest, TheWindowStaysWhileFilesAreCopied) {
    principal.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&principal));
    auto* script = dynamic_cast<documents::frmDocumento*>(principal.Forms().front());
    Choose(u"E:"_s, 0, 0);
    bool tried = false;
    QTimer::singleShot(0, window, [&] {
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
    EXPECT_TRUE(window->Unload());
}

TEST_F(TransferTest, AnyTextArrivesWhole) {
    fs::rename(home.Root() / "stick/psp", home.Root() / "stick/PSP");
    documents::CodeMax& editor =
        dynamic_cast<documents::frmDocumento*>(principal.Forms().front())->txtFile();
    Choose(u"E:"_s, 0, -1);
    editor.Text(u"→ñ"_s);
    Transfer();
    EXPECT_EQ(home.Get("stick/PSP/GAME/juego/script.lua"), u"→ñ\r\n"_s.toUtf8());
    home.Put("ajeno/mío", "x");
    fs::create_directory_symlink(home.Root() / "ajeno",
                                 home.Root() / "stick/PSP/GAME/juego/enlace");
    editor.Text(u"print(1) -- x\r\n"_s.repeated(20 << 16));
    Transfer();
    EXPECT_EQ(home.Get("stick/PSP/GAME/juego/script.lua").size(), (20 << 16) * 15 + 2);
    EXPECT_EQ(home.Get("ajeno/mío"), "x");
    dynamic_cast<documents::frmDocumento*>(principal.Forms().front())->flagGuardar = false;
}

TEST_F(TransferTest, TheDriveListFollowsWhatIsThere) {
    auto* list = Find<platform::DriveListBox>("Drive1");
    list->Drive(u"E:"_s);
    qputenv("QUILLMARK_DRIVES", "E=/tmp;F=/");
    platform::ResetCurrentDrives();
    list->Refresh();
    EXPECT_EQ(list->Drive(), u"E:"_s);
    EXPECT_GE(list->findData(u"F:"_s), 0);
    qputenv("QUILLMARK_DRIVES", "F=/");
    platform::ResetCurrentDrives();
    list->Refresh();
    EXPECT_EQ(list->Drive(), QString());
    qputenv("QUILLMARK_DRIVES", "");
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
    home.Put("programa/data/EBOOT3.PBP", kLoader);
    QTimer::singleShot(0, window, [this] { // the stick is pulled out
        fs::remove_all(home.Root() / "stick");
    });
    dialogs.Expect(u"LPHMDRIVER"_s, Answer::Ok);
    Transfer();
    EXPECT_TRUE(Idle());
    EXPECT_EQ(dialogs.messages.back().icon, platform::Icon::Error);
}
