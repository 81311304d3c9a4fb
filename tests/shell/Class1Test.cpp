// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Class1.h"
#include "platform/UserSettings.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHome.h"

#include <gtest/gtest.h>

using shell::Class1;

namespace {

QString Ruta(const QString& nombre) {
    return QStringLiteral("C:\\juegos\\") + nombre;
}

class Class1Test : public testing::Test {
protected:
    Class1Test() {
        lista.Count(6);
        lista.Init(entradas, *separador);
    }
    // What a later start would read.
    static QStringList Guardado() {
        QStringList guardado;
        for (int i = 1; i <= 10; ++i)
            guardado.append(platform::GetSetting(QStringLiteral("Accesos Recientes"),
                                                 QStringLiteral("Lista"), QString::number(i),
                                                 QStringLiteral("-")));
        guardado.removeAll(QStringLiteral("-"));
        return guardado;
    }
    QString Visibles() {
        QStringList textos;
        for (int i = 1; i <= entradas.Count(); ++i) {
            if (entradas(i).isVisible())
                textos.append(entradas(i).text());
        }
        return textos.join(u'|');
    }

    support::TestHome home;
    QMenu menu;
    QAction* separador = menu.addSeparator();
    platform::MenuArray entradas{&menu, menu.addAction(QStringLiteral("Recientes")), [](int) {}};
    Class1 lista;
};

} // namespace

TEST_F(Class1Test, AnEmptyListKeepsItsDesignEntry) {
    EXPECT_EQ(entradas.Count(), 25);
    EXPECT_EQ(Visibles(), QStringLiteral("Recientes"));
    EXPECT_TRUE(separador->isVisible());
    EXPECT_EQ(lista.ObtenerPath(1), QString());
}

TEST_F(Class1Test, APathMetAgainMovesToTheFrontAndTheOldestDropsOut) {
    for (const char* nombre : {"a", "b", "c", "d", "e", "f", "A", "c", "g"})
        lista.NuevoElemento(Ruta(QString::fromLatin1(nombre)));
    EXPECT_EQ(Visibles(), QStringLiteral("1 g|2 c|3 A|4 f|5 e|6 d"));
    EXPECT_EQ(Guardado().size(), 6);
    EXPECT_EQ(lista.ObtenerPath(2), Ruta(QStringLiteral("c")));
    EXPECT_EQ(lista.ObtenerPath(7), QString());
    EXPECT_EQ(lista.ObtenerPath(0), QString());

    Class1 siguiente; // the next start
    siguiente.Count(3);
    siguiente.Init(entradas, *separador);
    EXPECT_EQ(siguiente.ObtenerPath(3), Ruta(QStringLiteral("A")));
    EXPECT_EQ(siguiente.ObtenerPath(4), QString());
}

TEST_F(Class1Test, AGapInTheKeysEndsTheList) {
    for (const char* nombre : {"c", "b", "a"})
        lista.NuevoElemento(Ruta(QString::fromLatin1(nombre)));
    platform::DeleteSetting(QStringLiteral("Accesos Recientes"), QStringLiteral("Lista"),
                            QStringLiteral("2"));
    lista.Init(entradas, *separador);
    EXPECT_EQ(lista.ObtenerPath(1), Ruta(QStringLiteral("a")));
    EXPECT_EQ(lista.ObtenerPath(2), QString());
    lista.NuevoElemento(Ruta(QStringLiteral("z")));
    EXPECT_EQ(Guardado(), QStringList({Ruta(QStringLiteral("z")), Ruta(QStringLiteral("a"))}));
}

TEST_F(Class1Test, NamesShowAsTheyAre) {
    lista.NuevoElemento(QStringLiteral("C:\\a&b\uF03A ñ.lua"));
    EXPECT_EQ(Visibles(), QStringLiteral("1 a&&b: ñ.lua"));
    EXPECT_EQ(Class1::NombreArchivo(QStringLiteral("C:\\x\\juego.lua")),
              QStringLiteral("juego.lua"));
    EXPECT_EQ(Class1::NombreArchivo(QStringLiteral("juego.lua")), QStringLiteral("juego.lua"));
}

TEST_F(Class1Test, EliminarListaEmptiesEverything) {
    lista.EliminarLista(); // nothing there yet
    lista.NuevoElemento(Ruta(QStringLiteral("a")));
    lista.EliminarLista();
    EXPECT_EQ(Visibles(), QString());
    EXPECT_FALSE(separador->isVisible());
    EXPECT_EQ(Guardado(), QStringList());
    EXPECT_EQ(lista.ObtenerPath(1), QString());
}

TEST_F(Class1Test, TheOpenDialogHasItsDefaults) {
    support::ScriptedDialogs dialogs;
    dialogs.ExpectName(QStringLiteral("C:\\x.lua  "));
    EXPECT_EQ(lista.CommonDialog_Abrir(nullptr), QStringLiteral("C:\\x.lua"));
    dialogs.ExpectName(QString());
    EXPECT_EQ(lista.CommonDialog_Abrir(nullptr, QStringLiteral("Todo\0*.*\0").left(9),
                                       QStringLiteral("C:\\"), QStringLiteral("Título")),
              QString());
    EXPECT_EQ(dialogs.questions[0].title, QStringLiteral(" Abrir archivo ... "));
    ASSERT_EQ(dialogs.questions[0].filters.size(), 2U);
    EXPECT_EQ(dialogs.questions[0].filters[0].name, QStringLiteral("Archivos Quillmark (*.qmk)"));
    EXPECT_EQ(dialogs.questions[0].filters[1].pattern, QStringLiteral("*.lua"));
    EXPECT_EQ(dialogs.questions[1].title, QStringLiteral("Título"));
    EXPECT_EQ(dialogs.questions[1].filters[0].pattern, QStringLiteral("*.*"));
}
