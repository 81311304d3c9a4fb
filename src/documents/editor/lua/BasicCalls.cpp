// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/CallTables.h"

#include <span>

namespace documents {
namespace {

using enum ValueKind;
using enum CallForm;

constexpr Parameter kValue{"valor", Any};
constexpr Parameter kMessage{"mensaje", Any, true};
constexpr Parameter kError{"mensaje", Any};
constexpr Parameter kLevel{"nivel", Number, true};
constexpr Parameter kRest{"...", Any, true};
constexpr Parameter kTable{"tabla", Table};
constexpr Parameter kKey{"clave", Any};
constexpr Parameter kKeyToo{"clave", Any, true};
constexpr Parameter kMeta{"metatabla", Table};
constexpr Parameter kBase{"base", Number, true};
constexpr Parameter kFunction{"función", Function};
constexpr Parameter kHandler{"manejador", Function};
constexpr Parameter kPath{"archivo", Text};
constexpr Parameter kCode{"código", Text};
constexpr Parameter kName{"nombre", Text, true};
constexpr Parameter kModule{"nombre", Text};
constexpr Parameter kFrom{"desde", Number, true};
constexpr Parameter kTo{"hasta", Number, true};
constexpr Parameter kWhich{"cuál", Any};
constexpr Parameter kOption{"orden", Text, true};
constexpr Parameter kArgument{"valor", Number, true};
constexpr Parameter kOther{"otro", Any};
constexpr Parameter kThread{"corrutina", Coroutine};
constexpr Parameter kText{"mensaje", Text, true};
constexpr Parameter kWhose{"función", Any, true};
constexpr Parameter kFile{"biblioteca", Text};
constexpr Parameter kSymbol{"función", Text};

// clang-format off
constexpr Call kRows[] = {
    {"", "print", Plain, Nothing, {kRest},
     "Escribe los valores en la ventana de texto del reproductor (F1).",
     "print(\"vidas\", vidas)"},
    {"", "type", Plain, Text, {kValue},
     "Da el nombre del tipo de un valor: \"number\", \"string\", \"table\"...",
     "if type(dato) == \"table\" then print(#dato) end"},
    {"", "tostring", Plain, Text, {kValue},
     "Convierte un valor en texto.",
     "screen:print(0, 0, tostring(vidas), blanco)"},
    {"", "tonumber", Plain, Number, {kValue, kBase},
     "Convierte un texto en número, o da nil si no lo es.",
     "local puntos = tonumber(\"120\")"},
    {"", "pairs", Plain, Function, {kTable},
     "Recorre en un for todas las claves y valores de una tabla, sin orden.",
     "for clave, valor in pairs(datos) do print(clave, valor) end"},
    {"", "ipairs", Plain, Function, {kTable},
     "Recorre en un for los elementos 1, 2, 3... de una lista.",
     "for i, enemigo in ipairs(enemigos) do enemigo.x = enemigo.x - 1 end"},
    {"", "next", Plain, Any, {kTable, kKeyToo},
     "Da la clave que sigue a otra y su valor; nil después de la última.",
     "if next(enemigos) == nil then print(\"no queda ninguno\") end"},
    {"", "select", Plain, Any, {kWhich, kRest},
     "Da los argumentos desde uno en adelante; con \"#\", cuántos son.",
     "local cuantos = select(\"#\", 10, 20, 30)"},
    {"", "unpack", Plain, Any, {kTable, kFrom, kTo},
     "Da por separado los elementos de una lista.",
     "local x, y = unpack({10, 20})"},
    {"", "assert", Plain, Any, {kValue, kMessage},
     "Termina con un error si el valor es falso o nil; si no, lo da.",
     "local archivo = assert(io.open(\"datos.txt\"))"},
    {"", "error", Plain, Nothing, {kError, kLevel},
     "Termina con un error que dice el mensaje.",
     "error(\"falta el nivel\")"},
    {"", "pcall", Plain, Boolean, {kFunction, kRest},
     "Llama a una función; da true y lo que da, o false y el error.",
     "local bien, fallo = pcall(cargarNivel, 3)"},
    {"", "xpcall", Plain, Boolean, {kFunction, kHandler},
     "Como pcall, pero un error pasa antes por el manejador.",
     "xpcall(jugar, debug.traceback)"},
    {"", "dofile", Plain, Any, {kPath},
     "Ejecuta otro script de la carpeta y da lo que devuelve.",
     "dofile(\"niveles.lua\")"},
    {"", "loadfile", Plain, Function, {kPath},
     "Da otro script como función, o nil y el error.",
     "local nivel = loadfile(\"nivel1.lua\")"},
    {"", "loadstring", Plain, Function, {kCode, kName},
     "Da un texto de Lua como función, o nil y el error.",
     "local doble = loadstring(\"return 2 * 21\")"},
    {"", "load", Plain, Function, {kFunction, kName},
     "Como loadstring, con el texto a trozos que va dando una función.",
     "local codigo = load(function() return siguienteTrozo() end)"},
    {"", "require", Plain, Any, {kModule},
     "Carga una sola vez un módulo de la carpeta y da lo que devuelve.",
     "local mapa = require(\"mapa\")"},
    {"", "module", Plain, Nothing, {kModule, kRest},
     "Hace del script un módulo con ese nombre.",
     "module(\"mapa\", package.seeall)"},
    {"", "setmetatable", Plain, Table, {kTable, kMeta},
     "Da a una tabla una metatabla, que dice cómo se comporta, y la devuelve.",
     "local nave = setmetatable({}, {__index = Nave})"},
    {"", "getmetatable", Plain, Table, {kValue},
     "Da la metatabla de un valor, o nil.",
     "local meta = getmetatable(nave)"},
    {"", "rawget", Plain, Any, {kTable, kKey},
     "Lee un campo sin mirar la metatabla.",
     "local x = rawget(nave, \"x\")"},
    {"", "rawset", Plain, Table, {kTable, kKey, kValue},
     "Escribe un campo sin mirar la metatabla.",
     "rawset(nave, \"x\", 10)"},
    {"", "rawequal", Plain, Boolean, {kValue, kOther},
     "Dice si dos valores son el mismo, sin mirar la metatabla.",
     "if rawequal(a, b) then print(\"son el mismo\") end"},
    {"", "getfenv", Plain, Table, {kWhose},
     "Da la tabla de las variables globales de una función.",
     "local globales = getfenv(1)"},
    {"", "setfenv", Plain, Any, {kWhich, kTable},
     "Cambia la tabla de las variables globales de una función.",
     "setfenv(1, {print = print})"},
    {"", "collectgarbage", Plain, Number, {kOption, kArgument},
     "Libera la memoria que ya no se usa; con \"count\" da los KB en uso.",
     "collectgarbage()"},
    {"", "gcinfo", Plain, Number, {},
     "Da los KB de memoria en uso; es mejor collectgarbage(\"count\").",
     "print(gcinfo())"},
    {"", "_G", Value, Table, {},
     "La tabla de todas las variables globales.",
     "_G[\"vidas\"] = 3"},
    {"", "_VERSION", Value, Text, {},
     "La versión de Lua.",
     "print(_VERSION)"},

    {"coroutine", "create", Plain, Coroutine, {kFunction},
     "Hace una corrutina: una función que se puede dejar a medias.",
     "local guion = coroutine.create(function() coroutine.yield(1) end)"},
    {"coroutine", "resume", Plain, Boolean, {kThread, kRest},
     "Sigue con la corrutina hasta su próximo yield; da true y lo que da, o false y el error.",
     "local bien, paso = coroutine.resume(guion)"},
    {"coroutine", "yield", Plain, Any, {kRest},
     "Deja la corrutina a medias y da los valores a quien la reanudó.",
     "coroutine.yield()"},
    {"coroutine", "status", Plain, Text, {kThread},
     "Da el estado: \"suspended\", \"running\", \"normal\" o \"dead\".",
     "if coroutine.status(guion) == \"dead\" then guion = nil end"},
    {"coroutine", "wrap", Plain, Function, {kFunction},
     "Hace una corrutina y da una función que la reanuda.",
     "local paso = coroutine.wrap(function() coroutine.yield(1) end)"},
    {"coroutine", "running", Plain, Coroutine, {},
     "Da la corrutina que se está ejecutando, o nil fuera de todas.",
     "local esta = coroutine.running()"},

    {"package", "seeall", Plain, Nothing, {kTable},
     "Deja que un módulo vea las variables globales; se da a module.",
     "module(\"mapa\", package.seeall)"},
    {"package", "loadlib", Plain, Nothing, {kFile, kSymbol},
     "No está en el reproductor: llamarla es un error.",
     "local bien = pcall(package.loadlib, \"x\", \"y\")"},
    {"package", "path", Value, Text, {},
     "Dónde busca require los módulos.",
     "package.path = package.path .. \";mapas/?.lua\""},
    {"package", "cpath", Value, Text, {},
     "No se usa en el reproductor: está vacío.",
     "print(package.cpath)"},
    {"package", "loaded", Value, Table, {},
     "Los módulos que require ya ha cargado.",
     "package.loaded[\"mapa\"] = nil"},
    {"package", "preload", Value, Table, {},
     "Funciones que require usa antes de buscar un archivo.",
     "package.preload[\"mapa\"] = function() return {} end"},
    {"package", "loaders", Value, Table, {},
     "Las funciones con las que require busca un módulo.",
     "print(#package.loaders)"},
    {"package", "config", Value, Text, {},
     "Los signos que se usan en path.",
     "print(package.config)"},

    {"debug", "traceback", Plain, Text, {kText, kLevel},
     "Da el mensaje y las funciones por las que se ha llegado hasta aquí.",
     "print(debug.traceback(\"aquí\"))"},
};
// clang-format on

} // namespace

std::span<const Call> BasicCalls() {
    return kRows;
}

} // namespace documents
