// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/CallTables.h"

#include <span>

namespace documents {
namespace {

using enum ValueKind;
using enum CallForm;

constexpr Parameter kPath{"ruta", Text};
constexpr Parameter kPathToo{"ruta", Text, true};
constexpr Parameter kText{"texto", Text};

// clang-format off
constexpr Call kRows[] = {
    {"Controls", "read", Plain, Controls, {},
     "Lee los botones: cuáles están pulsados en este momento.",
     "local mando = Controls.read()"},
    {"Controls", "up", Method, Boolean, {},
     "Dice si está pulsada la cruceta hacia arriba.",
     "if mando:up() then y = y - 2 end"},
    {"Controls", "down", Method, Boolean, {},
     "Dice si está pulsada la cruceta hacia abajo.",
     "if mando:down() then y = y + 2 end"},
    {"Controls", "left", Method, Boolean, {},
     "Dice si está pulsada la cruceta hacia la izquierda.",
     "if mando:left() then x = x - 2 end"},
    {"Controls", "right", Method, Boolean, {},
     "Dice si está pulsada la cruceta hacia la derecha.",
     "if mando:right() then x = x + 2 end"},
    {"Controls", "cross", Method, Boolean, {},
     "Dice si está pulsado el botón de la equis.",
     "if mando:cross() then salto:play() end"},
    {"Controls", "circle", Method, Boolean, {},
     "Dice si está pulsado el botón del círculo.",
     "if mando:circle() then disparar() end"},
    {"Controls", "square", Method, Boolean, {},
     "Dice si está pulsado el botón del cuadrado.",
     "if mando:square() then correr() end"},
    {"Controls", "triangle", Method, Boolean, {},
     "Dice si está pulsado el botón del triángulo.",
     "if mando:triangle() then abrirMenu() end"},
    {"Controls", "l", Method, Boolean, {},
     "Dice si está pulsado el gatillo izquierdo.",
     "if mando:l() then giro = giro - 1 end"},
    {"Controls", "r", Method, Boolean, {},
     "Dice si está pulsado el gatillo derecho.",
     "if mando:r() then giro = giro + 1 end"},
    {"Controls", "start", Method, Boolean, {},
     "Dice si está pulsado el botón start.",
     "if mando:start() then pausa = true end"},
    {"Controls", "select", Method, Boolean, {},
     "Dice si está pulsado el botón select.",
     "if mando:select() then nivel = nivel + 1 end"},
    {"Controls", "home", Method, Boolean, {},
     "Dice si está pulsado el botón home.",
     "if mando:home() then salir = true end"},
    {"Controls", "hold", Method, Boolean, {},
     "Dice si está puesto el cierre hold.",
     "if mando:hold() then quieto = true end"},
    {"Controls", "note", Method, Boolean, {},
     "Dice si está pulsado el botón de la nota.",
     "if mando:note() then Music.pause() end"},

    {"System", "currentDirectory", Plain, Text, {kPathToo},
     "Da la carpeta en la que se está; con una ruta, pasa antes a ella.",
     "System.currentDirectory(\"niveles\")"},
    {"System", "listDirectory", Plain, Table, {kPathToo},
     "Da lo que hay en una carpeta: una tabla por cada cosa, con name, size y directory.",
     "for _, cosa in ipairs(System.listDirectory()) do print(cosa.name) end"},
    {"System", "createDirectory", Plain, Boolean, {kPath},
     "Hace una carpeta; da true, o nil y el motivo.",
     "System.createDirectory(\"partidas\")"},
    {"System", "removeDirectory", Plain, Boolean, {kPath},
     "Borra una carpeta vacía; da true, o nil y el motivo.",
     "System.removeDirectory(\"partidas\")"},
    {"System", "removeFile", Plain, Boolean, {kPath},
     "Borra un archivo; da true, o nil y el motivo.",
     "System.removeFile(\"partida1.txt\")"},
    {"System", "getFreeMemory", Plain, Number, {},
     "Da la memoria que le queda al script, en bytes.",
     "print(System.getFreeMemory())"},
    {"System", "powerIsPowerOnline", Plain, Boolean, {},
     "Dice si la consola está enchufada a la corriente.",
     "local enchufada = System.powerIsPowerOnline()"},
    {"System", "powerIsBatteryExist", Plain, Boolean, {},
     "Dice si hay batería.",
     "local hayBateria = System.powerIsBatteryExist()"},
    {"System", "powerIsBatteryCharging", Plain, Boolean, {},
     "Dice si la batería se está cargando.",
     "local cargando = System.powerIsBatteryCharging()"},
    {"System", "powerGetBatteryChargingStatus", Plain, Number, {},
     "Da el estado de la carga: 0 no se carga, 1 se carga, 2 está llena.",
     "local carga = System.powerGetBatteryChargingStatus()"},
    {"System", "powerGetBatteryLifePercent", Plain, Number, {},
     "Da la carga de la batería, de 0 a 100.",
     "local queda = System.powerGetBatteryLifePercent()"},
    {"System", "powerGetBatteryLifeTime", Plain, Number, {},
     "Da los minutos que le quedan a la batería; 0 si no se sabe.",
     "local minutos = System.powerGetBatteryLifeTime()"},
    {"System", "powerGetBatteryTemp", Plain, Number, {},
     "Da la temperatura de la batería en grados.",
     "local grados = System.powerGetBatteryTemp()"},
    {"System", "powerGetBatteryVolt", Plain, Number, {},
     "Da la tensión de la batería en voltios.",
     "local voltios = System.powerGetBatteryVolt()"},
    {"System", "powerIsLowBattery", Plain, Boolean, {},
     "Dice si queda poca batería.",
     "if System.powerIsLowBattery() then guardarPartida() end"},
    {"System", "powerTick", Plain, Nothing, {},
     "Evita que la consola se apague sola.",
     "System.powerTick()"},
    {"System", "irdaInit", Plain, Nothing, {},
     "Prepara el puerto de infrarrojos.",
     "System.irdaInit()"},
    {"System", "irdaWrite", Plain, Nothing, {kText},
     "Envía un texto por infrarrojos.",
     "System.irdaWrite(\"hola\")"},
    {"System", "irdaRead", Plain, Text, {},
     "Da lo que ha llegado por infrarrojos; un texto vacío si no hay nada.",
     "local llegado = System.irdaRead()"},
    {"System", "usbDiskModeActivate", Plain, Nothing, {},
     "Deja ver la tarjeta de memoria como un disco USB.",
     "System.usbDiskModeActivate()"},
    {"System", "usbDiskModeDeactivate", Plain, Nothing, {},
     "Termina el modo de disco USB.",
     "System.usbDiskModeDeactivate()"},
};
// clang-format on

} // namespace

std::span<const Call> MachineCalls() {
    return kRows;
}

} // namespace documents
