// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/cSubclassListView.h"
#include "platform/controls/ListView.h"
#include "platform/forms/WindowHandles.h"
#include "support/ScriptedDialogs.h"

#include <QHeaderView>
#include <QPainter>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace explorer;

namespace {

constexpr int kRojo = 20; // the red of a cell is so often its number
constexpr int kAltoSkin = 30;
// Formats of columns at the left, without and with an icon.
constexpr int kTexto = platform::HDF_STRING;
constexpr int kConIcono = platform::HDF_STRING | platform::HDF_IMAGE;

// Nine cells of 4 pixels and one pixel more.
QPixmap Skin() {
    QImage image(4 * kCeldas + 1, kAltoSkin, QImage::Format_RGB32);
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            image.setPixelColor(x, y, QColor(x / 4 * kRojo, 0, 0));
    return QPixmap::fromImage(image);
}

// Titles are blue, or green if raised.
EstadoCabecera Estado(int columnaActiva) {
    EstadoCabecera estado;
    estado.PonerSkin(Skin());
    estado.TextNormalColor = 0xC00000;
    estado.TextResalteColor = 0x00C000;
    estado.tamanoIcono = QSize(8, 8);
    estado.columnaActiva = columnaActiva;
    return estado;
}

QImage Pintada(const std::vector<ColumnaCabecera>& columnas, const EstadoCabecera& estado) {
    QImage imagen(140, 20, QImage::Format_RGB32);
    imagen.fill(Qt::white);
    QPainter pintor(&imagen);
    PintarCabecera(pintor, imagen.rect(), columnas, estado);
    return imagen;
}

// Where something is drawn in a colour that the skin hasn't.
QRect Tinta(const QImage& imagen, int (QColor::*parte)() const) {
    QRect tinta;
    for (int x = 0; x < imagen.width(); ++x)
        for (int y = 0; y < imagen.height(); ++y)
            if ((imagen.pixelColor(x, y).*parte)() > 100)
                tinta |= QRect(x, y, 1, 1);
    return tinta;
}

// Counts how often a header is painted.
struct Paints : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint;
        return false;
    }
    int count = 0;
};

class cSubclassListViewTest : public testing::Test {
protected:
    cSubclassListViewTest() {
        QPixmap green(16, 16);
        green.fill(Qt::green);
        icons.AddImage(u"verde"_s, green);
        list.ColumnHeaderIcons(&icons);
        const int width = platform::ToTwips(kColumn);
        list.AddColumnHeader({u"Nombre"_s, width, Qt::AlignLeft, u"verde"_s});
        list.AddColumnHeader({QString(40, u'i'), width, Qt::AlignRight});
        list.AddColumnHeader({u"dos\0tres"_s, width, Qt::AlignHCenter});
        list.View(platform::ListDisplay::Report);
        list.resize(400, 100);
        list.show();
        skin.SubClassListView(platform::HandleOf(&list));
    }
    // The red at the left end of each column.
    QList<int> Ends() {
        const QImage header = Header();
        const auto red = [&](int x) { return header.pixelColor(x, 2).red(); };
        return {red(1), red(kColumn + 1), red(2 * kColumn + 1)};
    }
    QImage Header() { return Viewport()->grab().toImage(); }
    QWidget* Viewport() { return list.Header()->viewport(); }
    void Move(int x, int y = 5) { QTest::mouseMove(Viewport(), {x, y}); }

    static constexpr int kColumn = 100;             // its width
    static constexpr int kSecond = 3 * kColumn / 2; // the middle of that column
    static constexpr int kHovered = 3 * kRojo;
    static constexpr int kPressed = 6 * kRojo;
    platform::ImageList icons;
    platform::ListView list;
    cSubclassListView skin;
};

} // namespace

