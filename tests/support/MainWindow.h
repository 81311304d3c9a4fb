// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/base/Process.h"
#include "platform/base/Twips.h"
#include "shell/MDIForm1.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHome.h"

#include <QAbstractScrollArea>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace support {

/// Tool windows stand beside a document, which is so wide. In pixels, as is the place of one that
/// was opened from outside.
inline constexpr int kDocumentWidth = platform::ToPixels(8000);
inline constexpr QRect kOpenedPlace(0, 0, kDocumentWidth, platform::ToPixels(10350));

inline QRect Place(const platform::Form& form) {
    const QSize size(platform::ToPixels(form.Width()), platform::ToPixels(form.Height()));
    return {form.Shell()->pos(), size};
}

/// The whole program with a fresh user, its menu and its documents. Each dialog must be announced.
class MainWindow : public testing::Test {
protected:
    MainWindow() {
        principal.resize(1280, 800); // larger than the screen of the tests
        principal.Show();
        principal.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&principal));
    }
    ~MainWindow() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    // By then the entries that need a document are enabled and what was closed is gone.
    void Press(const char* entrada) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        principal.Timer1_Timer();
        const documents::frmDocumento* script = principal.FrmDoc;
        Entrada(entrada)->trigger();
        if (principal.FrmDoc && principal.FrmDoc != script)
            principal.FrmDoc->Show(); // into the new script, before which the explorer came
    }
    // Opens a tool window, in which Find looks from then on.
    void Open(const char* entrada) {
        Press(entrada);
        tool = principal.ActiveForm();
    }
    template<class Widget = QWidget>
    Widget* Find(const char* name) {
        return tool->findChild<Widget*>(QString::fromLatin1(name));
    }
    void Click(const char* button) { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }
    QAction* Entrada(const char* nombre) { return principal.Entrada(QString::fromLatin1(nombre)); }
    QAction* Reciente(int indice) { return Entrada("Pr")->menu()->actions().at(indice - 1); }
    documents::frmDocumento* Active() {
        return dynamic_cast<documents::frmDocumento*>(principal.ActiveForm());
    }
    void Type(const QString& text) {
        QTest::keyClicks(Active()->findChild<QAbstractScrollArea*>(), text);
    }
    documents::frmDocumento* Abrir(const QString& ruta) {
        dialogs.ExpectName(ruta);
        Press("mnuarchivoabrir");
        return Active();
    }
    // A player that copies the script to "visto", in the place of the one that comes with the
    // program.
    void PutPlayer() {
        // Each file comes whole, as a second run may follow before the first one is done.
        home.PutProgram("programa/QM/luaplayer",
                        "#!/bin/sh\ncd \"$HOME\"\n"
                        "echo $QUILLMARK_SCRIPT_FOLDER $QUILLMARK_SCRIPT_NAME >e$$\n"
                        "mv e$$ entorno\ncp \"$1\" v$$\nmv v$$ visto\n");
    }
    QString Text() { return Active()->txtFile().Text(); }
    // Whether the window in front stands in the middle, as sizes are told, to a pixel.
    bool InTheMiddle() {
        const platform::Form* form = principal.ActiveForm();
        const QPoint rest(principal.Width() - form->Width(), principal.Height() - form->Height());
        const QPoint off = form->Shell()->pos() * platform::kTwipsPerPixel - rest / 2;
        return qMax(qAbs(off.x()), qAbs(off.y())) <= platform::kTwipsPerPixel;
    }
    // All but the explorer, which comes with each new script.
    std::vector<platform::Form*> Windows() {
        std::vector<platform::Form*> windows = principal.Forms();
        std::erase_if(windows, [](const platform::Form* form) {
            return form->Caption() == QStringLiteral("Explorador");
        });
        return windows;
    }
    QStringList Captions() {
        QStringList captions;
        for (const platform::Form* form : Windows())
            captions.append(form->Caption());
        return captions;
    }

    TestHome home;
    ScriptedDialogs dialogs;
    shared::ValoresCompartidos compartido;
    shell::MDIForm1 principal{compartido, QString()};
    QWidget* tool = &principal;
    int ended = 0;
    Override<std::function<void()>> ending{platform::EndProcessSeam(), [this] { ++ended; }};
};

} // namespace support
