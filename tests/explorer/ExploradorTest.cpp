// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/Explorador.h"
#include "platform/controls/ListView.h"
#include "platform/desktop/Registry.h"
#include "platform/files/Drives.h"
#include "platform/forms/Frame.h"
#include "support/MainWindow.h"

#include <QBuffer>
#include <QHeaderView>
#include <QListView>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

class ExploradorTest : public support::MainWindow {
protected:
    void Open() {
        Press("mnuherramientasExplorador");
        tool = principal.ActiveForm();
        ASSERT_NE(window = dynamic_cast<explorer::Explorador*>(tool), nullptr);
        QApplication::processEvents();
    }
    platform::ListView& List() { return *Find<platform::ListView>("ListView1"); }
    QString Frame() { return Find<platform::Frame>("Frame1")->Caption(); }
    void Click(const char* button) {
        QTest::mouseClick(Find<QToolButton>(button), Qt::LeftButton);
        QApplication::processEvents();
    }
    QStringList Names() {
        QStringList names;
        for (int row = 1; row <= List().Count(); ++row)
            names.append(List().Text(row, 0));
        return names;
    }
    void Enter(const QString& name) {
        auto* rows = List().findChild<QListView*>();
        rows->setCurrentIndex(rows->model()->index(static_cast<int>(Names().indexOf(name)), 0));
        QTest::keyClick(rows, Qt::Key_Return);
        QApplication::processEvents();
    }

    explorer::Explorador* window = nullptr;
};

} // namespace

TEST_F(ExploradorTest, TheCaptionFollowsWhatIsEnteredAndLeft) {
    std::filesystem::create_directory(home.Root() / "juegos");
    home.Put("otra/b.lua", {});
    const support::Override drives(
        platform::DrivesSeam(),
        std::make_unique<platform::Drives>(home.Root(), u"F=%1/otra"_s.arg(home.Root().c_str())));
    Open();
    EXPECT_EQ(window->Shell()->x(), support::kDocumentWidth);
    EXPECT_EQ(window->focusWidget(), List().focusProxy());
    for (const char* name : {"Boton1", "Boton3", "Boton5"}) {
        const auto* button = Find<QToolButton>(name);
        EXPECT_GT(button->width(), button->fontMetrics().horizontalAdvance(button->text()));
        EXPECT_NE(button->icon().pixmap(24, QIcon::Normal).toImage(),
                  button->icon().pixmap(24, QIcon::Active).toImage());
    }
    Click("Boton1");
    EXPECT_EQ(Frame(), QString());
    Enter(u"juegos"_s);
    EXPECT_EQ(Frame(), u"c:\\juegos"_s);
    EXPECT_EQ(Names(), QStringList());
    Click("Boton5");
    EXPECT_TRUE(Names().contains(u"juegos"_s));
    EXPECT_EQ(Frame(), u"c:\\juegos"_s);
    Enter(u"juegos"_s);
    Click("Boton1");
    EXPECT_EQ(Frame(), u"C:\\"_s);
    Open(); // the same window
    EXPECT_EQ(window->cFile()->path(), u"C:\\"_s);
    window->Unload();
    // Before the rest of its load the rows are read, and the window may go then.
    QTimer::singleShot(0, [this] {
        platform::Form* form = principal.Forms().at(0);
        EXPECT_NE(form->Shell()->x(), support::kDocumentWidth);
        form->Unload();
    });
    Press("mnuherramientasExplorador");
    EXPECT_EQ(principal.ActiveForm(), nullptr);
    Open();
    EXPECT_EQ(Frame(), QString());
    const auto press = [&](const char* path) { // for the other drive, read at each press
        home.Put("programa/config.ini", QByteArray("[explorador]\r\npath=") + path + "\r\n");
        Click("Boton3");
        return Names().join(u',');
    };
    EXPECT_EQ(press("F"), u"b.lua"_s);
    EXPECT_EQ(press(""), QString());
    EXPECT_EQ(Frame(), QString());
    EXPECT_EQ(press("F:\\psp"), u"b.lua"_s);
    EXPECT_EQ(Frame(), u"F:\\"_s);
}

TEST_F(ExploradorTest, TheHeaderHasTheSkinOfTheProgramsFolder) {
    QBuffer file;
    QPixmap skin(18, 25);
    skin.fill(Qt::black);
    ASSERT_TRUE(skin.save(&file, "BMP"));
    home.Put("programa/Skin.bmp", file.data());
    Open();
    EXPECT_EQ(List().View(), platform::ListDisplay::List);
    List().View(platform::ListDisplay::Report);
    EXPECT_EQ(List().Header()->height(), 25);
    for (const int x : {40, 20}) // over one of its columns, from wherever it was
        QTest::mouseMove(List().Header()->viewport(), {x, 5});
    for (const auto& [normal, raised, bold] :
         {std::tuple{0xFF0000, 0, false}, {0xFF0000, 0xFF00, false}, {0xFF0000, 0xFF00, true}}) {
        const QImage before = List().Header()->grab().toImage();
        window->setColumnHeader(u"C:\\programa\\Skin.bmp"_s, normal, raised, false, bold);
        EXPECT_NE(List().Header()->grab().toImage(), before);
    }
    window->Unload();
    home.Put("programa/Skin.bmp", "BM");
    Open();
    EXPECT_EQ(List().Header()->minimumHeight(), 0);
}

TEST_F(ExploradorTest, AProjectOpensInTheEditor) {
    platform::RegSetValueA(platform::HKEY_CLASSES_ROOT, u".qmk"_s, u"clase"_s);
    platform::RegSetValueA(platform::HKEY_CLASSES_ROOT, u"clase"_s, u"Quillmark"_s);
    home.Put("juego.qmk", "print(1)");
    home.Put("roto.qmk", QByteArray(1, '\0'));
    Open();
    Enter(u"juego.qmk"_s);
    ASSERT_NE(Active(), nullptr);
    EXPECT_EQ(compartido.documento_explorador, Active());
    EXPECT_EQ(Active()->Caption(), u"juego"_s);
    EXPECT_EQ(Text(), u"print(1)"_s);
    EXPECT_EQ(support::Place(*Active()), support::kOpenedPlace);
    Enter(u"roto.qmk"_s);
    EXPECT_EQ(Active()->Caption(), u"roto"_s);
    EXPECT_EQ(Text(), QString());
    EXPECT_EQ(compartido.numero_documentos, 2);
    Active()->State(platform::WindowState::Maximised);
    Open();
    EXPECT_EQ(window->State(), platform::WindowState::Normal);
    EXPECT_EQ(window->ScaleWidth(), 3795);
    EXPECT_FALSE(Reciente(1)->text().contains(u"qmk"_s));
    Press("mnuventanacerrar");
    EXPECT_EQ(compartido.documento_explorador, nullptr);
}