TEST(DisposicionCabeceraTest, TextAndIconStandAsTheFormatSays) {
    constexpr int R = platform::HDF_RIGHT;
    constexpr int C = platform::HDF_CENTER;
    constexpr int S = kTexto;
    constexpr int I = kConIcono;
    // Format and width of columns from 10 on, whether the icon of 16 x 16 is behind the title of
    // 30 x 13, and where title and icon begin; -1: no icon.
    const std::tuple<int, int, bool, int, int> casos[] = {
        {0, 101, false, 19, -1},     {S, 101, true, 19, -1},     {S | R, 101, false, 72, -1},
        {S | C, 101, false, 46, -1}, {I, 101, false, 44, 19},    {I, 101, true, 19, 49},
        {I | R, 101, false, 72, 47}, {I | R, 101, true, 56, 86}, {I | C, 101, false, 52, 27},
        {I | C, 101, true, 36, 66},  {I, 21, false, 44, 19},     {I, 20, false, 44, -1},
        {I | R, 40, false, 11, -1}};
    for (const auto& [fmt, ancho, derecha, texto, icono] : casos) {
        const Columna columna = {{10, 0, ancho, 20}, {30, 13}, {16, 16}};
        const Posiciones posiciones = Disponer(columna, CasoDe(fmt).value(), derecha);
        EXPECT_EQ(posiciones.texto, QPoint(texto, 4)) << fmt << derecha;
        EXPECT_EQ(posiciones.conIcono ? posiciones.icono.x() : -1, icono) << fmt << derecha;
        EXPECT_EQ(posiciones.icono.y(), 2);
        EXPECT_EQ(AnchoTitulo(columna, CasoDe(fmt).value()),
                  ancho - 18 - (fmt & platform::HDF_IMAGE ? 16 : 0));
    }
    EXPECT_FALSE(CasoDe(1).has_value());
    EXPECT_EQ(AnchoCelda(112), 12); // 12.4
    EXPECT_EQ(Redondeado(2.5), 2);
    const auto medir = [](const QString& titulo) { return int(titulo.size()) * 10; };
    const std::tuple<QString, int, QString> titulos[] = {
        {u"Nombre"_s, 60, u"Nombre"_s},       {u"Nombre"_s, 59, u"No..."_s},
        {u"Nombre"_s, 40, u"N..."_s},         {u"Nombre"_s, 39, QString()},
        {u"Nombre"_s, -5, QString()},         {QString(), -5, QString()},
        {u"N\U0001F600mbre"_s, 59, u"N..."_s}};
    for (const auto& [titulo, ancho, recortado] : titulos)
        EXPECT_EQ(Recortar(titulo, ancho, medir), recortado) << ancho;
}

TEST(PinturaCabeceraTest, ColumnsShowTheCellsOfTheirLook) {
    QPixmap icono(8, 8);
    icono.fill(Qt::green);
    const std::vector<ColumnaCabecera> columnas = {{{0, 0, 60, 20}, QString(), kTexto, {}},
                                                   {{60, 0, 60, 20}, QString(), kConIcono, icono},
                                                   {{120, 0, 5, 20}, QString(), 7, icono}};
    // The cells of the left end, the middle and the right end, the icon's colour and place.
    const std::tuple<bool, bool, std::array<int, 3>, QColor, QPoint> aspectos[] = {
        {true, true, {0, 0, 2}, QColor(Qt::green), {69, 6}},
        {false, false, {3, 4, 5}, QColor(Qt::green), {69, 6}},
        {false, true, {6, 7, 8}, QColor(70, 127, 0), {70, 7}}};
    for (const auto& [sinResalte, pulsado, celdas, color, donde] : aspectos) {
        EstadoCabecera estado = Estado(1);
        estado.sinResalte = sinResalte;
        estado.pulsado = pulsado;
        const QImage imagen = Pintada(columnas, estado);
        const auto celda = [&](int x) { return imagen.pixelColor(x, 1).red() / kRojo; };
        EXPECT_EQ((std::array{celda(61), celda(64), celda(118)}), celdas);
        EXPECT_EQ(celda(100), celdas[1]);
        EXPECT_EQ(celda(115), celdas[1] == 0 ? 1 : celdas[1]); // the background's end
        EXPECT_EQ(celda(40), 0);                               // the column before is always normal
        EXPECT_EQ(celda(58), 2);
        EXPECT_EQ(celda(123), 2); // narrower than its ends
        EXPECT_EQ(celda(126), 1); // the background begins at column 1 of the skin, ends in cell 1
        const QColor visto = imagen.pixelColor(donde + QPoint(1, 1));
        EXPECT_NEAR(visto.red(), color.red(), 2);
        EXPECT_NEAR(visto.green(), color.green(), 2);
        EXPECT_EQ(Tinta(imagen, &QColor::green), QRect(donde, QSize(8, 8)));
    }
}

