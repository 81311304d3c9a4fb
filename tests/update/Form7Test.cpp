// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/Form7.h"
#include "deploy/cProg.h"
#include "support/MainWindow.h"

#include <QLabel>
#include <QStatusBar>

using namespace Qt::StringLiterals;
using platform::Answer;

namespace {

class Form7Test : public support::MainWindow {
protected:
    // The answer of the window to this version file.
    QString Answered(const QByteArray& offer) {
        home.Put("programa/Update/version.txt", offer);
        return Look();
    }
    QString Look() {
        QString answer;
        dialogs.Expect(u"Actualizacion OnLine aun no disponible"_s, Answer::Ok);
        dialogs.ExpectForm([&](platform::Form& form) {
            dynamic_cast<update::Form7&>(form).actualizacion();
            answer = form.findChild<QLabel*>(u"Label1"_s)->text();
            EXPECT_EQ(form.findChild<deploy::cProg*>()->Value(), 100);
        });
        Press("actualizacion_online");
        return answer;
    }
    const QString none = u"No hay nueva actualizacion disponible."_s;
};

} // namespace

TEST_F(Form7Test, WaitsIdle) {
    dialogs.Expect(u"Actualizacion OnLine aun no disponible"_s, Answer::Ok);
    dialogs.ExpectForm([&](platform::Form& form) {
        EXPECT_EQ(form.Caption(), QString(18, u' ') + u"Buscando ctualizaciones"_s);
        const auto* panel = form.findChild<QStatusBar*>()->findChild<QLabel*>();
        EXPECT_TRUE(QTest::qWaitFor([&] { return panel->text() == u"Status: Idle"_s; }));
        EXPECT_EQ(form.findChild<deploy::cProg*>()->Value(), 0);
        EXPECT_EQ(form.findChild<QLabel*>(u"Label1"_s)->text(), u"Buscando actualizaciones"_s);
    });
    Press("actualizacion_online");
    EXPECT_FALSE(std::filesystem::exists(home.Root() / "programa/Update"));
    EXPECT_EQ(dialogs.messages[0].title, u"Quillmark v3.0.0"_s);
    EXPECT_EQ(dialogs.messages[0].icon, platform::Icon::Information);
}

TEST_F(Form7Test, ComparesVersionsAsTexts) {
    EXPECT_EQ(Look(), none); // neither a folder nor a file
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
    EXPECT_EQ(PrimerElemento("\xEF\xBB\xBF"
                             "3.0.0"),
              u"3.0.0"_s);
}
