// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/MainWindow.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using platform::Answer;
namespace fs = std::filesystem;

namespace {

class DeployTest : public support::MainWindow {
protected:
    void Open(const QByteArray& bytes) { Abrir(home.Put("juego.lua", bytes)); }
    QByteArray Temporal() { return home.Get("programa/temp.lua"); }
    // Gives the name, the answer to the question if there is one, and meets the message.
    void Compilar(const QString& name, const QString& message, bool question = false) {
        dialogs.ExpectName(name);
        if (question)
            dialogs.Expect(u"¿Sobreescribir archivo existente?"_s, Answer::Yes);
        dialogs.Expect(message);
        Press("mnugenerarlua");
    }
};

} // namespace

TEST_F(DeployTest, ATestRunHandsTheTextToThePlayerOnAFreshMachine) {
    PutPlayer();
    Press("mnuarchivonuevo");
    EXPECT_EQ(Temporal(), "\r\n");
    Open("a\xF1o\n");
    Type(u"x"_s);
    Press("ejecutar_lua");
    EXPECT_TRUE(Active()->flagGuardar);
    EXPECT_EQ(Temporal(), "xa\xF1o\n\r\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return home.Get("visto") == "xa\xF1o\n\r\n"; }));
    EXPECT_EQ(home.Get("juego.lua"), "a\xF1o\n"); // isn't saved
    EXPECT_EQ(home.Get("entorno").toStdString(), home.Root().native() + " juego.lua\n");
    fs::remove(home.Root() / "visto");
    Press("mnuarchivonuevo");
    EXPECT_EQ(Temporal(), "xa\xF1o\n\r\n"); // still that of the last run
    Active()->txtFile().Text(u"Ã±"_s);
    Active()->flagGuardar = false;
    Press("ejecutar_lua");
    EXPECT_FALSE(Active()->flagGuardar);
    EXPECT_EQ(Temporal(), "\xC3\xB1\r\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return fs::exists(home.Root() / "visto"); }));
    EXPECT_EQ(home.Get("entorno").toStdString(),
              home.Root().native() + "/programa/QM/pruebas Nuevo script 3\n");
    fs::remove(home.Root() / "programa/temp.lua");
    fs::create_directories(home.Root() / "programa/temp.lua");
    Press("mnuarchivonuevo"); // opens nevertheless
    Active()->txtFile().Text(u"x"_s);
    dialogs.Expect(u"temp.lua\": es una carpeta"_s);
    Press("ejecutar_lua");
    EXPECT_EQ(dialogs.messages[0].icon, platform::Icon::Error);
    Active()->flagGuardar = false;
}

TEST_F(DeployTest, CompilarWritesTheTextAndSaysSo) {
    Open("a\xF1o\n\r");
    Type(u"x"_s);
    dialogs.ExpectName(QString());
    Press("mnugenerarlua");
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(dialogs.questions[1].filters[0].name, u"Archivos .lua"_s);
    EXPECT_EQ(dialogs.questions[1].filters[0].pattern, u"*.lua"_s);
    Compilar(u"C:\\añal"_s, u"añal generado en C:\\añal"_s);
    EXPECT_EQ(home.Get("añal"), "xa\xF1o\n\r");
    EXPECT_EQ(dialogs.messages[0].icon, platform::Icon::None);
    EXPECT_EQ(dialogs.messages[0].title, u"Quillmark"_s);
    EXPECT_EQ(Active()->Caption(), u"juego.lua"_s);
    EXPECT_EQ(home.Get("juego.lua"), "a\xF1o\n\r");
    EXPECT_TRUE(Active()->flagGuardar);
    EXPECT_TRUE(Reciente(1)->text().contains(u"juego.lua"_s));
    Active()->txtFile().SelText(u"→"_s); // needs another encoding, but in the copy alone
    Compilar(u"C:\\flecha.lua"_s, u"generado en"_s);
    EXPECT_TRUE(home.Get("flecha.lua").contains("\xC3\xB1"));
    Press("mnuediciondeshacer");
    Press("mnuarchivoguardar");
    EXPECT_EQ(home.Get("juego.lua"), "xa\xF1o\n\r");
}

TEST_F(DeployTest, CompilarReplacesOnlyAfterAYesOrSaysWhyNot) {
    home.Put("viejo.lua", "viejo");
    fs::create_hard_link(home.Root() / "viejo.lua", home.Root() / "otro.lua");
    Open("nuevo");
    dialogs.ExpectName(u"C:\\viejo.lua"_s);
    dialogs.Expect(u"¿Sobreescribir archivo existente?"_s, Answer::No);
    Press("mnugenerarlua");
    EXPECT_EQ(home.Get("viejo.lua"), "viejo");
    EXPECT_EQ(dialogs.messages[0].buttons, platform::Buttons::YesNo);
    EXPECT_EQ(dialogs.messages[0].icon, platform::Icon::Question);
    Compilar(u"C:\\viejo.lua"_s, u"viejo.lua generado en C:\\viejo.lua"_s, true);
    EXPECT_EQ(home.Get("viejo.lua"), "nuevo");
    EXPECT_EQ(home.Get("otro.lua"), "viejo"); // the old file is gone from this name alone
    Compilar(u"C:\\juego.lua"_s, u"generado en"_s, true); // its own file
    EXPECT_EQ(home.Get("juego.lua"), "nuevo");
    fs::create_directories(home.Root() / "carpeta.lua");
    ::mkfifo((home.Root() / "tubo").c_str(), 0600);
    Compilar(u"C:\\tubo"_s, u"no es un archivo normal"_s, true);
    Compilar(u"C:\\carpeta.lua"_s, u"es una carpeta"_s);
    Compilar(u"C:\\no\\hay.lua"_s, u"la carpeta no existe"_s);
}
