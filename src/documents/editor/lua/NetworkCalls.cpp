// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/CallTables.h"

#include <span>

namespace documents {
namespace {

using enum ValueKind;
using enum CallForm;

constexpr Parameter kNumber{"número", Number};
constexpr Parameter kHost{"equipo", Text};
constexpr Parameter kPort{"puerto", Number};
constexpr Parameter kText{"texto", Text};

// clang-format off
constexpr Call kRows[] = {
    {"Wlan", "init", Plain, Boolean, {},
     "Prepara la red inalámbrica.",
     "Wlan.init()"},
    {"Wlan", "term", Plain, Nothing, {},
     "Termina con la red y cierra todas las conexiones.",
     "Wlan.term()"},
    {"Wlan", "getConnectionConfigs", Plain, Table, {},
     "Da una lista con los nombres de las conexiones que hay.",
     "for i, nombre in ipairs(Wlan.getConnectionConfigs()) do print(i, nombre) end"},
    {"Wlan", "useConnectionConfig", Plain, Boolean, {kNumber},
     "Usa la conexión de ese número de la lista; la primera es la 1.",
     "Wlan.useConnectionConfig(1)"},
    {"Wlan", "getIPAddress", Plain, Text, {},
     "Da la dirección IP de la consola.",
     "print(Wlan.getIPAddress())"},

    {"Socket", "connect", Either, Socket, {kHost, kPort},
     "Empieza a conectarse con un puerto de otro equipo; isConnected dice cuándo lo está.",
     "local red = Socket.connect(\"192.168.1.20\", 8080)"},
    {"Socket", "createServerSocket", Either, Socket, {kPort},
     "Espera en un puerto a que otros se conecten; da el socket, o nil y el motivo.",
     "local servidor = Socket:createServerSocket(8080)"},
    {"Socket", "accept", Method, Socket, {},
     "Da el socket de quien se ha conectado, o nil si no hay nadie.",
     "local cliente = servidor:accept()"},
    {"Socket", "isConnected", Method, Boolean, {},
     "Dice si está conectado; si falló, da además el motivo.",
     "if red:isConnected() then red:send(\"hola\") end"},
    {"Socket", "recv", Method, Text, {},
     "Da lo que ha llegado; un texto vacío si no hay nada.",
     "local llegado = red:recv()"},
    {"Socket", "send", Method, Number, {kText},
     "Envía un texto y da cuántos bytes han salido, o nil y el motivo.",
     "red:send(\"hola\\n\")"},
    {"Socket", "close", Method, Nothing, {},
     "Cierra la conexión.",
     "red:close()"},
};
// clang-format on

} // namespace

std::span<const Call> NetworkCalls() {
    return kRows;
}

} // namespace documents
