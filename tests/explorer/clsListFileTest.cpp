// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/clsListFile.h"
#include "platform/controls/ListView.h"
#include "platform/desktop/FileType.h"
#include "platform/desktop/Registry.h"
#include "platform/files/FileTime.h"
#include "platform/files/ProgramFolder.h"
#include "support/TestHome.h"

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QListView>
#include <QLocale>
#include <QRegularExpression>
#include <QTest>
#include <QTextDocumentFragment>
#include <QTimer>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

class clsListFileTest : public testing::Test, public explorer::MarcoExplorador {
protected:
    clsListFileTest() {
        QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
        lista->SetControls(view, pequenas, grandes);
        lista->changePath = [this](const QString& Ruta) { rutas.append(Ruta); };
        view.resize(600, 400);
        view.show();
    }
    ~clsListFileTest() override { QLocale::setDefault(QLocale::c()); }

    void AbrirProyecto(const QString& ruta, const QString& rotulo) override {
        rutas.append(rotulo + u" <- "_s + ruta);
    }
    // A file of 2005-03-07 09:05:03 UTC.
    void Put(const std::string& name, qint64 size) {
        home.Put("d/" + name, {});
        const fs::path file = home.Root() / "d" / name;
        fs::resize_file(file, static_cast<quint64>(size));
        const timespec times[] = {{1110186303, 0}, {1110186303, 0}};
        EXPECT_EQ(::utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
    }
    QString Row(int row) const {
        QStringList texts;
        for (int column = 0; column < 5; ++column)
            texts.append(view.Text(row, column));
        return texts.join(u'|');
    }
    QStringList Names() const {
        QStringList names;
        for (int row = 1; row <= view.Count(); ++row)
            names.append(view.Text(row, 0));
        return names;
    }
    QListView* Rows() { return view.findChild<QListView*>(); }
    QRect Place(const QString& name) {
        QApplication::processEvents();
        const auto row = static_cast<int>(Names().indexOf(name));
        const QModelIndex index = Rows()->model()->index(row, 0);
        Rows()->scrollTo(index);
        return Rows()->visualRect(index);
    }
    // In the middle of the icon that a row shows.
    QColor Icon(const QString& name) {
        const QRect place = Place(name);
        return Rows()->viewport()->grab().toImage().pixelColor(place.left() + 10,
                                                               place.center().y());
    }
    static void PutIcon(const QString& name, Qt::GlobalColor color, int side = 16) {
        QImage image(side, side, QImage::Format_RGB32);
        image.fill(color);
        image.save(name, "PNG");
    }
    void DoubleClick(const QString& name) {
        const QPoint place = Place(name).center();
        QTest::mouseClick(Rows()->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(Rows()->viewport(), Qt::LeftButton, {}, place);
    }

    support::TestHome home;
    platform::FileSystemObject fso;
    platform::ImageList pequenas;
    platform::ImageList grandes;
    platform::ListView view;
    std::unique_ptr<explorer::clsListFile> lista =
        std::make_unique<explorer::clsListFile>(*this, fso);
    QStringList rutas;
};

} // namespace

TEST_F(clsListFileTest, EachEntryOfAFolderHasItsRow) {
    platform::RegSetValueA(platform::HKEY_CLASSES_ROOT, u".tipo"_s, u"clase"_s);
    platform::RegSetValueA(platform::HKEY_CLASSES_ROOT, u"clase"_s, u"Tipo propio"_s);
    Put("b.TIPO", 1023);
    Put("a.tipo", 1024);
    Put("Ñu.tipo", 0);
    Put("z.EXE", 0);
    Put("y&y.exe", 1025);
    Put(".x.ico", 0);
    Put("readme", 0);
    Put("READme", 7);
    Put("dos.readme", qint64(2) << 30);
    Put("grande.", qint64(4) << 30);
    fs::create_directory(home.Root() / "d/Otra");
    fs::create_directory_symlink("Otra", home.Root() / "d/enlace");
    fs::create_symlink("no hay", home.Root() / "d/roto.tipo");
    ASSERT_EQ(::mkfifo((home.Root() / "d/ro?.tipo").c_str(), 0600), 0);
    lista->Listar(u"C:\\d"_s);
    EXPECT_EQ(Names().join(u','),
              u"enlace,Otra,.x.ico,a.tipo,b.TIPO,dos.readme,grande.,Ñu.tipo,READme,readme,"
              "ro?.tipo,roto.tipo,y&y.exe,z.EXE"_s);
    EXPECT_TRUE(Row(1).startsWith(u"enlace||Carpeta de Archivos|"_s) && Row(1).endsWith(u'|'));
    EXPECT_EQ(Row(3), u".x.ico|1 KB|Symbol|07.03.2005 9:05:03|H"_s);
    EXPECT_EQ(Row(4), u"a.tipo|2 KB|Tipo propio|07.03.2005 9:05:03|N"_s);
    EXPECT_EQ(Row(5), u"b.TIPO|1 KB|Tipo propio|07.03.2005 9:05:03|N"_s);
    EXPECT_EQ(view.Text(6, 1) + view.Text(7, 1), u"-2097151 KB1 KB"_s);
    EXPECT_EQ(view.Text(11, 4) + view.Text(12, 1) + view.Text(12, 4), u"S1 KBN"_s);
    EXPECT_EQ(view.Text(14, 2), u"Aplicación"_s);
    EXPECT_EQ(view.Text(9, 2), view.Text(10, 2)); // as the first of the extension
    const QString tip = Rows()->model()->index(12, 0).data(Qt::ToolTipRole).toString();
    EXPECT_TRUE(Qt::mightBeRichText(tip));
    EXPECT_EQ(QTextDocumentFragment::fromHtml(tip).toPlainText(), u"y&y.exe"_s);
    QStringList keys = pequenas.Keys();
    keys.sort();
    EXPECT_EQ(keys.replaceInStrings(QRegularExpression(u"\\d$"_s), QString()).join(u','),
              u"carpeta,z,zexe,zexe,zico,zreadme,ztipo"_s);
    // The three with icons of their own share a counter, in the order of the folder.
    const QString large = grandes.Keys().join(u',');
    EXPECT_TRUE(large.contains(u'0') && large.contains(u'1') && large.contains(u'2'));
    lista->Listar(u"C:\\d\\Otra"_s);
    EXPECT_EQ(view.Count(), 0);
    EXPECT_EQ(view.SmallIcons(), nullptr);
}

TEST_F(clsListFileTest, RowsShowTheIconsOfTheirKindAndRunDownAndThenAcross) {
    platform::RegSetValueA(platform::HKEY_CLASSES_ROOT, u".tipo"_s, u"clase"_s);
    platform::RegSetValueA(platform::HKEY_CLASSES_ROOT, u"clase\\DefaultIcon"_s, u"C:\\azul.ico"_s);
    Put("a.tipo", 0);
    PutIcon(u"azul.ico"_s, Qt::blue);
    PutIcon(u"d/rojo.ico"_s, Qt::red);
    PutIcon(u"d/verde.ICO"_s, Qt::green);
    home.Put("d/sub/x", {});
    home.Put("d/MANUAL DE MAGOS", {});
    for (int i = 0; i < 300; ++i)
        home.Put("d/iiiiiiiiiiiiiiiiiiii." + std::to_string(i), {});
    lista->Listar(u"C:\\d"_s);
    EXPECT_EQ(Icon(u"rojo.ico"_s), QColor(Qt::red));
    EXPECT_EQ(Icon(u"verde.ICO"_s), QColor(Qt::green));
    EXPECT_EQ(Icon(u"a.tipo"_s), QColor(Qt::blue));
    EXPECT_EQ(pequenas.Image(u"carpeta"_s).pixmap(16).toImage(),
              platform::FileIcon(platform::ProgramFolder()).pixmap(16).toImage());
    EXPECT_EQ(view.Icons(), &grandes);
    EXPECT_TRUE(pequenas.BackColor() == view.BackColor() &&
                grandes.MaskColor() == view.BackColor());
    const QRect wide = Place(u"MANUAL DE MAGOS"_s);
    EXPECT_GE(wide.width(), 16 + 6 + Rows()->fontMetrics().horizontalAdvance(u"MANUAL DE MAGOS"_s));
    EXPECT_LT(wide.width(), 400);
    const auto row = [&](int i) { return Rows()->visualRect(Rows()->model()->index(i, 0)); };
    EXPECT_TRUE(row(0).left() == row(1).left() && row(0).bottom() < row(1).top());
    EXPECT_TRUE(row(40).left() > row(0).right() && row(40).top() < 400);
    view.View(platform::ListDisplay::Report);
    QStringList columns;
    for (int i = 0; i < view.Header()->count(); ++i)
        columns += u"%1 %2 %3"_s.arg(view.HeaderItem(i)->text)
                       .arg(view.Header()->sectionSize(i))
                       .arg(view.HeaderItem(i)->fmt & platform::HDF_RIGHT);
    EXPECT_EQ(columns.join(u','),
              u"Nombre 140 0,Tamaño 70 1,Tipo 160 0,Fecha 120 0,Atributo 60 1"_s);
    lista.reset();
    EXPECT_TRUE(!view.Icons() && !view.SmallIcons());
}

TEST_F(clsListFileTest, WhatIsNotToBeReadIsAnEmptyList) {
    Put("a.txt", 0);
    for (const QString& path : {u"C:\\no"_s, u"Q:\\"_s, u":\\"_s, u"C:\\d\\a.txt"_s}) {
        lista->Listar(u"C:\\d\\"_s);
        EXPECT_EQ(view.Count(), 1);
        lista->Listar(path);
        EXPECT_EQ(view.Count(), 0) << path.toStdString();
        EXPECT_EQ(lista->path(), path);
    }
    const fs::path folder = home.Root() / "d";
    fs::permissions(folder / "a.txt", fs::perms::others_read);
    fs::create_directory(home.Root() / "e");
    fs::create_symlink("../d/a.txt", home.Root() / "e/enlace");
    fs::permissions(home.Root(), fs::perms::all);
    const bool root = ::geteuid() == 0; // permissions count for an ordinary user only
    const std::pair<fs::perms, QString> modes[] = {
        {fs::perms::none, QString()},
        {fs::perms::owner_read | fs::perms::group_read, u"N"_s}, // the names and no more
        {fs::perms::all, u"R"_s}};
    for (const auto& [mode, attributes] : modes) {
        fs::permissions(folder, mode);
        ASSERT_TRUE(!root || ::seteuid(65534) == 0);
        lista->Listar(u"C:\\d"_s);
        EXPECT_EQ(view.Text(1, 4), attributes);
        lista->Listar(u"C:\\e"_s);
        EXPECT_FALSE(view.Text(1, 3).endsWith(u"1601 0:00:00"_s));
        ASSERT_TRUE(!root || ::seteuid(0) == 0);
    }
}

TEST_F(clsListFileTest, ADoubleClickOpensAndUpLeadsBack) {
    platform::RegSetValueA(platform::HKEY_CLASSES_ROOT, u".qmk"_s, u"clase"_s);
    platform::RegSetValueA(platform::HKEY_CLASSES_ROOT, u"clase"_s, u"Quillmark"_s);
    platform::RegSetValueA(platform::HKEY_CLASSES_ROOT, u".abrir"_s, u"otra"_s);
    platform::RegSetValueA(platform::HKEY_CLASSES_ROOT, u"otra\\shell\\open\\command"_s,
                           u"Z:\\bin\\cp %1 copia"_s);
    Put("sub\xFF/juego.qmk", 1);
    Put("sub\xFF/x", 1);
    Put("con\xFF.abrir", 7);
    lista->subirNivel(); // nothing is listed yet
    lista->Listar(u"C:\\d"_s);
    DoubleClick(u"con\uFFFD.abrir"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return home.Get("d/copia").size() == 7; }));
    DoubleClick(u"sub\uFFFD"_s);
    const QString inside = u"C:\\d\\sub\uF0FF"_s;
    EXPECT_EQ(rutas, QStringList{inside});
    DoubleClick(u"juego.qmk"_s);
    EXPECT_EQ(rutas.last(), u"juego <- "_s + inside + u"\\juego.qmk"_s);
    QTest::mouseDClick(Rows()->viewport(), Qt::LeftButton, {}, {500, 300}); // on no row
    EXPECT_EQ(rutas.size(), 2);
    lista->subirNivel();
    lista->subirNivel();
    lista->subirNivel();
    EXPECT_EQ(rutas.mid(2), QStringList({u"C:\\d\\"_s, u"C:\\"_s}));
    QTest::keyClick(Rows(), Qt::Key_Return); // nothing is selected
    Rows()->setCurrentIndex(Rows()->model()->index(0, 0));
    QTest::keyClick(Rows(), Qt::Key_Return);
    EXPECT_EQ(rutas.size(), 5);
}

