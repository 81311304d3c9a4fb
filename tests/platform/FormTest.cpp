// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/forms/Form.h"
#include "platform/forms/Arrange.h"
#include "platform/forms/CommonDialog.h"
#include "platform/forms/Dialogs.h"
#include "platform/forms/MDIFrame.h"
#include "platform/forms/Timer.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHome.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QRegion>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

class LoudForm : public Form {
public:
    QString events;
    bool cancelled = false;
    void Tick() {
        events += u'<';
        QTest::qWait(20); // yields, so the timer could come again
        events += u'>';
    }

private:
    void Form_Load() override { events += u" load"_s; }
    void Form_Resize() override {
        if (!events.endsWith(u"resize"))
            events += u" resize"_s;
    }
    void Form_QueryUnload(bool& cancel) override {
        Unload(); // on its way already
        cancel = cancelled;
        events += u" query"_s;
    }
    void Form_Unload() override { events += u" unload"_s; }
};

class Frame : public MDIFrame {
public:
    LoudForm* NewForm() {
        auto* form = new LoudForm;
        Adopt(form);
        return form;
    }
};

// Lets the user come, as soon as the desktop's own dialog stands.
template<class Widget, class Use>
void WhenShown(Use use) {
    QTimer::singleShot(50, qApp, [use] {
        auto* widget = qobject_cast<Widget*>(QApplication::activeModalWidget());
        ASSERT_NE(widget, nullptr);
        use(widget);
    });
}

class FormTest : public testing::Test {
protected:
    FormTest() { frame.Show(); }
    support::ScriptedDialogs dialogs;
    Frame frame;
};

} // namespace

TEST_F(FormTest, LivesThroughItsEventsOnce) {
    const QPointer<LoudForm> form = frame.NewForm();
    EXPECT_TRUE(frame.Forms().empty());
    form->Show();
    form->Show();
    EXPECT_EQ(frame.ActiveForm(), form);
    EXPECT_EQ(frame.Forms(), std::vector<Form*>{form});
    form->cancelled = true;
    EXPECT_FALSE(form->Unload());
    EXPECT_TRUE(form->isVisible());
    form->cancelled = false;
    EXPECT_TRUE(form->Shell()->close() || !form->isVisible());
    EXPECT_EQ(form->events.toStdString(), " load resize query query unload");
    EXPECT_TRUE(frame.Forms().empty());
    EXPECT_EQ(frame.ActiveForm(), nullptr);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(form.isNull());
}

TEST_F(FormTest, TheFrameFillsTheScreenAndKnowsWhoWasActiveLast) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
    EXPECT_GT(frame.frameGeometry().width(), frame.width());
    EXPECT_EQ(frame.frameGeometry(), frame.screen()->availableGeometry()); // designed larger
    LoudForm* forms[] = {frame.NewForm(), frame.NewForm(), frame.NewForm()};
    for (const int i : {2, 0, 1, 0})
        forms[i]->Show();
    EXPECT_EQ(frame.FormsByActivity(), (std::vector<Form*>{forms[0], forms[1], forms[2]}));
    forms[0]->Unload();
    EXPECT_EQ(frame.FormsByActivity(), (std::vector<Form*>{forms[1], forms[2]}));
}

TEST_F(FormTest, MovesInTwipsAndKnowsItsState) {
    LoudForm* form = frame.NewForm();
    form->Show();
    form->Move(1500, 300, 8000, 10350);
    EXPECT_EQ(form->Shell()->pos(), QPoint(100, 20));
    EXPECT_NEAR(form->Width(), 8000, kTwipsPerPixel);
    EXPECT_NEAR(form->Height(), 10350, kTwipsPerPixel);
    form->events.clear();
    form->State(WindowState::Minimised);
    EXPECT_EQ(form->State(), WindowState::Minimised);
    EXPECT_EQ(form->events, u" resize"_s);
    form->Show();
    EXPECT_EQ(form->State(), WindowState::Normal);
    form->State(WindowState::Maximised);
    EXPECT_EQ(form->State(), WindowState::Maximised);
    frame.Caption(u"a [*] b"_s);
    form->Caption(u"otro"_s);
    EXPECT_EQ(frame.windowTitle(), u"a [*][*] b"_s); // the child's title stays out
}

TEST(TimerTest, NeverRunsInsideItsOwnHandler) {
    LoudForm form;
    Timer timer(&form, &LoudForm::Tick);
    timer.Interval(1);
    timer.Enabled(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.events.size() >= 6; }));
    EXPECT_FALSE(form.events.contains(u"<<"));
}

