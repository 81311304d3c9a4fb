// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/MensajesVentana.h"
#include "platform/forms/WindowMessages.h"
#include "platform/forms/WindowTimers.h"
#include "support/ScriptedDialogs.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTest>
#include <gtest/gtest.h>
#include <memory_resource>
#include <thread>

using namespace Qt::StringLiterals;
using namespace explorer;
using namespace platform;

namespace {

QStringList events;           // in the order in which they came, from all sides
constexpr int kMessage = 600; // of no other meaning

const QHash<quint32, QString> kNames = {{WM_NCHITTEST, u"hit"_s},
                                        {WM_LBUTTONDOWN, u"down"_s},
                                        {WM_DESTROY, u"destroy"_s},
                                        {WM_TIMER, u"timer"_s},
                                        {kMessage, u"own"_s}};

struct Pane : QWidget {
    using QWidget::QWidget;
    void mousePressEvent(QMouseEvent* event) override {
        events += objectName() + u"press"_s;
        event->ignore();
    }
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), Qt::blue); }
};

struct Owner {
    Owner() {
        layer.Propias().Poner(1, [this](Aviso& aviso) {
            events += (aviso.bBefore ? u"<%1"_s : u">%1"_s)
                          .arg(kNames.value(aviso.uMsg, QString::number(aviso.uMsg)));
            ++aviso.lParamUser;
            if (during)
                during(aviso);
        });
    }
    void Enter(HWnd window, qint32 message, int when = MSG_BEFORE_AFTER) {
        EXPECT_TRUE(layer.ssc_Subclass(window, 5));
        layer.ssc_WatchMsg(window, message, when);
    }
    std::function<void(Aviso&)> during;
    MensajesVentana layer{u"cLista"_s};
};

class MensajesVentanaTest : public testing::Test {
protected:
    MensajesVentanaTest() {
        outer.resize(90, 90);
        pane->resize(80, 80);
        outer.setObjectName(u"outer "_s);
        owner->Enter(window, WM_NCHITTEST);
        events.clear();
    }
    void Watch(qint32 message, int when = MSG_BEFORE_AFTER) {
        owner->layer.ssc_WatchMsg(window, message, when);
    }
    void Unwatch(qint32 message, int when = MSG_BEFORE_AFTER) {
        owner->layer.ssc_UnwatchMsg(window, message, when);
    }
    // What came since the last call.
    static QString Seen() { return std::exchange(events, {}).join(u' '); }
    QString Sent(quint32 message) {
        events.clear();
        SendMessage(window, message);
        return Seen();
    }

    support::ScriptedDialogs dialogs;
    Pane outer;
    Pane* pane = new Pane(&outer);
    HWnd window = HandleOf(pane);
    WindowProc procedure = GetWindowProc(window);
    std::unique_ptr<Owner> owner = std::make_unique<Owner>();
};

} // namespace

TEST_F(MensajesVentanaTest, PhasesSurroundTheWindowsOwnHandling) {
    Watch(WM_LBUTTONDOWN);
    Unwatch(WM_NCHITTEST, MSG_AFTER);
    owner->during = [&](Aviso& aviso) {
        const bool ahead = aviso.uMsg == WM_NCHITTEST;
        EXPECT_EQ(PointOf(aviso.lParam), ahead ? pane->mapToGlobal(QPoint(-3, 9)) : QPoint(-3, 9));
        EXPECT_EQ(aviso.wParam, ahead ? 0 : 5); // left button and Shift
    };
    QTest::mousePress(pane, Qt::LeftButton, Qt::ShiftModifier, QPoint(-3, 9));
    // What the widget ignores comes to its parent, and only once.
    EXPECT_EQ(Seen(), u"<hit <down press outer press >down"_s);
    EXPECT_EQ(owner->layer.ssc_UserValue(window), 8);
    owner->layer.ssc_UserValue(window, 1);
    owner->during = [](Aviso& aviso) { aviso.bHandled = aviso.uMsg == WM_LBUTTONDOWN; };
    QTest::mouseClick(pane, Qt::LeftButton, {}, QPoint(-3, 9));
    EXPECT_EQ(Seen(), u"<hit <down <hit"_s);
    EXPECT_EQ(owner->layer.ssc_UserValue(window), 4);
    Unwatch(WM_LBUTTONDOWN);
    Watch(WM_NCHITTEST, MSG_AFTER);
    owner->during = [&](Aviso& aviso) {
        EXPECT_EQ(aviso.lReturn, aviso.bBefore ? 0 : 1);
        EXPECT_EQ(owner->layer.ssc_CallPrevious(window, WM_NCHITTEST, 0, 0), 1);
    };
    EXPECT_EQ(SendMessage(window, WM_NCHITTEST), 1);
    owner->during = [](Aviso& aviso) {
        aviso.bHandled = true;
        aviso.lReturn = -7;
    };
    EXPECT_EQ(SendMessage(window, WM_NCHITTEST), -7);
    EXPECT_EQ(Sent(WM_LBUTTONDOWN), u"press outer press"_s);
    Watch(WM_PAINT, MSG_BEFORE);
    owner->during = [&](Aviso& aviso) {
        owner->layer.ssc_CallPrevious(window, aviso.uMsg, aviso.wParam, aviso.lParam);
        QPainter(pane).fillRect(0, 0, 9, 9, Qt::green); // over what the window has painted
    };
    const QImage both = pane->grab().toImage();
    EXPECT_EQ(both.pixelColor(4, 4), QColor(Qt::green));
    EXPECT_EQ(both.pixelColor(40, 40), QColor(Qt::blue));
    pane->setEnabled(false);
    Seen();
    QTest::mousePress(pane, Qt::LeftButton);
    EXPECT_EQ(Seen(), u"outer press"_s);
}

