// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Failure.h"
#include "support/MainWindow.h"

using namespace Qt::StringLiterals;
using platform::Answer;

using ArchivosTest = support::MainWindow;

TEST_F(ArchivosTest, AScriptKeepsTheFileItWasSavedTo) {
    home.Put("b/x", "");
    const auto saveAs = [&](const char* entrada, const QString& ruta) {
        dialogs.ExpectName(ruta);
        Press(entrada);
    };
    Press("mnuarchivonuevo");
    saveAs("mnuarchivoguardar", u"C:\\a.qmk"_s);
    const QByteArray text = home.Get("a.qmk");
    std::filesystem::current_path(home.Root() / "b");
    Type(u"1"_s);
    Press("mnuarchivoguardar");
    EXPECT_EQ(home.Get("a.qmk"), "1" + text);
    saveAs("mnuarchivocomo", u"C:\\otro.qmk"_s);
    Type(u"2"_s);
    dialogs.ExpectName(u"C:\\c.lua"_s);
    dialogs.Expect(u"c.lua generado en C:\\c.lua"_s, Answer::Ok);
    Press("mnugenerarlua");
    Type(u"3"_s);
    Press("mnuarchivoguardar");
    EXPECT_EQ(home.Get("otro.qmk"), "123" + text);
    EXPECT_EQ(home.Get("a.qmk"), "1" + text);
    EXPECT_EQ(home.Get("c.lua"), "12" + text);
    EXPECT_EQ(Active()->Caption(), u"otro.qmk"_s);
    saveAs("mnuarchivocomo", QString());
    saveAs("mnuarchivocomo", u"C:\\no\\hay.qmk"_s); // fails, and leaves name and path
    EXPECT_THROW(Active()->Abrir(u"C:\\no.lua"_s), platform::Failure); // so does this
    Type(u"4"_s);
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::Yes);
    Active()->Unload();
    EXPECT_EQ(home.Get("otro.qmk"), "1234" + text);
    Press("mnuarchivonuevo");
    Type(u"5"_s);
    dialogs.Expect(u"¿Guardar cambios?"_s, Answer::Yes);
    saveAs("mnuventanacerrar", u"C:\\d"_s);
    EXPECT_EQ(home.Get("d"), "5" + text);
    QStringList patterns;
    for (const platform::FileQuestion& question : dialogs.questions)
        patterns.append(question.filters.at(0).name + u'|' + question.filters.at(0).pattern);
    const QString qmk = u"Archivos .qmk|*.qmk"_s;
    EXPECT_EQ(patterns, QStringList({qmk, qmk, u"Archivos .lua|*.lua"_s, qmk, qmk, qmk}));
}

TEST_F(ArchivosTest, SavingWithOnlyAToolWindowSaysNothing) {
    Press("mnuopcionesconfiguracion");
    principal.mnuarchivoguardar_Click();
    dialogs.ExpectName(u"C:\\x.qmk"_s);
    principal.mnuarchivocomo_Click();
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(home.Get("x.qmk"), "");
    principal.ActiveForm()->Unload();
    dialogs.Expect(u"No hay documentos para guardar"_s, Answer::Ok);
    principal.mnuarchivocomo_Click();
}