TEST_F(clsListFileTest, AListingThatIsOvertakenEnds) {
    Put("uno", 0);
    home.Put("e/dos", {});
    QTimer::singleShot(0, [this] { lista->Listar(u"C:\\e"_s); });
    lista->Listar(u"C:\\d"_s);
    EXPECT_EQ(Names(), QStringList{u"dos"_s});
    home.Put("d/mas/x", {});
    QTimer::singleShot(0, [this] { lista.reset(); });
    lista->subirNivel();
    EXPECT_EQ(view.Count(), 0);
    EXPECT_TRUE(rutas.isEmpty());
}

TEST_F(clsListFileTest, WhatIsOutOfTheOrdinaryHasLimits) {
    EXPECT_EQ(platform::FromFatAttributes(0), platform::FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(explorer::TextoAtributos(platform::FromFatAttributes(0x27)), u"RHSA"_s);
    EXPECT_EQ(explorer::TextoAtributos(0xFFF), u"TRHSNCA"_s);
    EXPECT_EQ(explorer::TextoFecha(0), u"01.01.1601 0:00:00"_s);
    const time_t last = std::numeric_limits<time_t>::max();
    EXPECT_EQ(explorer::TextoFecha(platform::ToFileTime({last, 0})), u"14.09.30828 2:48:04"_s);
    EXPECT_EQ(platform::ToFileTime({-last, 0}), 0);
    EXPECT_EQ(platform::FileTypeName(u"Z:\\proc\\self\\status"_s), u"documento vacío"_s);
    PutIcon(u"grande.ico"_s, Qt::white, 300);
    EXPECT_FALSE(platform::FileIcon(u"C:\\grande.ico"_s).availableSizes().contains({300, 300}));
    home.Put("d/x", {});
    for (int i = 0; i < 32770; ++i)
        ::close(::creat((home.Root() / "d" / (std::to_string(i) + ".x")).c_str(), 0600));
    lista->Listar(u"C:\\d"_s);
    EXPECT_EQ(view.Count(), 32767);
}
