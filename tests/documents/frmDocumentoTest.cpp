// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/frmDocumento.h"
#include "platform/Failure.h"
#include "platform/MDIFrame.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHome.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QTest>
#include <Qsci/qsciscintilla.h>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace Qt::StringLiterals;
using documents::frmDocumento;
using platform::Answer;
using platform::WindowState;

namespace {

struct FakeMarco : documents::MarcoDocumentos {
    int temporales = 0;
    QString rotulo;
    int Ancho() const override { return 0; }
    void crear_temporal_click() override { ++temporales; }
    void Rotulo(const QString& texto) override { rotulo = texto; }
    int Alto() const override { return 11000; }
};

struct BrokenDialogs : platform::Dialogs {
    Answer Ask(const platform::Message&) override { throw std::runtime_error("roto"); }
    QString AskOpenName(const platform::FileQuestion&) override { return {}; }
    QString AskSaveName(const platform::FileQuestion&) override { return {}; }
    void RunModal(platform::Form&) override {}
    bool SetUpPage(QPrinter&, QWidget*) override { return false; }
    bool SetUpPrint(QPrinter&, QWidget*) override { return false; }
};

class frmDocumentoTest : public testing::Test {
protected:
    frmDocumentoTest() {
        compartido.numero_documentos = 1;
        compartido.nombre_script = u"de antes"_s;
        frame.Show();
        frame.Adopt(documento);
        documento->Show();
        documento->Caption(u"Nuevo script 1"_s);
    }

    void Cambiar(const QString& texto) { documento->txtFile().SelText(texto); }
    bool Gone() {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return documento.isNull();
    }

    support::TestHome home;
    support::ScriptedDialogs dialogs;
    FakeMarco marco;
    shared::ValoresCompartidos compartido;
    platform::MDIFrame frame;
    QPointer<frmDocumento> documento{new frmDocumento(marco, compartido)};
};

} // namespace

TEST_F(frmDocumentoTest, LoadsWithTheSkeletonAndUnchanged) {
    QString esqueleto = u"while true do\rscreen:clear()"_s;
    for (int i = 0; i < 15; ++i)
        esqueleto += u"\r\n"_s;
    esqueleto += u"screen.waitVblankStart()\r\nscreen.flip()\r\nend"_s;
    EXPECT_EQ(documento->txtFile().Text(), esqueleto);
    EXPECT_FALSE(documento->flagGuardar);
    EXPECT_EQ(marco.temporales, 1);
    EXPECT_EQ(compartido.nombre_script, QString());
    EXPECT_EQ(compartido.texto_script.Leer(), QString());
    EXPECT_EQ(documento->Shell()->pos(), QPoint(0, 0));
    EXPECT_NEAR(documento->Width(), 8000, 15);
    EXPECT_NEAR(documento->Height(), 11000 - 900, 15);
    documento->txtFile().Undo();
    EXPECT_EQ(documento->txtFile().Text(), esqueleto);
}

TEST_F(frmDocumentoTest, WritesAsItsOptionsAndFontSay) {
    auto* engine = documento->findChild<QsciScintilla*>();
    documento->txtFile().Text(u"x"_s);
    QTest::keyClick(engine, Qt::Key_Home);
    QTest::keyClick(engine, Qt::Key_Tab);
    QTest::keyClick(engine, Qt::Key_End);
    QTest::keyClick(engine, Qt::Key_Return);
    QTest::keyClicks(engine, u"(y)"_s);
    EXPECT_EQ(documento->txtFile().Text(), u"\tx\r\n\t(y)"_s);
    EXPECT_EQ(engine->SendScintilla(QsciScintilla::SCI_STYLEGETSIZE, 0UL), 10);
    for (const QString& font : {u"Courier New"_s, u"sans-serif"_s}) { // none but of one width
        documento->txtFile().FontName(font);
        EXPECT_EQ(engine->SendScintilla(QsciScintilla::SCI_TEXTWIDTH, 0UL, "iii"),
                  engine->SendScintilla(QsciScintilla::SCI_TEXTWIDTH, 0UL, "WWW"));
    }
    EXPECT_GT(engine->marginWidth(1), 0);
    EXPECT_EQ(engine->braceMatching(), QsciScintilla::SloppyBraceMatch);
}

TEST_F(frmDocumentoTest, ShowsItsColors) {
    const auto has = [&](const QRect& area, QColor color) {
        const QImage image = documento->txtFile().grab(area).toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                if (std::abs(pixel.red() - color.red()) < 40 &&
                    std::abs(pixel.green() - color.green()) < 40 &&
                    std::abs(pixel.blue() - color.blue()) < 40)
                    return true;
            }
        }
        return false;
    };
    const QRect margin(4, 4, 28, 300);
    const QRect text(60, 4, 300, 300);
    EXPECT_TRUE(has(margin, Qt::black) && has(margin, Qt::white));
    EXPECT_TRUE(has(text, Qt::blue) && has(text, Qt::red)); // keywords and operators
    EXPECT_FALSE(has(text, QColor(0x80, 0, 0x80)) || has(text, QColor(0, 0x80, 0)));
    Cambiar(u"'texto' --[[nota]]"_s);
    EXPECT_TRUE(has(text, QColor(0x80, 0, 0x80)) && has(text, QColor(0, 0x80, 0)));
}