TEST(ArrangeTest, CoversTheAreaOrStaysInside) {
    constexpr QSize kArea(1000, 700);
    const QRect all(QPoint(0, 0), kArea);
    for (const auto& tile : {TileHorizontallyRects, TileVerticallyRects}) {
        for (size_t count = 0; count <= 30; ++count) {
            const std::vector<QRect> rects = tile(kArea, static_cast<int>(count));
            EXPECT_EQ(rects.size(), count);
            QRegion covered;
            for (const QRect& rect : rects) {
                EXPECT_FALSE(covered.intersects(rect)) << count;
                covered += rect;
            }
            EXPECT_EQ(covered, count == 0 ? QRegion() : QRegion(all)) << count;
        }
    }
    EXPECT_EQ(TileHorizontallyRects(kArea, 3)[2].width(), kArea.width());
    EXPECT_EQ(TileVerticallyRects(kArea, 3)[2].height(), kArea.height());
    const auto cascade = CascadeRects(kArea, 40, 25);
    EXPECT_EQ(cascade[1].topLeft(), QPoint(25, 25));
    const auto icons = IconRects(kArea, 9, QSize(160, 30));
    EXPECT_EQ(icons[0].bottomLeft(), all.bottomLeft());
    EXPECT_EQ(icons[6].bottom(), icons[0].top() - 1);
    for (const auto& rects : {cascade, icons}) {
        for (const QRect& rect : rects)
            EXPECT_TRUE(all.contains(rect));
    }
    // Those that keep their sizes stand at the right, inside whatever they cover.
    const std::vector<QRect> stack = {
        {800, 0, 200, 300}, {900, 300, 100, 400}, {500, 0, 300, 500}, {0, 500, 900, 100}};
    EXPECT_EQ(StackRects(kArea, {{200, 300}, {100, 400}, {300, 500}, {900, 100}}), stack);
    EXPECT_EQ(StackRects(kArea, {{1200, 900}})[0], QRect(0, 0, 1200, 900));
    EXPECT_EQ(MovedInside({-5, 650, 100, 60}, kArea), QRect(0, 640, 100, 60));
}

TEST(DialogsTest, MessageBoxesSpeakSpanishAndEscapeIsTheMildestAnswer) {
    const std::tuple<Buttons, Qt::Key, Answer, QString> cases[] = {
        {Buttons::Ok, Qt::Key_Escape, Answer::Ok, u"Aceptar"_s},
        {Buttons::YesNo, Qt::Key_Escape, Answer::No, u"No Sí"_s},
        {Buttons::YesNo, Qt::Key_Return, Answer::Yes, u"No Sí"_s},
        {Buttons::YesNoCancel, Qt::Key_Escape, Answer::Cancel, u"Cancelar No Sí"_s},
    };
    for (const auto& [buttons, key, answer, expected] : cases) {
        WhenShown<QMessageBox>([key = key, expected = expected](QMessageBox* box) {
            QStringList captions;
            for (const QAbstractButton* button : box->buttons())
                captions.append(button->text().remove(u'&'));
            captions.sort(); // their order is the desktop's
            EXPECT_EQ(captions.join(u' ').toStdString(), expected.toStdString());
            EXPECT_EQ(box->text(), u"<b>a:</b>"_s); // no markup
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            QTest::keyClick(box, key);
        });
        EXPECT_EQ(MsgBox(u"<b>a\uF03A</b>"_s, buttons, Icon::Question, QString()), answer);
    }
}

TEST(DialogsTest, FileNamesAreTakenAsTypedAndMoveTheCurrentDirectory) {
    const support::TestHome home;
    home.Put("juegos/viejo.qmk", "x");
    CommonDialog dialog(nullptr);
    dialog.Filter(u"Archivos .qmk|*.qmk"_s);
    const auto type = [](const QString& name) {
        WhenShown<QFileDialog>([name](QFileDialog* box) {
            EXPECT_EQ(box->directory().canonicalPath(), QDir::current().canonicalPath());
            box->findChild<QLineEdit*>()->setText(name);
            QTest::keyClick(box->findChild<QLineEdit*>(), Qt::Key_Return);
        });
    };
    const QString folder = QString::fromStdString((home.Root() / "juegos").native());
    WhenShown<QFileDialog>([&](QFileDialog* box) {
        const auto* model = box->findChild<QFileSystemModel*>();
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return model->type(model->index(folder)) == u"Carpeta"_s; }));
        QTest::keyClick(box, Qt::Key_Escape);
    });
    dialog.ShowSave();
    type(folder + u"/sin extensión"_s);
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName(), u"C:\\juegos\\sin extensión"_s);
    EXPECT_EQ(dialog.FileTitle(), u"sin extensión"_s);
    EXPECT_EQ(std::filesystem::current_path(), home.Root() / "juegos");
    type(u"viejo.qmk"_s); // is there, and nobody asks
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName(), u"C:\\juegos\\viejo.qmk"_s);
    WhenShown<QFileDialog>([](QFileDialog* box) { QTest::keyClick(box, Qt::Key_Escape); });
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName(), QString());
    type(u"no está.lua"_s); // the opening will say so
    EXPECT_EQ(CurrentDialogs().AskOpenName({nullptr, u"Abrir"_s, {}, {}}),
              u"C:\\juegos\\no está.lua"_s);
}

TEST(DialogsTest, AModalFormHoldsTheProgramUntilItIsUnloaded) {
    auto* form = new Form;
    bool unloaded = false;
    QTimer::singleShot(50, form, [&] { unloaded = form->Unload(); });
    CurrentDialogs().RunModal(*form);
    EXPECT_TRUE(unloaded);
}
