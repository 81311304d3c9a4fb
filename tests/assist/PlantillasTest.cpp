// SPDX-License-Identifier: GPL-3.0-or-later
#include "assist/Plantillas.h"
#include "support/MainWindow.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kEntries = {std::pair{"mnucodigoshola", "codehm"},
                                 std::pair{"mnucodigosmenu", "codems"},
                                 std::pair{"mnucodigosanimacion", "codea"}};

} // namespace

using PlantillasTest = support::MainWindow;

TEST_F(PlantillasTest, EachLineEndsInCrLf) {
    const auto read = [&](const QByteArray& bytes) {
        return assist::LeerPlantilla(home.Put("plantilla", bytes));
    };
    EXPECT_EQ(read(""), QString());
    for (const char* end : {"\r\n", "\n", "\r"}) {
        const QByteArray text = QByteArray("uno") + end + end + "\xF1";
        EXPECT_EQ(read(text), u"uno\r\n\r\nñ\r\n"_s);
        EXPECT_EQ(read(text + end), u"uno\r\n\r\nñ\r\n"_s);
    }
    EXPECT_EQ(read("\xEF\xBB\xBFUTF \xC3\xB1"), u"UTF ñ\r\n"_s);
}

TEST_F(PlantillasTest, TheYoungestNewScriptGetsTheExample) {
    Press("mnuarchivonuevo");
    Press("mnuarchivonuevo");
    documents::frmDocumento* younger = Active();
    Abrir(home.Put("juego.lua", "x"));
    const QString before = younger->txtFile().Text();
    QString wanted = before;
    for (const auto& [entry, file] : kEntries) {
        home.Put(std::string("programa/Code/") + file, QByteArray("-- ") + file + "\nfin");
        Press(entry);
        wanted += u"-- "_s + QLatin1String(file) + u"\r\nfin\r\n"_s;
        EXPECT_EQ(younger->txtFile().Text(), wanted);
    }
    EXPECT_EQ(Text(), u"x"_s);
    EXPECT_TRUE(younger->flagGuardar);
    EXPECT_EQ(compartido.texto_script.Leer(), wanted);
    younger->txtFile().SelText(u"aquí"_s); // the caret is at the end of what was added
    EXPECT_EQ(younger->txtFile().Text(), wanted + u"aquí"_s);
    for (int i = 0; i < 4; ++i)
        younger->txtFile().Undo(); // one step each
    EXPECT_EQ(younger->txtFile().Text(), before);
    home.Put("programa/Code/codea", "");
    younger->flagGuardar = false;
    Press("mnucodigosanimacion");
    EXPECT_FALSE(younger->flagGuardar);
}

TEST_F(PlantillasTest, WithoutATargetOrAFileThereIsANotice) {
    const auto refused = [&](const QString& notice) {
        dialogs.Expect(notice);
        Press("mnucodigoshola");
        EXPECT_EQ(dialogs.messages.back().icon, platform::Icon::Information);
    };
    Abrir(home.Put("juego.lua", "x"));
    refused(u"Elige Archivo, Nuevo"_s);
    Press("mnuarchivonuevo");
    const QString before = Text();
    refused(u"codehm\": no existe"_s);
    home.Put("programa/Code/codehm", QByteArray("a\0b", 3));
    refused(u"Borra lo que hay con ese nombre. "_s);
    EXPECT_EQ(Text(), before);
    EXPECT_FALSE(Active()->flagGuardar);
}

TEST_F(PlantillasTest, TheExamplesThatComeWithTheProgramAreWholeScripts) {
    for (const auto& [entry, file] : kEntries) {
        const QByteArray bytes = support::Shipped(std::string("Code/") + file);
        EXPECT_EQ(bytes.count('\n'), bytes.count("\r\n"));
        EXPECT_TRUE(bytes.startsWith("-- Ejemplo: "));
        home.Put("ejemplo.lua", bytes);
        const QString path = QString::fromStdString(home.Root() / "ejemplo.lua");
        EXPECT_EQ(QProcess::execute(u"luac5.1"_s, {u"-p"_s, path}), 0) << file;
    }
}