TEST_F(MensajesVentanaTest, ADestroyedWindowIsLeftWhateverTheOwnerSays) {
    Watch(WM_DESTROY);
    Owner above;
    above.Enter(window, WM_DESTROY);
    above.during = [&](Aviso& aviso) {
        aviso.bHandled = true;
        EXPECT_EQ(HandleOf(pane), window);
    };
    delete pane;
    EXPECT_EQ(Seen(), u"<destroy <destroy"_s); // the one below too, and nothing after
    owner->layer.ssc_UnhookAll();
}

TEST_F(MensajesVentanaTest, UnhookingInACallbackWaitsForTheOutermostCall) {
    Watch(ALL_MESSAGES);
    owner->during = [&](Aviso& aviso) {
        if (aviso.uMsg == kMessage)
            owner->layer.ssc_Unhook(window);
        else
            SendMessage(window, kMessage);
        EXPECT_NE(GetWindowProc(window), procedure);
        aviso.bHandled = true;
    };
    EXPECT_EQ(Sent(kMessage - 1), u"<599 <own"_s);
    EXPECT_EQ(GetWindowProc(window), procedure);
    owner->Enter(window, kMessage);
    Owner above;
    above.Enter(window, kMessage, MSG_AFTER);
    owner.reset();
    EXPECT_EQ(Sent(kMessage), u">own"_s);
    above.layer.ssc_UnhookAll();
    Sent(kMessage); // the one below could only leave after the one above
    EXPECT_EQ(GetWindowProc(window), procedure);
}

TEST_F(MensajesVentanaTest, WindowAndOwnerMayGoInACallback) {
    Watch(ALL_MESSAGES);
    owner->during = [&](Aviso& aviso) {
        if (aviso.uMsg == WM_LBUTTONDOWN)
            delete pane;
    };
    QTest::mousePress(pane, Qt::LeftButton);
    EXPECT_EQ(Seen(), u"<hit >hit <down <destroy >destroy"_s);
    auto inner = std::make_unique<Pane>();
    window = HandleOf(inner.get());
    Owner above;
    for (Owner* each : {owner.get(), &above})
        each->Enter(window, ALL_MESSAGES, MSG_BEFORE);
    above.during = [&](Aviso& aviso) {
        if (aviso.uMsg == kMessage)
            inner.reset();
    };
    EXPECT_EQ(Sent(kMessage), u"<own <destroy <destroy"_s); // the one below has left by then
    window = HandleOf(&outer);
    owner->Enter(window, ALL_MESSAGES);
    owner->during = [&](Aviso&) { owner.reset(); };
    EXPECT_EQ(Sent(kMessage), u"<own"_s);
    EXPECT_EQ(GetWindowProc(window), procedure);
    auto another = std::make_unique<Retrollamadas>();
    another->Poner(9, [](Aviso&) { events += u"another"_s; });
    EXPECT_TRUE(above.layer.ssc_Subclass(window, 0, 9, another.get()));
    above.layer.ssc_WatchMsg(window, kMessage, MSG_BEFORE);
    EXPECT_EQ(Sent(kMessage), u"another"_s);
    another.reset();
    EXPECT_EQ(Sent(kMessage), QString());
}

TEST_F(MensajesVentanaTest, TablesHoldThirtyTwoMessages) {
    Unwatch(ALL_MESSAGES);
    Watch(999, MSG_BEFORE);
    Unwatch(999, MSG_BEFORE);
    EXPECT_EQ(Sent(WM_NULL), QString()); // the hole wants nothing, and is filled first
    for (int i = 0; i < 2 * MSG_ENTRIES - 1; ++i)
        Watch(1000 + i / 2, MSG_BEFORE); // each but the last twice
    Watch(1003, MSG_AFTER);
    dialogs.Expect(u"Message table overflow. Either increase the value of Const MSG_ENTRIES or use "
                   "ALL_MESSAGES instead of specific message values."_s);
    Watch(2000, MSG_BEFORE);
    EXPECT_EQ(Sent(1003) + Sent(2000) + Sent(1031), u"<1003 >1003<1031"_s);
    Watch(ALL_MESSAGES, MSG_AFTER);
    EXPECT_EQ(Sent(12345), u">12345"_s);
    Watch(9, MSG_AFTER);
    EXPECT_EQ(Sent(9) + Sent(8), u">9"_s); // that one message is left
    Unwatch(ALL_MESSAGES);
    EXPECT_EQ(Sent(9) + Sent(1031), QString());
}