TEST(PinturaCabeceraTest, TitlesHaveTheColourTheFontAndTheRoomOfTheirLook) {
    const std::vector<ColumnaCabecera> columnas = {{{0, 0, 90, 20}, QString(20, u'H'), kTexto, {}}};
    const QRect normal = Tinta(Pintada(columnas, Estado(-1)), &QColor::blue);
    EXPECT_NEAR(normal.left(), 10, 1);
    EXPECT_TRUE(normal.right() > 60 && normal.right() < 81); // cut before the end of the column
    EXPECT_NEAR(normal.center().y(), 10, 1);
    EstadoCabecera estado = Estado(0);
    EXPECT_EQ(Tinta(Pintada(columnas, estado), &QColor::green), normal);
    estado.pulsado = true;
    EXPECT_EQ(Tinta(Pintada(columnas, estado), &QColor::green), normal.translated(1, 1));
}

TEST_F(cSubclassListViewTest, TheLooksFollowTheMouse) {
    skin.SkinPicture(Skin());
    Move(kSecond);
    EXPECT_EQ(Ends(), (QList{0, kHovered, 0}));
    QTest::mousePress(Viewport(), Qt::LeftButton, {}, {kSecond, 5});
    EXPECT_EQ(Ends(), (QList{0, kPressed, 0}));
    Move(kSecond + 2); // dragging
    EXPECT_EQ(Ends(), (QList{0, 0, 0}));
    QTest::mouseRelease(Viewport(), Qt::LeftButton, {}, {kSecond + 2, 5});
    EXPECT_EQ(Ends(), (QList{0, kHovered, 0}));
    Move(3 * kColumn + 50); // right of the last column
    EXPECT_EQ(Ends(), (QList{0, 0, 0}));
    QTest::qWait(1);
    Paints paints;
    Viewport()->installEventFilter(&paints);
    for (const int x : {20, 40, 60, kColumn + 20, kColumn + 40}) {
        Move(x);
        QTest::qWait(1);
    }
    EXPECT_EQ(paints.count, 2);
    Move(kSecond, 2 * kAltoSkin); // on the rows
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count == 3; }));
    EXPECT_EQ(Ends(), (QList{0, 0, 0}));
    Move(20);
    EXPECT_EQ(Ends(), (QList{kHovered, 0, 0}));
    platform::ListView other; // the timer goes with its header
    other.View(platform::ListDisplay::Report);
    other.move(500, 0);
    other.show();
    skin.SubClassListView(platform::HandleOf(&other));
    QTest::qWait(30);
    Paints others;
    other.Header()->viewport()->installEventFilter(&others);
    QTest::qWait(60);
    EXPECT_EQ(others.count, 0);
}

TEST_F(cSubclassListViewTest, ATitleIsCutAndWhatChangesShowsAtOnce) {
    const platform::HWnd window = platform::HandleOf(&list);
    EXPECT_EQ(skin.GetListviewColumn(window, 1), QString(32, u'i'));
    EXPECT_EQ(skin.GetListviewColumn(window, 2), u"dos"_s);
    EXPECT_EQ(skin.GetListviewColumn(window, 3), QString());
    const QImage own = Header();
    skin.SkinPicture(Skin());
    EXPECT_EQ(list.Header()->height(), kAltoSkin);
    EXPECT_EQ(Ends(), (QList{0, 0, 0}));
    EXPECT_EQ(Header().pixelColor(15, 15), QColor(Qt::green));
    QTest::qWait(1);
    Paints paints;
    Viewport()->installEventFilter(&paints);
    const auto shows = [&](auto set) {
        paints.count = 0;
        set();
        QTest::qWait(1);
        return paints.count == 1;
    };
    EXPECT_TRUE(shows([&] { skin.TextNormalColor(0x2FF8040); }));
    EXPECT_TRUE(shows([&] { skin.TextResalteColor(0x10203); }));
    EXPECT_TRUE(shows([&] { skin.IconAlingmentRight(true); }));
    EXPECT_TRUE(shows([&] { skin.HedersFontBlod(true); }));
    EXPECT_TRUE(shows([&] { skin.SkinPicture(Skin()); }));
    EXPECT_TRUE(skin.TextNormalColor() == 0x2FF8040 && skin.TextResalteColor() == 0x10203);
    EXPECT_TRUE(skin.IconAlingmentRight() && skin.HedersFontBlod());
    EXPECT_NE(Header().pixelColor(15, 15), QColor(Qt::green));
    skin.SkinPicture(QPixmap());
    EXPECT_EQ(Header(), own); // without a skin its own painting and height
    support::ScriptedDialogs dialogs;
    dialogs.Expect(u"Invalid window handle"_s);
    skin.SubClassListView(platform::HandleOf(Viewport())); // not a list
    EXPECT_EQ(skin.GetListviewColumn(platform::HandleOf(Viewport()), 0), QString());
}
