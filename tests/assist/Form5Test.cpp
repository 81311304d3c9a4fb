// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/DirListBox.h"
#include "platform/controls/DriveListBox.h"
#include "platform/controls/FileListBox.h"
#include "platform/controls/PictureBox.h"
#include "support/MainWindow.h"

#include <QBuffer>
#include <QLabel>
#include <QMouseEvent>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

// The console's screen in its frame, and a point of it that none of the small pictures reaches.
constexpr QRect kScreen(8, 16, 481, 273);
constexpr QPoint kFar(470, 260);
constexpr QSize kLarge(600, 400);

QByteArray Encoded(QSize size, QColor color, const char* format,
                   QImage::Format pixels = QImage::Format_ARGB32) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    QBuffer buffer;
    EXPECT_TRUE(image.convertToFormat(pixels).save(&buffer, format, 100));
    return buffer.data();
}

class Form5Test : public support::MainWindow {
protected:
    Form5Test() {
        const QByteArray large = Encoded(kLarge, Qt::green, "png");
        home.Put("imagenes/grande.PNG", large);
        home.Put("imagenes/arbol.png", // too full
                 QByteArray(large).replace(large.indexOf("IDAT") + 6, 4, "\x05\x00\x92\x04", 4));
        const QColor clear(255, 0, 0, 0);
        home.Put("imagenes/chica.png", Encoded({100, 50}, clear, "png"));
        home.Put("imagenes/clave.png", // transparent by its list of colours
                 Encoded({9, 9}, clear, "png", QImage::Format_Indexed8));
        home.Put("imagenes/rota.png", "x");
        home.Put("imagenes/otra.jpg", "x");
        Press("pspscreen");
    }
    platform::PictureBox* Box() { return Find<platform::PictureBox>("Picture1"); }
    QString Text(const char* name) { return Find<QLabel>(name)->text(); }
    QString Told() { return Text("labelx") + u' ' + Text("labely") + u' ' + Text("pp"); }
    QRgb Seen(QPoint at) { return Box()->grab().toImage().pixel(at); }
    // As the window system tells it, with a fraction on screens of another scale.
    void MoveTo(QPointF at) {
        const QPointF inWindow = at + Box()->mapTo(&principal, QPoint());
        QMouseEvent move(QEvent::MouseMove, inWindow, principal.mapToGlobal(QPoint()) + inWindow,
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(principal.windowHandle(), &move);
    }
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
    EXPECT_TRUE(InTheMiddle());
    EXPECT_EQ(Told(), u"  (x,y)"_s);
    QTest::keyClick(Box(), Qt::Key_Right); // from where the lines are
    QTest::keyClick(Box(), Qt::Key_Space);
    MoveTo({0, 0});
    EXPECT_EQ(Told(), u"0 0 (201,48)"_s);
    MoveTo({120.5, 5.6});
    EXPECT_EQ(Told(), u"120.5 5.6 (201,48)"_s);
    EXPECT_EQ(Find("Line2")->geometry(), QRect(120, 0, 1, kScreen.height()));
    EXPECT_EQ(Find("Line3")->geometry(), QRect(0, 5, kScreen.width(), 1));
    EXPECT_NE(Seen({120, 20}), Seen({120, 24})); // seen on any picture
    Q_EMIT Box()->MouseMove(-45, 10500);         // a button held, outside
    EXPECT_EQ(Told(), u"-3 700 (201,48)"_s);
}

TEST_F(Form5Test, AJpegIsShownInTheSameArea) {
    const auto pick = [&](const QString& name, const QString& notice = QString()) {
        dialogs.ExpectName(name);
        if (!notice.isEmpty())
            dialogs.Expect(notice);
        Click("KewlButtons5");
        return Seen({10, 10});
    };
    const QRgb own = Seen({10, 10});
    EXPECT_NE(pick(QString()), own); // without a name the picture goes
    const QRgb photo = pick(home.Put("foto.jpg", Encoded({50, 40}, QColor(200, 100, 50), "jpg")));
    EXPECT_NEAR(qRed(photo), 200, 2);
    EXPECT_EQ(dialogs.questions[0].filters[0].pattern, u"*.jpg"_s);
    EXPECT_EQ(Box()->size(), kScreen.size());
    EXPECT_EQ(pick(QString()), photo); // the name is still there
    for (const QByteArray& broken : {QByteArray("x"), QByteArray("\xFF\xD8\xFF\xE0 x")})
        EXPECT_EQ(pick(home.Put("rota.jpg", broken), u"rota.jpg\": "_s), photo);
}

TEST_F(Form5Test, APngGivesTheAreaItsSizeUntilItIsRestored) {
    const QRgb own = Seen(kFar);
    ShowFiles();
    EXPECT_EQ(principal.ActiveForm()->Caption(), QString(49, u' ') + u"Imágenes .PNG"_s);
    EXPECT_TRUE(InTheMiddle());
    EXPECT_EQ(Find<platform::FileListBox>("File1")->count(), 5); // without the .jpg
    Choose(u"grande.PNG"_s);
    EXPECT_EQ(Box()->size(), kLarge);
    EXPECT_EQ(Seen(Box()->rect().bottomRight()), QColor(Qt::green).rgb());
    const QRect inSight(QPoint(), kScreen.size() + QSize(8, 8)); // up to the frame's edges
    EXPECT_TRUE(Box()->visibleRegion().subtracted(inSight).isEmpty());
    Choose(u"chica.png"_s);
    EXPECT_EQ(Box()->size(), QSize(100, 50));
    EXPECT_EQ(Seen({5, 5}), Box()->palette().color(QPalette::Window).rgb());
    Choose(u"clave.png"_s);
    EXPECT_EQ(Seen({5, 5}), Box()->palette().color(QPalette::Window).rgb());
    dialogs.Expect(u"Error in tree creation (Static)"_s);
    Choose(u"arbol.png"_s);
    EXPECT_EQ(dialogs.messages[0].icon, platform::Icon::None);
    Click("KewlButtons4");
    EXPECT_EQ(Box()->geometry(), kScreen);
    EXPECT_EQ(Seen(kFar), own);
    Choose(u"rota.png"_s);
    EXPECT_TRUE(Box()->Picture().isNull());
    home.Put("programa/pspantalla/pantalla.jpg", Encoded({480, 272}, Qt::white, "jpg"));
    Click("KewlButtons4");
    EXPECT_EQ(Seen(kFar), 0xFFFFFFFFU);
    Find<platform::DriveListBox>("Drive1")->Drive(u"Z:"_s);
    EXPECT_EQ(Find<platform::FileListBox>("File1")->Path(), u"Z:\\"_s);
    EXPECT_EQ(Seen(kFar), 0xFFFFFFFFU); // the lists alone have changed
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
    EXPECT_EQ(Box()->size(), kLarge);
    QTest::keyClick(Box(), Qt::Key_Escape);
    QTest::keyClick(Find("Dir1"), Qt::Key_Escape);
    EXPECT_TRUE(principal.Forms().empty());
}
