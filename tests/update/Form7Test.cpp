// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/Form7.h"
#include "shared/cProg.h"
#include "support/MainWindow.h"

#include <QLabel>
#include <QStatusBar>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

class Form7Test : public support::MainWindow {
protected:
    void Offer(const QByteArray& offer) { home.Put("programa/Update/version.txt", offer); }
    void Use(const std::function<void(update::Form7&)>& use) {
        dialogs.Expect(u"Actualizacion OnLine aun no disponible"_s);
        dialogs.ExpectForm([&](platform::Form& form) { use(dynamic_cast<update::Form7&>(form)); });
        Press("actualizacion_online");
    }
    // The answer of the window to this version file, if there is one.
    QString Answered(const QByteArray& offer = {}) {
        if (!offer.isNull())
            Offer(offer);
        QString answer;
        Use([&](update::Form7& form) {
            form.actualizacion();
            answer = form.findChild<QLabel*>(u"Label1"_s)->text();
        });
        return answer;
    }
    const QString none = u"No hay nueva actualizacion disponible."_s;
};

} // namespace

TEST_F(Form7Test, WaitsIdleUntilItTellsEachStepAndCountsTheSeconds) {
    Offer("3.1");
    compartido.segundos = 7; // of another window
    Use([&](update::Form7& form) {
        auto* bar = form.findChild<shared::cProg*>();
        const auto timers = form.findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        const auto panels = form.findChild<QStatusBar*>()->findChildren<QLabel*>();
        EXPECT_EQ(form.Caption(), QString(18, u' ') + u"Buscando ctualizaciones"_s);
        EXPECT_TRUE(form.IsFixedSize());
        EXPECT_EQ(bar->Value(), 0);
        EXPECT_EQ(compartido.segundos, 0);
        EXPECT_EQ(timers.at(0)->interval(), 1);
        EXPECT_TRUE(QTest::qWaitFor([&] { return panels.at(0)->text() == u"Status: Idle"_s; }));
        EXPECT_FALSE(timers.at(1)->isActive() || timers.at(2)->isActive());
        QString steps;
        const auto tell = [&] {
            EXPECT_TRUE(timers.at(1)->isActive());
            for (int i = 0; i < 2; ++i) { // both have waited for their time
                QTimerEvent elapsed(timers.at(i)->timerId());
                QApplication::sendEvent(timers.at(i), &elapsed);
            }
            steps += u"%1 %2 %3|"_s.arg(bar->Value()).arg(panels[0]->text(), panels[1]->text());
        };
        QObject::connect(bar, &shared::cProg::PropertyChanged, &form, tell);
        for (const char* first : {"Idle", "Descargando actualizacion"}) { // a second look, too
            timers.at(2)->start(60000); // which starts the look, and once is enough
            steps.clear();
            form.actualizacion();
            EXPECT_EQ(timers.at(1)->interval(), 1000);
            EXPECT_FALSE(timers.at(1)->isActive() || timers.at(2)->isActive());
            EXPECT_EQ(steps, u"10 Status: %1 Tiempo: 1 segundos|"
                             "15 Status: Comprobando actualizaciones Tiempo: 2 segundos|"
                             "30 Status: Comprobando actualizaciones Tiempo: 3 segundos|"
                             "60 Status: Comprobando actualizaciones Tiempo: 4 segundos|"
                             "100 Status: Descargando actualizacion Tiempo: 5 segundos|"_s.arg(
                                 QLatin1String(first)));
        }
        Offer("3.0.0");
        form.actualizacion();
        EXPECT_TRUE(steps.contains(u"100 Status: Comprobacion realizada"_s));
    });
    EXPECT_EQ(dialogs.messages[0].title, u"Quillmark v3.0.0"_s);
    EXPECT_EQ(dialogs.messages[0].icon, platform::Icon::Information);
}

TEST_F(Form7Test, ComparesVersionsAsTexts) {
    EXPECT_EQ(Answered(), none); // neither a folder nor a file
    EXPECT_EQ(Answered("\"3.0.1\"\r\nmore"), u"Nueva actualizacion disponible: 3.0.1"_s);
    EXPECT_TRUE(home.Get("programa/config.ini").contains("[update]\r\nver=3.0.1\r\n"));
    EXPECT_EQ(home.Get("programa/Update/miversion.txt"), "\"3.0.0\"\r\n");
    EXPECT_EQ(Answered("3.0.0"), none);
    EXPECT_EQ(Answered("10.0.0"), none); // as a text it is less
    EXPECT_EQ(Answered(""), none);
    std::filesystem::remove(home.Root() / "programa/Update/miversion.txt");
    std::filesystem::create_directories(home.Root() / "programa/Update/miversion.txt");
    EXPECT_EQ(Answered("4"), u"Nueva actualizacion disponible: 4"_s);
}

TEST_F(Form7Test, ReadsTheFirstItem) {
    using update::PrimerElemento;
    EXPECT_EQ(PrimerElemento(" \r\n\t\"a, \"b"), u"a, "_s);
    EXPECT_EQ(PrimerElemento("  palabra suelta ,otra"), u"palabra suelta"_s);
    EXPECT_EQ(PrimerElemento("3.1\r\n4"), u"3.1"_s);
    EXPECT_EQ(PrimerElemento("\"sin fin"), u"sin fin"_s);
    EXPECT_EQ(PrimerElemento(QByteArray(5000, '\xF1')), QString(255, u'ñ'));
    EXPECT_EQ(PrimerElemento(" \r\n"), QString());
    EXPECT_EQ(PrimerElemento("\xEF\xBB\xBF 3.0.0"), u"3.0.0"_s);
}