TEST_F(MensajesVentanaTest, FailuresAreShown) {
    MensajesVentana& layer = owner->layer;
    const HWnd other = HandleOf(&outer);
    for (int i = 0; i < 13; ++i)
        dialogs.Expect({});
    EXPECT_FALSE(layer.ssc_Subclass(HandleOf(nullptr)));
    EXPECT_FALSE(layer.ssc_Subclass(HandleOfNative(0x400001)));
    EXPECT_FALSE(layer.ssc_Subclass(other, 0, 2));
    EXPECT_FALSE(layer.ssc_Subclass(window));
    std::thread([&] { EXPECT_FALSE(layer.ssc_Subclass(other)); }).join();
    layer.Propias().Poner(3, [](std::span<const qint32>, qint32&) {});
    std::pmr::set_default_resource(std::pmr::null_memory_resource());
    EXPECT_FALSE(layer.ssc_Subclass(other));
    EXPECT_FALSE(layer.scb_SetCallbackAddr(4, 3));
    std::pmr::set_default_resource(nullptr);
    EXPECT_FALSE(layer.scb_SetCallbackAddr(-1, 3));
    EXPECT_FALSE(layer.scb_SetCallbackAddr(4, 2));
    Unwatch(0x20A, MSG_BEFORE);
    EXPECT_FALSE(layer.zMap_VFunction(1, 3));
    layer.scb_Release(3);
    EXPECT_EQ(layer.ssc_CallPrevious(other, WM_NCHITTEST, 0, 0), 0);
    QString shown;
    for (const Message& message : dialogs.messages) {
        EXPECT_EQ(message.icon, Icon::Exclamation);
        shown += message.title + u": "_s + message.text + u'|';
    }
    EXPECT_EQ(
        shown.remove(u"Error in cLista."_s),
        u"ssc_Subclass: Invalid window handle.|ssc_Subclass: Window handle belongs to another "
        "process.|ssc_Subclass: Callback method not found.|ssc_Subclass: Window handle is "
        "already subclassed.|ssc_Subclass: SetWindowLong failed, error #1.|ssc_Subclass: "
        "VirtualAlloc failed, error: 12.|scb_SetCallbackAddr: VirtualAlloc failed, error: 12.|"
        "scb_SetCallbackAddr: Invalid Parameter count.|scb_SetCallbackAddr: Callback address "
        "not found..|zDelMsg: Message &H20A not found in table.|zMap_Vfunction: Invalid thunk "
        "type passed.|zMap_VFunction: Thunk hasn't been initialized.|zMap_VFunction: Thunk "
        "type for ID of %1 does not exist.|"_s.arg(other));
    EXPECT_EQ(Sent(WM_NCHITTEST), u"<hit >hit"_s); // the first entry is as it was
}

TEST_F(MensajesVentanaTest, TimersRunPlainProceduresOfTheOwner) {
    int ticks = 0;
    owner->layer.Propias().Poner(2, [&](std::span<const qint32> values, qint32& result) {
        result = ++ticks;
        EXPECT_EQ(values[0], static_cast<qint32>(window));
        if (ticks == 3)
            KillTimer(window, 77);
        QTest::qWait(5); // it doesn't come again meanwhile, and what was let go is deleted
        EXPECT_EQ(result, ticks);
    });
    const PlainProc address = owner->layer.scb_SetCallbackAddr(4, 2);
    EXPECT_EQ(owner->layer.scb_SetCallbackAddr(4, 2), address);
    EXPECT_TRUE(SetTimer(window, 77, 1, address));
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks >= 3; }));
    Watch(WM_TIMER, MSG_BEFORE);
    EXPECT_TRUE(SetTimer(window, 1, 1, nullptr));
    EXPECT_TRUE(QTest::qWaitFor([] { return events.contains(u"<timer"_s); }));
    const std::array values{static_cast<qint32>(window), 0, 0, 0};
    EXPECT_EQ((*address)(values), 4);
    EXPECT_EQ((*address)(std::span(values).first(3)), 0);
    EXPECT_TRUE(SetTimer(window, 1, 1, address));
    delete pane;
    EXPECT_FALSE(KillTimer(window, 1));
    owner->layer.scb_Release(2);
    EXPECT_EQ((*address)(values), 0);
    QTest::qWait(20);
    EXPECT_EQ(ticks, 4);
}