TEST_F(frmDocumentoTest, PublishesItsTextOnEachChangeAndItsNameUnderTheMouse) {
    Cambiar(u"-- "_s);
    EXPECT_TRUE(documento->flagGuardar);
    EXPECT_TRUE(compartido.texto_script.Leer().startsWith(u"-- while"_s));
    EXPECT_EQ(compartido.nombre_script, QString());
    const std::pair<QString, QString> names[] = {{u"Nuevo script 1"_s, u"Nuevo scri"_s},
                                                 {u"juego.lua"_s, u"juego"_s},
                                                 {u"abcd"_s, QString()},
                                                 {u"ab"_s, QString()}};
    int x = 10;
    for (const auto& [caption, name] : names) {
        documento->Caption(caption);
        QTest::mouseMove(documento, QPoint(x++, 5));
        EXPECT_EQ(compartido.nombre_script, name);
    }
    documento->txtFile().OpenFile(home.Put("a.lua", "abierto"));
    QTest::mouseMove(documento, QPoint(x, 6));
    EXPECT_EQ(compartido.texto_script.Leer(), u"abierto"_s);
}

TEST_F(frmDocumentoTest, TellsTheFrameItsStateAndLeavesTheStripFree) {
    EXPECT_EQ(marco.rotulo, u"Quillmark v2.0.0"_s);
    const auto fills = [&] {
        const QSize inner(documento->width(), documento->height() - 23);
        return documento->txtFile().geometry() == QRect(QPoint(0, 23), inner);
    };
    EXPECT_TRUE(fills());
    documento->State(WindowState::Maximised);
    EXPECT_EQ(marco.rotulo, u"Quillmark v2.0.0 - Nuevo script 1"_s);
    documento->Move(0, 0, 8000, 6000); // as the opening of a file does
    EXPECT_TRUE(fills());
    EXPECT_GT(documento->width(), 700);
    documento->State(WindowState::Minimised);
    EXPECT_EQ(marco.rotulo, u"Quillmark v2.0.0"_s);
    EXPECT_GT(documento->txtFile().height(), 400); // as it was
    documento->State(WindowState::Normal);
    marco.rotulo.clear();
    documento->Move(0, 0, 6000, 6000);
    EXPECT_TRUE(fills());
    EXPECT_EQ(marco.rotulo, u"Quillmark v2.0.0"_s);
}

TEST_F(frmDocumentoTest, ClosesWithoutAQuestionWhenUnchanged) {
    home.Put("programa/temp.lua", "x");
    EXPECT_TRUE(documento->Unload());
    EXPECT_TRUE(Gone());
    EXPECT_EQ(compartido.numero_documentos, 0);
    EXPECT_FALSE(std::filesystem::exists(home.Root() / "programa/temp.lua"));
}

TEST_F(frmDocumentoTest, CancelKeepsItAndNoClosesOnce) {
    Cambiar(u"x"_s);
    compartido.documento_explorador = documento.data();
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::Cancel);
    EXPECT_FALSE(documento->Unload());
    EXPECT_EQ(compartido.numero_documentos, 1);
    EXPECT_EQ(compartido.documento_explorador, nullptr);
    EXPECT_EQ(dialogs.messages[0].title, u"Nuevo script 1"_s);
    EXPECT_EQ(dialogs.messages[0].buttons, platform::Buttons::YesNoCancel);
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::No);
    EXPECT_TRUE(documento->Unload());
    EXPECT_TRUE(Gone());
    EXPECT_TRUE(compartido.texto_script.Leer().startsWith(u"xwhile"_s));
}

TEST_F(frmDocumentoTest, AFailedOrForsakenSaveDoesNotStopTheClosing) {
    Cambiar(u"x"_s);
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::Yes);
    dialogs.ExpectName(QString());
    compartido.documento_explorador = documento.data();
    EXPECT_TRUE(documento->Unload());
    EXPECT_EQ(compartido.documento_explorador, nullptr);
    EXPECT_EQ(compartido.numero_documentos, 0);
}

TEST_F(frmDocumentoTest, AnyOtherFailureEndsTheClosingSteps) {
    Cambiar(u"x"_s);
    platform::Form otro;
    compartido.documento_explorador = &otro;
    auto before = platform::ReplaceDialogs(std::make_unique<BrokenDialogs>());
    EXPECT_TRUE(documento->Unload());
    platform::ReplaceDialogs(std::move(before));
    EXPECT_EQ(compartido.documento_explorador, &otro);
    EXPECT_EQ(compartido.numero_documentos, 0);
}
