// SPDX-License-Identifier: GPL-3.0-or-later
#include "assist/Form5.h"
#include "platform/DirListBox.h"
#include "platform/DriveListBox.h"
#include "platform/FileListBox.h"
#include "support/MainWindow.h"

#include <QBuffer>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

QByteArray Encoded(const QImage& image, const char* format) {
    QBuffer buffer;
    EXPECT_TRUE(image.save(&buffer, format, 100));
    return buffer.data();
}

QByteArray Encoded(QSize size, QColor color, const char* format) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    return Encoded(image, format);
}

class Form5Test : public support::MainWindow {
protected:
    Form5Test() {
        home.Put("imagenes/chica.png", Encoded({100, 50}, QColor(255, 0, 0, 0), "png"));
        home.Put("imagenes/grande.PNG", Encoded({600, 400}, Qt::green, "png"));
        home.Put("imagenes/rota.png", "x");
        home.Put("imagenes/otra.jpg", "x");
        QImage keyed(QSize(9, 9), QImage::Format_Indexed8);
        keyed.setColorTable({qRgba(255, 0, 0, 0)}); // transparent by its list of colours
        keyed.fill(0);
        home.Put("imagenes/clave.png", Encoded(keyed, "png"));
        QByteArray tree = Encoded({600, 400}, Qt::green, "png");
        tree.replace(tree.indexOf("IDAT") + 6, 4, QByteArray("\x05\x00\x92\x04", 4)); // too full
        home.Put("imagenes/arbol.png", tree);
        Press("pspscreen");
    }
    template<class Widget = QWidget>
    Widget* Find(const char* name) {
        return principal.findChild<Widget*>(QString::fromLatin1(name));
    }
    platform::PictureBox* Box() { return Find<platform::PictureBox>("Picture1"); }
    QString Text(const char* name) { return Find<QLabel>(name)->text(); }
    QString Position() { return Text("labelx") + u' ' + Text("labely"); }
    QRgb Seen(int x, int y) { return Box()->grab().toImage().pixel(x, y); }
    // As the window system tells it, with a fraction on screens of another scale.
    void MoveTo(QPointF at) {
        const QPointF inWindow = at + Box()->mapTo(&principal, QPoint());
        QMouseEvent move(QEvent::MouseMove, inWindow, principal.mapToGlobal(QPoint()) + inWindow,
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(principal.windowHandle(), &move);
    }
    void ClickAt(QPoint at) {
        QTest::mouseClick(principal.windowHandle(), Qt::LeftButton, {},
                          Box()->mapTo(&principal, at));
    }
    void Click(const char* button) { Find<QPushButton>(button)->click(); }
    void Choose(const QString& file) {
        auto* files = Find<platform::FileListBox>("File1");
        QListWidgetItem* item = files->findItems(file, Qt::MatchExactly).value(0);
        ASSERT_NE(item, nullptr);
        QTest::mouseClick(files->viewport(), Qt::LeftButton, {},
                          files->visualItemRect(item).center());
    }
    void ShowFiles() {
        Click("KewlButtons6");
        Find<platform::DirListBox>("Dir1")->Path(u"C:\\imagenes"_s);
    }
};

} // namespace

