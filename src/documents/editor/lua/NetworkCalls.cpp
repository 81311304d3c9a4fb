// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/CallTables.h"

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
    {"Wlan", Plain, "init", {}, Boolean,
     "Prepara la red inalámbrica.",
     "Wlan.init()"},
    {"Wlan", Plain, "term", {}, Nothing,
     "Termina con la red y cierra todas las conexiones.",
     "Wlan.term()"},
    {"Wlan", Plain, "getConnectionConfigs", {}, Table,
     "Da una lista con los nombres de las conexiones que hay.",
     "for i, nombre in ipairs(Wlan.getConnectionConfigs()) do print(i, nombre) end"},
    {"Wlan", Plain, "useConnectionConfig", {kNumber}, Boolean,
     "Usa la conexión de ese número de la lista; la primera es la 1.",
     "Wlan.useConnectionConfig(1)"},
    {"Wlan", Plain, "getIPAddress", {}, Text,
     "Da la dirección IP de la consola.",
     "print(Wlan.getIPAddress())"},

    {"Socket", Either, "connect", {kHost, kPort}, Socket,
     "Empieza a conectarse con un puerto de otro equipo; isConnected dice cuándo lo está.",
     "local red = Socket.connect(\"192.168.1.20\", 8080)"},
    {"Socket", Either, "createServerSocket", {kPort}, Socket,
     "Espera en un puerto a que otros se conecten; da el socket, o nil y el motivo.",
     "local servidor = Socket:createServerSocket(8080)"},
    {"Socket", Method, "accept", {}, Socket,
     "Da el socket de quien se ha conectado, o nil si no hay nadie.",
     "local cliente = servidor:accept()"},
    {"Socket", Method, "isConnected", {}, Boolean,
     "Dice si está conectado; si falló, da además el motivo.",
     "if red:isConnected() then red:send(\"hola\") end"},
    {"Socket", Method, "recv", {}, Text,
     "Da lo que ha llegado; un texto vacío si no hay nada.",
     "local llegado = red:recv()"},
    {"Socket", Method, "send", {kText}, Number,
     "Envía un texto y da cuántos bytes han salido, o nil y el motivo.",
     "red:send(\"hola\\n\")"},
    {"Socket", Method, "close", {}, Nothing,
     "Cierra la conexión.",
     "red:close()"},
};
// clang-format on

} // namespace

std::span<const Call> NetworkCalls() {
    return kRows;
}

} // namespace documents
