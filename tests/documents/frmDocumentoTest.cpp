// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/frmDocumento.h"
#include "support/Colors.h"
#include "support/MainWindow.h"

#include <Qsci/qsciscintilla.h>

using namespace Qt::StringLiterals;
using documents::frmDocumento;
using platform::Answer;
using platform::WindowState;

namespace {

class frmDocumentoTest : public support::MainWindow {
protected:
    frmDocumentoTest() {
        compartido.nombre_script = u"de antes"_s;
        Nuevo();
    }
    void Nuevo() {
        Press("mnuarchivonuevo");
        documento = Active();
    }
    void Cambiar(const QString& texto) { documento->txtFile().SelText(texto); }

    std::filesystem::path temporal = home.Root() / "programa/temp.lua";
    QPointer<frmDocumento> documento;
};

} // namespace

TEST_F(frmDocumentoTest, LoadsWithTheSkeletonAndUnchanged) {
    const QString esqueleto = u"while true do\rscreen:clear()"_s + u"\r\n"_s.repeated(15) +
                              u"screen.waitVblankStart()\r\nscreen.flip()\r\nend"_s;
    EXPECT_EQ(documento->txtFile().Text(), esqueleto);
    EXPECT_TRUE(std::filesystem::exists(temporal));
    EXPECT_EQ(compartido.nombre_script + compartido.texto_script.Leer(), QString());
    const int height = platform::ToPixels(principal.Height() - 900);
    EXPECT_EQ(support::Place(*documento), QRect(0, 0, support::kDocumentWidth, height));
}

TEST_F(frmDocumentoTest, WritesAndLooksAsItsOptionsSay) {
    auto* engine = documento->findChild<QsciScintilla*>();
    EXPECT_EQ(engine->SendScintilla(QsciScintilla::SCI_STYLEGETSIZE, 0UL), 10);
    for (const QString& font : {u"Courier New"_s, u"sans-serif"_s}) { // none but of one width
        documento->txtFile().FontName(font);
        EXPECT_EQ(engine->SendScintilla(QsciScintilla::SCI_TEXTWIDTH, 0UL, "iii"),
                  engine->SendScintilla(QsciScintilla::SCI_TEXTWIDTH, 0UL, "WWW"));
    }
    EXPECT_GT(engine->marginWidth(1), 0);
    EXPECT_EQ(engine->braceMatching(), QsciScintilla::SloppyBraceMatch);

    const int margin = engine->marginWidth(0);
    documento->txtFile().FontSize(30); // whose strokes have pixels of the very colour
    EXPECT_GT(engine->marginWidth(0), 2 * margin);
    const auto has = [&](const QRect& area, std::initializer_list<QColor> colors) {
        const QSet<QRgb> shown = support::Colors(documento->txtFile(), area);
        return std::all_of(colors.begin(), colors.end(),
                           [&](QColor color) { return shown.contains(color.rgb()); });
    };
    const QRect text(130, 4, 400, 300);
    EXPECT_TRUE(has({4, 4, 100, 300}, {Qt::black, Qt::white})); // the margin
    EXPECT_TRUE(has(text, {Qt::blue, Qt::red}));                // keywords and operators
    const QColor string(0x80, 0, 0x80);
    const QColor comment(0, 0x80, 0);
    EXPECT_FALSE(has(text, {string}) || has(text, {comment}));
    Cambiar(u"'H'--[[H]]"_s);
    EXPECT_TRUE(has(text, {string, comment}));

    documento->txtFile().Text(u"x"_s);
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Tab, Qt::Key_End, Qt::Key_Return})
        QTest::keyClick(engine, key);
    Type(u"(y)"_s);
    EXPECT_EQ(Text(), u"\tx\r\n\t(y)"_s);
}

TEST_F(frmDocumentoTest, PublishesItsTextOnEachChangeAndItsNameUnderTheMouse) {
    Cambiar(u"-- "_s);
    EXPECT_TRUE(documento->flagGuardar);
    EXPECT_TRUE(compartido.texto_script.Leer().startsWith(u"-- while"_s));
    EXPECT_EQ(compartido.nombre_script, QString());
    const std::pair<QString, QString> names[] = {
        {u"Nuevo script 1"_s, u"Nuevo scri"_s}, {u"juego.lua"_s, u"juego"_s}, {u"ab"_s, QString()}};
    int x = 10;
    for (const auto& [caption, name] : names) {
        documento->Caption(caption);
        QTest::mouseMove(documento, QPoint(x++, 5));
        EXPECT_EQ(compartido.nombre_script, name) << caption.toStdString();
    }
    Cambiar(u"x"_s);
    documento->Abrir(home.Put("a.lua", "abierto"));
    EXPECT_TRUE(compartido.texto_script.Leer().startsWith(u"-- xwhile"_s)); // as it was published
    QTest::mouseMove(documento, QPoint(x, 6));
    EXPECT_EQ(compartido.texto_script.Leer(), u"abierto"_s);
}

TEST_F(frmDocumentoTest, TellsTheFrameItsStateAndLeavesTheStripFree) {
    EXPECT_EQ(principal.Caption(), u"Quillmark v2.0.0"_s);
    constexpr int kStrip = 23; // high, above the editor
    const auto fills = [&] {
        return documento->txtFile().geometry() == documento->rect().adjusted(0, kStrip, 0, 0);
    };
    EXPECT_TRUE(fills());
    documento->State(WindowState::Maximised);
    EXPECT_EQ(principal.Caption(), u"Quillmark v2.0.0 - Nuevo script 1"_s);
    documento->Move(0, 0, 8000, 6000); // as the opening of a file does
    EXPECT_TRUE(fills());
    EXPECT_GT(documento->width(), 700);
    documento->State(WindowState::Minimised);
    EXPECT_EQ(principal.Caption(), u"Quillmark v2.0.0"_s);
    EXPECT_GT(documento->txtFile().height(), 400); // as it was
    documento->State(WindowState::Normal);
    principal.Caption(QString());
    documento->Move(0, 0, 6000, 6000);
    EXPECT_TRUE(fills());
    EXPECT_EQ(principal.Caption(), u"Quillmark v2.0.0"_s);
}

TEST_F(frmDocumentoTest, OnlyACancelKeepsIt) {
    platform::Form otro;
    const auto closes = [&](bool changed) {
        if (changed)
            Cambiar(u"x"_s);
        compartido.documento_explorador = &otro;
        const bool closed = documento->Unload();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(documento.isNull(), closed);
        EXPECT_EQ(compartido.numero_documentos, closed ? 0 : 1);
        EXPECT_EQ(std::filesystem::exists(temporal), !closed);
        if (closed)
            Nuevo();
        return closed;
    };
    EXPECT_TRUE(closes(false));
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::Cancel);
    EXPECT_FALSE(closes(true));
    EXPECT_EQ(compartido.documento_explorador, nullptr);
    EXPECT_EQ(dialogs.messages[0].title, u"Nuevo script 1"_s);
    EXPECT_EQ(dialogs.messages[0].buttons, platform::Buttons::YesNoCancel);
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::No);
    EXPECT_TRUE(closes(true));
    EXPECT_TRUE(compartido.texto_script.Leer().startsWith(u"xxwhile"_s));
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::Yes);
    dialogs.ExpectName(QString()); // so the save fails
    EXPECT_TRUE(closes(true));
    EXPECT_EQ(compartido.documento_explorador, nullptr);

    dialogs.Expect(u"¿Guardar cambios?"_s, {}); // any other failure
    EXPECT_TRUE(closes(true));
    EXPECT_EQ(compartido.documento_explorador, &otro);
}
