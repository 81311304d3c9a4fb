// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MenuPrincipal.h"
#include "shell/MDIForm1.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHome.h"

#include <QMenuBar>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using shell::EntradaMenu;

namespace {

// The menu as it hangs in the window, in the order and form of the table.
void Flatten(const QList<QAction*>& actions, int level, QStringList& lines) {
    for (const QAction* action : actions) {
        if (action->objectName().isEmpty())
            continue; // the further entries of the recent list
        lines.append(u"%1 %2 %3 %4"_s.arg(level).arg(
            action->objectName(), action->isSeparator() ? u"-"_s : action->text(),
            action->shortcut().toString(QKeySequence::PortableText)));
        if (action->menu())
            Flatten(action->menu()->actions(), level + 1, lines);
    }
}

} // namespace

TEST(MenuPrincipal, TheWindowShowsTheWholeTableInItsOrder) {
    const support::TestHome home;
    const support::ScriptedDialogs dialogs;
    shared::ValoresCompartidos compartido;
    shell::MDIForm1 principal(compartido, QString());
    principal.Show();
    QStringList shown;
    Flatten(principal.menuBar()->actions(), 0, shown);
    QStringList table;
    for (const EntradaMenu& entrada : shell::MenuPrincipal())
        table.append(u"%1 %2 %3 %4"_s.arg(entrada.nivel)
                         .arg(QString::fromLatin1(entrada.nombre),
                              QString::fromUtf16(entrada.texto),
                              QString::fromLatin1(entrada.tecla)));
    EXPECT_EQ(shown, table);
    EXPECT_FALSE(principal.Entrada(u"crear_temporal"_s)->isVisible());
}

TEST(MenuPrincipal, TheEntriesThatPeopleKnow) {
    const support::TestHome home;
    const support::ScriptedDialogs dialogs;
    shared::ValoresCompartidos compartido;
    const shell::MDIForm1 principal(compartido, QString());
    const struct {
        const char* name;
        const char* text;
        const char* key;
    } entries[] = {{"mnuarchivoabrir", "&Abrir", "Ctrl+A"},
                   {"mnuedicionseleccionar", "S&eleccionar todo", "Ctrl+E"},
                   {"mnucodigoshola", "¡Hola Mundo!", ""},
                   {"transfer", "Trasferir Script", "F7"},
                   {"actualizacion_online", "Actualizaciones Online", "F12"}};
    for (const auto& entry : entries) {
        const QAction* action = principal.Entrada(QString::fromLatin1(entry.name));
        EXPECT_EQ(action->text(), QString::fromUtf8(entry.text));
        EXPECT_EQ(action->shortcut(), QKeySequence(QString::fromLatin1(entry.key)));
    }
    QStringList withDocument;
    for (const EntradaMenu& entrada : shell::MenuPrincipal()) {
        if (entrada.conDocumento)
            withDocument.append(QString::fromLatin1(entrada.nombre));
    }
    withDocument.sort();
    EXPECT_EQ(withDocument.join(u' '),
              u"ejecutar_lua mnuarchivocomo mnuarchivoguardar mnucodigosanimacion "
              "mnucodigoshola mnucodigosmenu mnuedicioncopiar mnuedicioncortar "
              "mnuedicionpegar mnuedicionseleccionar mnugenerarlua transfer"_s);
}
