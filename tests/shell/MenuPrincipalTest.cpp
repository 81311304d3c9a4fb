// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MenuPrincipal.h"
#include "support/MainWindow.h"

#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {

// The menus as the user sees them, on one line: "*" behind what is grey, "+" behind a key that
// repeats.
QString Seen(const QList<QAction*>& actions) {
    QStringList seen;
    for (const QAction* action : actions) {
        if (!action->isVisible())
            continue;
        QString text = action->isSeparator() ? u"-"_s : action->text();
        text += action->isEnabled() ? QString() : u"*"_s;
        if (!action->shortcut().isEmpty())
            text += u' ' + action->shortcut().toString(QKeySequence::NativeText) +
                    (action->autoRepeat() ? u"+"_s : QString());
        if (action->menu())
            text += u" {"_s + Seen(action->menu()->actions()) + u"}"_s;
        seen.append(text);
    }
    return seen.join(u"|"_s);
}

const QString kMenu = QString::fromUtf16(
    u"&Archivo {&Nuevo Ctrl+N|-|&Abrir Ctrl+A|Guardar* Ctrl+S|&Guardar como*|-|Configurar "
    u"Impresion|"
    u"Imprimir|-|Proyectos recientes {Recientes}|-|Salir Ctrl+Q}|"
    u"&Edición {Deshacer|Rehacer|-|&Copiar* Ctrl+C|Cortar* Ctrl+X|Pegar* Ctrl+V+|-|"
    u"S&eleccionar todo* Ctrl+E}|"
    u"&Herramientas {Ventana de códigos F1|Colores RGB F2|Coordenadas de Pantalla F3|"
    u"Explorador de Archivos}|"
    u"&Códigos {Simples {¡Hola Mundo!*|Menu simple*}|Complejos {Animación*}}|"
    u"&Compilador {Ejecutar* F5|Compilar y guardar* F6|Trasferir Script* F7}|"
    u"&Opciones {Configuración F4}|"
    u"&Ventana {Cascada|Mosaico vertical|Mosaico horizontal|Organizar iconos|-|Minimizar todo|"
    u"Restaurar todo|-|Cerrar todas}|"
    u"&Ayuda {Actualizaciones Online F12|-|Acerca de}");

} // namespace

using MenuPrincipalTest = support::MainWindow;

TEST_F(MenuPrincipalTest, TwelveEntriesFollowTheNumberOfDocuments) {
    const auto seen = [&] { return Seen(principal.menuBar()->actions()); };
    EXPECT_EQ(seen(), kMenu);
    EXPECT_EQ(principal.Timer1.Interval(), 500);
    EXPECT_TRUE(principal.Timer1.Enabled());
    Press("mnuarchivonuevo");
    principal.Timer1_Timer();
    EXPECT_EQ(seen(), QString(kMenu).remove(u'*'));
    Active()->Unload();
    principal.Timer1_Timer();
    EXPECT_EQ(seen(), kMenu);
    EXPECT_EQ(Entrada("crear_temporal")->text(), u"crearlo"_s);
}
