// SPDX-License-Identifier: GPL-3.0-or-later
#include "assist/Plantillas.h"
#include "platform/CodePage.h"
#include "platform/TextEncoding.h"
#include "support/MainWindow.h"

#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;
using platform::Answer;

namespace {

constexpr std::array kEntries = {std::pair{"mnucodigoshola", "codehm"},
                                 std::pair{"mnucodigosmenu", "codems"},
                                 std::pair{"mnucodigosanimacion", "codea"}};

class PlantillasTest : public support::MainWindow {
protected:
    QString Read(const QByteArray& bytes) {
        return assist::LeerPlantilla(home.Put("plantilla", bytes));
    }
};

} // namespace

TEST_F(PlantillasTest, EachLineEndsInCrLf) {
    EXPECT_EQ(Read(""), QString());
    for (const char* end : {"\r\n", "\n", "\r"}) {
        const QByteArray text = QByteArray("uno") + end + end + "\xF1";
        EXPECT_EQ(Read(text), u"uno\r\n\r\nñ\r\n"_s);
        EXPECT_EQ(Read(text + end), u"uno\r\n\r\nñ\r\n"_s);
    }
    EXPECT_EQ(Read("\xEF\xBB\xBFUTF \xC3\xB1"), u"UTF ñ\r\n"_s);
}

TEST_F(PlantillasTest, TheYoungestNewScriptGetsTheExample) {
    for (const auto& [entry, file] : kEntries)
        home.Put(std::string("programa/Code/") + file, QByteArray("-- ") + file + "\nfin");
    Press("mnuarchivonuevo");
    Press("mnuarchivonuevo");
    documents::frmDocumento* younger = Active();
    Abrir(home.Put("juego.lua", "x"));
    const QString before = younger->txtFile().Text();
    QString wanted = before;
    for (const auto& [entry, file] : kEntries) {
        Press(entry);
        wanted += u"-- "_s + QLatin1String(file) + u"\r\nfin\r\n"_s;
        EXPECT_EQ(younger->txtFile().Text(), wanted);
    }
    EXPECT_EQ(Text(), u"x"_s);
    EXPECT_TRUE(younger->flagGuardar);
    EXPECT_EQ(compartido.texto_script.Leer(), wanted);
    for (int i = 0; i < 3; ++i)
        younger->txtFile().Undo(); // one step each
    EXPECT_EQ(younger->txtFile().Text(), before);
    younger->txtFile().Redo();
    home.Put("programa/Code/codea", QByteArray("linea \xF1\r").repeated(1 << 17));
    Press("mnucodigosanimacion");
    younger->txtFile().SelText(u"aquí"_s); // the caret is at the end of what was added
    EXPECT_TRUE(younger->txtFile().Text().endsWith(u"linea ñ\r\naquí"_s));
    home.Put("programa/Code/codea", "");
    younger->flagGuardar = false;
    Press("mnucodigosanimacion");
    EXPECT_FALSE(younger->flagGuardar);
}

TEST_F(PlantillasTest, WithoutATargetOrAFileThereIsANotice) {
    Abrir(home.Put("juego.lua", "x"));
    dialogs.Expect(u"Elige Archivo, Nuevo"_s, Answer::Ok);
    Press("mnucodigoshola");
    Press("mnuarchivonuevo");
    const QString before = Text();
    dialogs.Expect(u"codehm\": no existe"_s, Answer::Ok);
    Press("mnucodigoshola");
    home.Put("programa/Code/codehm", QByteArray("a\0b", 3));
    dialogs.Expect(u"Borra lo que hay con ese nombre. "_s, Answer::Ok);
    Press("mnucodigoshola");
    EXPECT_EQ(Text(), before);
    EXPECT_FALSE(Active()->flagGuardar);
    Active()->Unload();
    dialogs.Expect(u"Elige Archivo, Nuevo"_s, Answer::Ok);
    Press("mnucodigoshola");
    for (const platform::Message& message : dialogs.messages)
        EXPECT_EQ(message.icon, platform::Icon::Information);
}

TEST_F(PlantillasTest, TheExamplesThatComeWithTheProgramAreWholeScripts) {
    for (const auto& [entry, file] : kEntries) {
        const QByteArray bytes = support::Shipped(std::string("Code/") + file);
        EXPECT_EQ(bytes.count('\n'), bytes.count("\r\n"));
        EXPECT_TRUE(platform::DecodeText(bytes).encoding == platform::TextEncoding::CodePage);
        EXPECT_TRUE(platform::FromCodePage(bytes).startsWith(u"-- Ejemplo: "_s));
        QProcess compiler;
        compiler.start(u"luac5.1"_s, {u"-p"_s, u"-"_s});
        compiler.write(bytes);
        compiler.closeWriteChannel();
        EXPECT_TRUE(compiler.waitForFinished()) << file;
        EXPECT_EQ(compiler.exitCode(), 0) << compiler.readAllStandardError().toStdString();
    }
}
