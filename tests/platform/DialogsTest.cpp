// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Dialogs.h"
#include "platform/CommonDialog.h"
#include "platform/Form.h"
#include "support/TestHome.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
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
        {Buttons::Ok, Qt::Key_Escape, Answer::Ok, u"Aceptar"_s},
        {Buttons::YesNo, Qt::Key_Escape, Answer::No, u"No Sí"_s},
        {Buttons::YesNo, Qt::Key_Return, Answer::Yes, u"No Sí"_s},
        {Buttons::YesNoCancel, Qt::Key_Escape, Answer::Cancel, u"Cancelar No Sí"_s},
    };
    for (const auto& c : cases) {
        WhenShown<QMessageBox>([&](QMessageBox* box) {
            QStringList captions;
            for (const QAbstractButton* button : box->buttons())
                captions.append(button->text().remove(u'&'));
            captions.sort(); // their order is the desktop's
            EXPECT_EQ(captions.join(u' ').toStdString(), c.captions.toStdString());
            EXPECT_EQ(box->text(), u"<b>a:</b>"_s); // no markup
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            Press(box, c.key);
        });
        EXPECT_EQ(MsgBox(u"<b>a\uF03A</b>"_s, c.buttons, Icon::Question, QString()), c.answer);
    }
}

TEST(Dialogs, FileNamesAreTakenAsTypedAndMoveTheCurrentDirectory) {
    const support::TestHome home;
    home.Put("juegos/viejo.qmk", "x");
    CommonDialog dialog(nullptr);
    dialog.Filter(u"Archivos .qmk|*.qmk"_s);
    const auto type = [](const QString& name) {
        WhenShown<QFileDialog>([name](QFileDialog* box) {
            EXPECT_EQ(box->directory().canonicalPath(), QDir::current().canonicalPath());
            box->findChild<QLineEdit*>()->setText(name);
            Press(box->findChild<QLineEdit*>(), Qt::Key_Return);
        });
    };
    const QString folder = QString::fromStdString((home.Root() / "juegos").native());
    WhenShown<QFileDialog>([&](QFileDialog* box) {
        const auto* model = box->findChild<QFileSystemModel*>();
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return model->type(model->index(folder)) == u"Carpeta"_s; }));
        Press(box, Qt::Key_Escape);
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
    WhenShown<QFileDialog>([](QFileDialog* box) { Press(box, Qt::Key_Escape); });
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName(), QString());

    type(u"no está.lua"_s); // the opening will say so
    EXPECT_EQ(CurrentDialogs().AskOpenName({nullptr, u"Abrir"_s, {}, {}}),
              u"C:\\juegos\\no está.lua"_s);
}

TEST(Dialogs, AModalFormHoldsTheProgramUntilItIsUnloaded) {
    auto* form = new Form;
    bool unloaded = false;
    QTimer::singleShot(50, form, [&] { unloaded = form->Unload(); });
    CurrentDialogs().RunModal(*form);
    EXPECT_TRUE(unloaded);
}