TEST_F(Form5Test, ThePositionOfTheMouseIsTold) {
    EXPECT_EQ(principal.ActiveForm()->Caption(), QString(54, u' ') + u"Coordenadas de pantalla"_s);
    EXPECT_TRUE(InTheMiddle(principal.ActiveForm()));
    EXPECT_EQ(Position() + Text("pp"), u" (x,y)"_s);
    ClickAt({30, 40}); // before any move
    EXPECT_EQ(Text("pp"), u"(30,40)"_s);
    MoveTo({200, 48});
    EXPECT_EQ(Position(), u"200 48"_s);
    EXPECT_EQ(Text("pp"), u"(30,40)"_s);
    ClickAt({200, 48});
    MoveTo({0, 0});
    EXPECT_EQ(Position(), u"0 0"_s);
    EXPECT_EQ(Text("pp"), u"(200,48)"_s);
    MoveTo({120.5, 5.6});
    EXPECT_EQ(Position(), u"120.5 5.6"_s);
    EXPECT_EQ(Find("Line2")->geometry(), QRect(120, 0, 1, 273));
    EXPECT_EQ(Find("Line3")->geometry(), QRect(0, 5, 481, 1));
    EXPECT_NE(Seen(120, 20), Seen(120, 24)); // seen on any picture
    Q_EMIT Box()->MouseMove(-45, 10500);     // a button held, outside
    EXPECT_EQ(Position(), u"-3 700"_s);
    QTest::keyClick(Box(), Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyClick(Box(), Qt::Key_Right);
    QTest::keyClick(Box(), Qt::Key_Space);
    EXPECT_EQ(Text("pp"), u"(121,0)"_s);
}

TEST_F(Form5Test, AJpegIsShownInTheSameArea) {
    const QRgb own = Seen(470, 260);
    dialogs.ExpectName(QString()); // without a name the picture goes
    Click("KewlButtons5");
    EXPECT_NE(Seen(470, 260), own);
    EXPECT_TRUE(Box()->Picture().isNull());
    dialogs.ExpectName(home.Put("foto.jpg", Encoded({50, 40}, QColor(200, 100, 50), "jpg")));
    Click("KewlButtons5");
    EXPECT_EQ(dialogs.questions[0].filters[0].pattern, u"*.jpg"_s);
    EXPECT_EQ(Box()->size(), QSize(481, 273));
    const QRgb photo = Seen(10, 10);
    EXPECT_NEAR(qRed(photo), 200, 2);
    dialogs.ExpectName(QString()); // the name is still there
    Click("KewlButtons5");
    EXPECT_EQ(Seen(10, 10), photo);
    for (const QByteArray& broken : {QByteArray("x"), QByteArray("\xFF\xD8\xFF\xE0 x")}) {
        dialogs.ExpectName(home.Put("rota.jpg", broken));
        dialogs.Expect(u"rota.jpg\": "_s, platform::Answer::Ok);
        Click("KewlButtons5");
        EXPECT_EQ(Seen(10, 10), photo);
    }
}

TEST_F(Form5Test, APngGivesTheAreaItsSizeUntilItIsRestored) {
    const QRgb own = Seen(470, 260);
    ShowFiles();
    EXPECT_EQ(principal.ActiveForm()->Caption(), QString(49, u' ') + u"Imágenes .PNG"_s);
    EXPECT_TRUE(InTheMiddle(principal.ActiveForm()));
    EXPECT_EQ(Find<platform::FileListBox>("File1")->count(), 5); // without the .jpg
    EXPECT_EQ(Box()->size(), QSize(481, 273));
    Choose(u"grande.PNG"_s);
    EXPECT_EQ(Box()->size(), QSize(600, 400));
    EXPECT_EQ(Seen(599, 399), QColor(Qt::green).rgb());
    EXPECT_TRUE(Box()->visibleRegion().subtracted(QRect(0, 0, 489, 281)).isEmpty());
    Choose(u"chica.png"_s);
    EXPECT_EQ(Box()->size(), QSize(100, 50));
    EXPECT_EQ(Seen(5, 5), Box()->palette().color(QPalette::Window).rgb());
    Choose(u"clave.png"_s);
    EXPECT_EQ(Seen(5, 5), Box()->palette().color(QPalette::Window).rgb());
    dialogs.Expect(u"Error in tree creation (Static)"_s, platform::Answer::Ok);
    Choose(u"arbol.png"_s);
    EXPECT_EQ(dialogs.messages[0].icon, platform::Icon::None);
    Choose(u"rota.png"_s);
    EXPECT_TRUE(Box()->Picture().isNull());
    Click("KewlButtons4");
    EXPECT_EQ(Box()->geometry(), QRect(8, 16, 481, 273));
    EXPECT_EQ(Seen(470, 260), own);
    Choose(u"rota.png"_s);
    EXPECT_TRUE(Box()->Picture().isNull());
    home.Put("programa/pspantalla/pantalla.jpg", Encoded({480, 272}, Qt::white, "jpg"));
    Click("KewlButtons4");
    EXPECT_EQ(Seen(470, 260), 0xFFFFFFFFU);
    Find<platform::DriveListBox>("Drive1")->Drive(u"Z:"_s);
    EXPECT_EQ(Find<platform::DirListBox>("Dir1")->Path(), u"Z:\\"_s);
    EXPECT_EQ(Find<platform::FileListBox>("File1")->Path(), u"Z:\\"_s);
    EXPECT_EQ(Seen(470, 260), 0xFFFFFFFFU); // the lists alone have changed
}

TEST_F(Form5Test, AClosedWindowIsPaintedWithoutBeingShown) {
    ShowFiles();
    Click("KewlButtons2");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(Box(), nullptr);
    Choose(u"grande.PNG"_s);
    Press("mnuventanarestaurar");
    ASSERT_NE(Box(), nullptr);
    EXPECT_FALSE(Box()->isVisible());
    EXPECT_EQ(principal.ActiveForm()->Caption().trimmed(), u"Imágenes .PNG"_s);
    Press("pspscreen");
    EXPECT_TRUE(Box()->isVisible());
    EXPECT_EQ(Box()->size(), QSize(600, 400));
    QTest::keyClick(Box(), Qt::Key_Escape);
    QTest::keyClick(Find("Dir1"), Qt::Key_Escape);
    EXPECT_TRUE(principal.Forms().empty());
}
