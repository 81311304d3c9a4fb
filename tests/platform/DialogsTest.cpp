// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Dialogs.h"
#include "platform/CommonDialog.h"
#include "platform/Form.h"
#include "support/TestHome.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace platform;

namespace {

// Lets the user come, as soon as the desktop's own dialog stands.
template<class Widget, class Use>
void WhenShown(Use use) {
    QTimer::singleShot(50, qApp, [use] {
        auto* widget = qobject_cast<Widget*>(QApplication::activeModalWidget());
        ASSERT_NE(widget, nullptr);
        use(widget);
    });
}

void Press(QWidget* widget, Qt::Key key) {
    QTest::keyClick(widget, key);
}

} // namespace

TEST(Dialogs, MessageBoxesSpeakSpanishAndEscapeIsTheMildestAnswer) {
    const struct {
        Buttons buttons;
        Qt::Key key;
        Answer answer;
        QString captions;
    } cases[] = {
        {Buttons::Ok, Qt::Key_Escape, Answer::Ok, QStringLiteral("Aceptar")},
        {Buttons::YesNo, Qt::Key_Escape, Answer::No, QStringLiteral("No Sí")},
        {Buttons::YesNo, Qt::Key_Return, Answer::Yes, QStringLiteral("No Sí")},
        {Buttons::YesNoCancel, Qt::Key_Escape, Answer::Cancel, QStringLiteral("Cancelar No Sí")},
    };
    for (const auto& c : cases) {
        WhenShown<QMessageBox>([&](QMessageBox* box) {
            QStringList captions;
            for (const QAbstractButton* button : box->buttons())
                captions.append(button->text().remove(u'&'));
            captions.sort(); // their order is the desktop's
            EXPECT_EQ(captions.join(u' ').toStdString(), c.captions.toStdString());
            EXPECT_EQ(box->text(), QStringLiteral("<b>a:</b>")); // no markup
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            Press(box, c.key);
        });
        EXPECT_EQ(MsgBox(QStringLiteral("<b>a\uF03A</b>"), c.buttons, Icon::Question, QString()),
                  c.answer);
    }
}

TEST(Dialogs, FileNamesAreTakenAsTypedAndMoveTheCurrentDirectory) {
    const support::TestHome home;
    home.Put("juegos/viejo.qmk", "x");
    CommonDialog dialog(nullptr);
    dialog.Filter(QStringLiteral("Archivos .qmk|*.qmk"));
    const auto type = [](const QString& name) {
        WhenShown<QFileDialog>([name](QFileDialog* box) {
            EXPECT_EQ(box->directory().canonicalPath(), QDir::current().canonicalPath());
            box->findChild<QLineEdit*>()->setText(name);
            Press(box->findChild<QLineEdit*>(), Qt::Key_Return);
        });
    };
    const QString folder = QString::fromStdString((home.Root() / "juegos").native());
    type(folder + QStringLiteral("/sin extensión"));
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName(), QStringLiteral("C:\\juegos\\sin extensión"));
    EXPECT_EQ(dialog.FileTitle(), QStringLiteral("sin extensión"));
    EXPECT_EQ(std::filesystem::current_path(), home.Root() / "juegos");

    type(QStringLiteral("viejo.qmk")); // is there, and nobody asks
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName(), QStringLiteral("C:\\juegos\\viejo.qmk"));
    WhenShown<QFileDialog>([](QFileDialog* box) { Press(box, Qt::Key_Escape); });
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName(), QString());

    type(QStringLiteral("no está.lua")); // the opening will say so
    EXPECT_EQ(CurrentDialogs().AskOpenName({nullptr, QStringLiteral("Abrir"), {}, {}}),
              QStringLiteral("C:\\juegos\\no está.lua"));
}

TEST(Dialogs, AModalFormHoldsTheProgramUntilItIsUnloaded) {
    auto* form = new Form;
    bool unloaded = false;
    QTimer::singleShot(50, form, [&] { unloaded = form->Unload(); });
    CurrentDialogs().RunModal(*form);
    EXPECT_TRUE(unloaded);
}
