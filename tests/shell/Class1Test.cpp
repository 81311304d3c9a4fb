// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Class1.h"
#include "platform/desktop/UserSettings.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using shell::Class1;

namespace {

QString Ruta(const QString& nombre) {
    return u"C:\\ju egos, ñ\\;=%20\uF03A\\"_s + nombre;
}

class Class1Test : public testing::Test {
protected:
    Class1Test() {
        lista.Count(6);
        lista.Init(entradas, *separador);
    }
    static QString Visibles(platform::MenuArray& entradas) {
        QStringList textos;
        for (int i = 1; i <= entradas.Count(); ++i) {
            if (entradas(i).isVisible())
                textos.append(entradas(i).text());
        }
        return textos.join(u'|');
    }
    // What the menu of a later start shows.
    static QString Guardado(quint8 cuantos) {
        QMenu menu;
        platform::MenuArray entradas{&menu, menu.addAction(u"Recientes"_s), [](int) {}};
        Class1 lista;
        lista.Count(cuantos);
        EXPECT_EQ(lista.Count(), cuantos);
        lista.Init(entradas, *menu.addSeparator());
        return Visibles(entradas);
    }

    support::TestHome home;
    QMenu menu;
    QAction* separador = menu.addSeparator();
    platform::MenuArray entradas{&menu, menu.addAction(u"Recientes"_s), [](int) {}};
    Class1 lista;
};

} // namespace

TEST_F(Class1Test, APathMetAgainMovesToTheFrontAndTheOldestDropsOut) {
    EXPECT_EQ(entradas.Count(), 25);
    EXPECT_EQ(Visibles(entradas), u"Recientes"_s); // an empty list keeps its design entry
    EXPECT_TRUE(separador->isVisible());
    for (const char* nombre : {"a", "b", "c", "d", "e", "f", "A", "f", "g"})
        lista.NuevoElemento(Ruta(QString::fromLatin1(nombre)));
    EXPECT_EQ(Visibles(entradas), u"1 g|2 f|3 A|4 e|5 d|6 c"_s);
    EXPECT_EQ(Guardado(10), u"1 g|2 f|3 A|4 e|5 d|6 c"_s);
    EXPECT_EQ(Guardado(3), u"1 g|2 f|3 A"_s);
    // It is on the disk at once: the process may end without a goodbye.
    EXPECT_TRUE(home.Get(".config/Quillmark/Accesos Recientes.conf").contains("Lista"));
    lista.Init(entradas, *separador); // as it was stored
    EXPECT_EQ(lista.ObtenerPath(2), Ruta(u"f"_s));
    for (const int none : {0, 7})
        EXPECT_EQ(lista.ObtenerPath(none), QString());

    lista.EliminarLista();
    lista.EliminarLista(); // nothing there now
    EXPECT_EQ(Visibles(entradas), QString());
    EXPECT_FALSE(separador->isVisible());
    EXPECT_EQ(Guardado(10), u"Recientes"_s);
    EXPECT_EQ(lista.ObtenerPath(1), QString());
    lista.NuevoElemento(u"C:\\a&b\uF03A ñ.lua"_s);
    EXPECT_EQ(Visibles(entradas), u"1 a&&b: ñ.lua"_s); // as it is, and no access key
    EXPECT_TRUE(separador->isVisible());
}

TEST_F(Class1Test, TwoCopiesLoseNoPathOfEachOtherAndAGapEndsTheList) {
    Class1 otra;
    otra.Count(6);
    otra.Init(entradas, *separador);
    lista.NuevoElemento(Ruta(u"a"_s));
    otra.NuevoElemento(Ruta(u"b"_s));
    lista.NuevoElemento(Ruta(u"c"_s));
    EXPECT_EQ(Guardado(10), u"1 c|2 b|3 a"_s);
    platform::DeleteSetting(u"Accesos Recientes"_s, u"Lista"_s, u"2"_s);
    lista.Init(entradas, *separador);
    EXPECT_EQ(lista.ObtenerPath(1), Ruta(u"c"_s));
    EXPECT_EQ(lista.ObtenerPath(2), QString());
    lista.NuevoElemento(Ruta(u"z"_s));
    EXPECT_EQ(Guardado(10), u"1 z|2 c"_s);
}

TEST_F(Class1Test, TheOpenDialogHasItsDefaults) {
    support::ScriptedDialogs dialogs;
    dialogs.ExpectName(u"C:\\x.lua  "_s);
    EXPECT_EQ(lista.CommonDialog_Abrir(nullptr), u"C:\\x.lua"_s);
    dialogs.ExpectName(QString());
    EXPECT_EQ(lista.CommonDialog_Abrir(nullptr, u"Todo\0*.*\0"_s.left(9), u"C:\\"_s, u"Título"_s),
              QString());
    QStringList asked;
    for (const platform::FileQuestion& question : dialogs.questions) {
        asked.append(question.title);
        for (const platform::FileFilter& filter : question.filters)
            asked.append(filter.name + u' ' + filter.pattern);
    }
    EXPECT_EQ(asked, QStringList({u" Abrir archivo ... "_s, u"Archivos Quillmark (*.qmk) *.qmk"_s,
                                  u"Archivos LUA (*.lua) *.lua"_s, u"Título"_s, u"Todo *.*"_s}));
}
