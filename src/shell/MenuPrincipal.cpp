// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MenuPrincipal.h"

#include "shell/MDIForm1.h"

#include <array>

namespace shell {
namespace {

using M = MDIForm1;

constexpr bool kSiempre = false;
constexpr bool kConDocumento = true;
constexpr bool kOculta = false;
constexpr bool kALaVista = true;
constexpr bool kSeRepite = true;

constexpr std::array kMenu = {
    EntradaMenu{0, "mnuarchivo", u"&Archivo"},
    EntradaMenu{1, "mnuarchivonuevo", u"&Nuevo", "Ctrl+N", &M::mnuarchivonuevo_Click},
    EntradaMenu{1, "mnu1", u"-"},
    EntradaMenu{1, "mnuarchivoabrir", u"&Abrir", "Ctrl+A", &M::mnuarchivoabrir_Click},
    EntradaMenu{1, "mnuarchivoguardar", u"Guardar", "Ctrl+S", &M::mnuarchivoguardar_Click,
                kConDocumento},
    EntradaMenu{1, "mnuarchivocomo", u"&Guardar como", "", &M::mnuarchivocomo_Click, kConDocumento},
    EntradaMenu{1, "mnu5", u"-"},
    EntradaMenu{1, "mnuarchivoconfig", u"Configurar Impresion", "", &M::mnuarchivoconfig_Click},
    EntradaMenu{1, "mnuarchivoimprimir", u"Imprimir", "", &M::mnuarchivoimprimir_Click},
    EntradaMenu{1, "mnuSeparador", u"-"},
    EntradaMenu{1, "Pr", u"Proyectos recientes"},
    EntradaMenu{2, "mnuReciente", u"Recientes"},
    EntradaMenu{1, "mnu2", u"-"},
    EntradaMenu{1, "mnuarchivosalir", u"Salir", "Ctrl+Q", &M::mnuarchivosalir_Click},

    EntradaMenu{0, "mnuedicion", u"&Edición"},
    EntradaMenu{1, "mnuediciondeshacer", u"Deshacer", "", &M::mnuediciondeshacer_Click},
    EntradaMenu{1, "mnuedicionrehacer", u"Rehacer", "", &M::mnuedicionrehacer_Click},
    EntradaMenu{1, "sep", u"-"},
    EntradaMenu{1, "mnuedicioncopiar", u"&Copiar", "Ctrl+C", &M::mnuedicioncopiar_Click,
                kConDocumento},
    EntradaMenu{1, "mnuedicioncortar", u"Cortar", "Ctrl+X", &M::mnuedicioncortar_Click,
                kConDocumento},
    EntradaMenu{1, "mnuedicionpegar", u"Pegar", "Ctrl+V", &M::mnuedicionpegar_Click, kConDocumento,
                kALaVista, kSeRepite},
    EntradaMenu{1, "separator", u"-"},
    EntradaMenu{1, "mnuedicionseleccionar", u"S&eleccionar todo", "Ctrl+E",
                &M::mnuedicionseleccionar_Click, kConDocumento},

    EntradaMenu{0, "mnuherramientas", u"&Herramientas"},
    EntradaMenu{1, "mnuherramientasventana", u"Ventana de códigos", "F1",
                &M::mnuherramientasventana_Click},
    EntradaMenu{1, "mnuherramientascolores", u"Colores RGB", "F2",
                &M::mnuherramientascolores_Click},
    EntradaMenu{1, "pspscreen", u"Coordenadas de Pantalla", "F3", &M::pspscreen_Click},
    EntradaMenu{1, "mnuherramientasExplorador", u"Explorador de Archivos", "",
                &M::mnuherramientasExplorador_Click},

    EntradaMenu{0, "mnucodigos", u"&Códigos"},
    EntradaMenu{1, "smp", u"Simples"},
    EntradaMenu{2, "mnucodigoshola", u"¡Hola Mundo!", "", &M::mnucodigoshola_Click, kConDocumento},
    EntradaMenu{2, "mnucodigosmenu", u"Menu simple", "", &M::mnucodigosmenu_Click, kConDocumento},
    EntradaMenu{1, "cmple", u"Complejos"},
    EntradaMenu{2, "mnucodigosanimacion", u"Animación", "", &M::mnucodigosanimacion_Click,
                kConDocumento},

    EntradaMenu{0, "mnugenerar", u"&Compilador"},
    EntradaMenu{1, "crear_temporal", u"crearlo", "", &M::crear_temporal_click, kSiempre, kOculta},
    EntradaMenu{1, "ejecutar_lua", u"Ejecutar", "F5", &M::ejecutar_lua_Click, kConDocumento},
    EntradaMenu{1, "mnugenerarlua", u"Compilar y guardar", "F6", &M::mnugenerarlua_Click,
                kConDocumento},
    EntradaMenu{1, "transfer", u"Trasferir Script", "F7", &M::transfer_Click, kConDocumento},

    EntradaMenu{0, "mnuopciones", u"&Opciones"},
    EntradaMenu{1, "mnuopcionesconfiguracion", u"Configuración", "F4",
                &M::mnuopcionesconfiguracion_Click},

    EntradaMenu{0, "mnuventana", u"&Ventana"},
    EntradaMenu{1, "mnuventanacascada", u"Cascada", "", &M::mnuventanacascada_Click},
    EntradaMenu{1, "mnuventanamosaicov", u"Mosaico vertical", "", &M::mnuventanamosaicov_Click},
    EntradaMenu{1, "mnuventanamosaicoh", u"Mosaico horizontal", "", &M::mnuventanamosaicoh_Click},
    EntradaMenu{1, "mnuventanaorganizar", u"Organizar iconos", "", &M::mnuventanaorganizar_Click},
    EntradaMenu{1, "mnu3", u"-"},
    EntradaMenu{1, "mnuventanaminimizar", u"Minimizar todo", "", &M::mnuventanaminimizar_Click},
    EntradaMenu{1, "mnuventanarestaurar", u"Restaurar todo", "", &M::mnuventanarestaurar_Click},
    EntradaMenu{1, "mnu4", u"-"},
    EntradaMenu{1, "mnuventanacerrar", u"Cerrar todas", "", &M::mnuventanacerrar_Click},

    EntradaMenu{0, "mnuayuda", u"&Ayuda"},
    EntradaMenu{1, "actualizacion_online", u"Actualizaciones Online", "F12",
                &M::actualizacion_online_Click},
    EntradaMenu{1, "separador_lol", u"-"},
    EntradaMenu{1, "mnuayudaacerca", u"Acerca de", "", &M::mnuayudaacerca_Click},
};

} // namespace

std::span<const EntradaMenu> MenuPrincipal() {
    return kMenu;
}

} // namespace shell
