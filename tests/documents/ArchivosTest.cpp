// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/Failure.h"
#include "support/MainWindow.h"

using namespace Qt::StringLiterals;
using platform::Answer;

using ArchivosTest = support::MainWindow;

TEST_F(ArchivosTest, AScriptKeepsTheFileItWasSavedTo) {
    const auto saveAs = [&](const char* entrada, const QString& ruta) {
        dialogs.ExpectName(ruta);
        Press(entrada);
    };
    const QString noHay = u"C:\\no\\hay.qmk"_s; // fails, and says nothing
    Press("mnuarchivonuevo");
    Active()->Caption(u"copia de Nuevo script 1.lua"_s);
    for (const QString& ruta : {QString(), noHay}) {
        saveAs("mnuarchivoguardar", ruta);
        EXPECT_EQ(Active()->Caption(), u"copia de Nuevo script 1.lua"_s);
    }
    saveAs("mnuarchivoguardar", u"C:\\a.qmk"_s);
    EXPECT_EQ(Active()->Caption(), u"a.qmk"_s);
    const QByteArray text = home.Get("a.qmk");
    EXPECT_TRUE(text.startsWith("while true do\r"));
    std::filesystem::current_path("/");
    Type(u"1"_s);
    for (const char16_t* caption : {u"nuevo script 1", u"Nuevo script", u"Nuevo  script 1"}) {
        Active()->Caption(QString::fromUtf16(caption));
        Press("mnuarchivoguardar"); // without a question
    }
    saveAs("mnuarchivocomo", u"C:\\otro.qmk"_s);
    Type(u"2"_s);
    Press("mnuarchivoguardar");
    EXPECT_EQ(home.Get("otro.qmk"), "12" + text);
    EXPECT_EQ(home.Get("a.qmk"), "1" + text);
    EXPECT_EQ(Active()->Caption(), u"otro.qmk"_s);
    saveAs("mnuarchivocomo", noHay);                                   // leaves name and path
    EXPECT_THROW(Active()->Abrir(u"C:\\no.lua"_s), platform::Failure); // so does this
    Type(u"3"_s);
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::Yes);
    Active()->Unload();
    EXPECT_EQ(home.Get("otro.qmk"), "123" + text);

    Abrir(home.Put("lejos/x", "uno"));
    Type(u"4"_s);
    Press("mnuarchivoguardar");
    EXPECT_TRUE(Active()->flagGuardar); // for good
    EXPECT_EQ(home.Get("lejos/x"), "4uno");
    Press("mnuarchivonuevo");
    Type(u"5"_s);
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::No);
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::Yes);
    saveAs("mnuventanacerrar", u"C:\\d"_s);
    EXPECT_EQ(home.Get("d"), "5" + text);
    for (const platform::FileQuestion& question : {dialogs.questions[0], dialogs.questions.back()})
        EXPECT_EQ(question.filters[0].name + question.filters[0].pattern, u"Archivos .qmk*.qmk"_s);
}
