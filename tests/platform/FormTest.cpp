// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Form.h"
#include "platform/MDIFrame.h"
#include "platform/Timer.h"
#include "support/ScriptedDialogs.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

class LoudForm : public Form {
public:
    QStringList events;
    bool cancelled = false;

private:
    void Note(const QString& event) { events.append(event); }
    void Form_Load() override { Note(u"load"_s); }
    void Form_Resize() override {
        if (!events.endsWith(u"resize"_s))
            Note(u"resize"_s);
    }
    void Form_QueryUnload(bool& cancel) override {
        Unload(); // on its way already
        cancel = cancelled;
        Note(u"query"_s);
    }
    void Form_Unload() override { Note(u"unload"_s); }
};

class Frame : public MDIFrame {
public:
    LoudForm* NewForm() {
        auto* form = new LoudForm;
        Adopt(form);
        return form;
    }
};

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
    form->events.clear();
    EXPECT_TRUE(form->Shell()->close() || !form->isVisible());
    EXPECT_EQ(form->events, QStringList({u"query"_s, u"unload"_s}));
    EXPECT_TRUE(frame.Forms().empty());
    EXPECT_EQ(frame.ActiveForm(), nullptr);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(form.isNull());
}

TEST_F(FormTest, TheFrameFitsIntoTheScreenWithItsBorders) {
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&frame));
    const QRect room = frame.screen()->availableGeometry();
    EXPECT_GT(frame.frameGeometry().width(), frame.width());
    EXPECT_TRUE(room.contains(frame.frameGeometry()));
    EXPECT_EQ(frame.frameGeometry().size(), room.size()); // smaller than the frame was designed
}

TEST_F(FormTest, TheOneThatWasActiveLastComesFirst) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
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
    EXPECT_EQ(form->events, QStringList{u"resize"_s});
    form->Show();
    EXPECT_EQ(form->State(), WindowState::Normal);
    form->State(WindowState::Maximised);
    EXPECT_EQ(form->State(), WindowState::Maximised);
    frame.Caption(u"a [*] b"_s);
    form->Caption(u"otro"_s);
    EXPECT_EQ(frame.windowTitle(), u"a [*][*] b"_s); // the child's title stays out
}

namespace {

struct Ticker : QObject {
    int ticks = 0;
    int depth = 0;
    int deepest = 0;
    void Tick() {
        deepest = std::max(deepest, ++depth);
        ++ticks;
        QTest::qWait(20); // yields, so the timer could come again
        --depth;
    }
};

} // namespace

TEST(Timer, NeverRunsInsideItsOwnHandler) {
    Ticker ticker;
    Timer timer(&ticker, &Ticker::Tick);
    timer.Interval(1);
    timer.Enabled(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticker.ticks >= 3; }));
    timer.Enabled(false);
    EXPECT_EQ(ticker.deepest, 1);
}
