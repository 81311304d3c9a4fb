// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/CallTables.h"

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
    {"", Plain, "print", {kRest}, Nothing,
     "Escribe los valores en la ventana de texto del reproductor (F1).",
     "print(\"vidas\", vidas)"},
    {"", Plain, "type", {kValue}, Text,
     "Da el nombre del tipo de un valor: \"number\", \"string\", \"table\"...",
     "if type(dato) == \"table\" then print(#dato) end"},
    {"", Plain, "tostring", {kValue}, Text,
     "Convierte un valor en texto.",
     "screen:print(0, 0, tostring(vidas), blanco)"},
    {"", Plain, "tonumber", {kValue, kBase}, Number,
     "Convierte un texto en número, o da nil si no lo es.",
     "local puntos = tonumber(\"120\")"},
    {"", Plain, "pairs", {kTable}, Function,
     "Recorre en un for todas las claves y valores de una tabla, sin orden.",
     "for clave, valor in pairs(datos) do print(clave, valor) end"},
    {"", Plain, "ipairs", {kTable}, Function,
     "Recorre en un for los elementos 1, 2, 3... de una lista.",
     "for i, enemigo in ipairs(enemigos) do enemigo.x = enemigo.x - 1 end"},
    {"", Plain, "next", {kTable, kKeyToo}, Any,
     "Da la clave que sigue a otra y su valor; nil después de la última.",
     "if next(enemigos) == nil then print(\"no queda ninguno\") end"},
    {"", Plain, "select", {kWhich, kRest}, Any,
     "Da los argumentos desde uno en adelante; con \"#\", cuántos son.",
     "local cuantos = select(\"#\", 10, 20, 30)"},
    {"", Plain, "unpack", {kTable, kFrom, kTo}, Any,
     "Da por separado los elementos de una lista.",
     "local x, y = unpack({10, 20})"},
    {"", Plain, "assert", {kValue, kMessage}, Any,
     "Termina con un error si el valor es falso o nil; si no, lo da.",
     "local archivo = assert(io.open(\"datos.txt\"))"},
    {"", Plain, "error", {kError, kLevel}, Nothing,
     "Termina con un error que dice el mensaje.",
     "error(\"falta el nivel\")"},
    {"", Plain, "pcall", {kFunction, kRest}, Boolean,
     "Llama a una función; da true y lo que da, o false y el error.",
     "local bien, fallo = pcall(cargarNivel, 3)"},
    {"", Plain, "xpcall", {kFunction, kHandler}, Boolean,
     "Como pcall, pero un error pasa antes por el manejador.",
     "xpcall(jugar, debug.traceback)"},
    {"", Plain, "dofile", {kPath}, Any,
     "Ejecuta otro script de la carpeta y da lo que devuelve.",
     "dofile(\"niveles.lua\")"},
    {"", Plain, "loadfile", {kPath}, Function,
     "Da otro script como función, o nil y el error.",
     "local nivel = loadfile(\"nivel1.lua\")"},
    {"", Plain, "loadstring", {kCode, kName}, Function,
     "Da un texto de Lua como función, o nil y el error.",
     "local doble = loadstring(\"return 2 * 21\")"},
    {"", Plain, "load", {kFunction, kName}, Function,
     "Como loadstring, con el texto a trozos que va dando una función.",
     "local codigo = load(function() return siguienteTrozo() end)"},
    {"", Plain, "require", {kModule}, Any,
     "Carga una sola vez un módulo de la carpeta y da lo que devuelve.",
     "local mapa = require(\"mapa\")"},
    {"", Plain, "module", {kModule, kRest}, Nothing,
     "Hace del script un módulo con ese nombre.",
     "module(\"mapa\", package.seeall)"},
    {"", Plain, "setmetatable", {kTable, kMeta}, Table,
     "Da a una tabla una metatabla, que dice cómo se comporta, y la devuelve.",
     "local nave = setmetatable({}, {__index = Nave})"},
    {"", Plain, "getmetatable", {kValue}, Table,
     "Da la metatabla de un valor, o nil.",
     "local meta = getmetatable(nave)"},
    {"", Plain, "rawget", {kTable, kKey}, Any,
     "Lee un campo sin mirar la metatabla.",
     "local x = rawget(nave, \"x\")"},
    {"", Plain, "rawset", {kTable, kKey, kValue}, Table,
     "Escribe un campo sin mirar la metatabla.",
     "rawset(nave, \"x\", 10)"},
    {"", Plain, "rawequal", {kValue, kOther}, Boolean,
     "Dice si dos valores son el mismo, sin mirar la metatabla.",
     "if rawequal(a, b) then print(\"son el mismo\") end"},
    {"", Plain, "getfenv", {kWhose}, Table,
     "Da la tabla de las variables globales de una función.",
     "local globales = getfenv(1)"},
    {"", Plain, "setfenv", {kWhich, kTable}, Any,
     "Cambia la tabla de las variables globales de una función.",
     "setfenv(1, {print = print})"},
    {"", Plain, "collectgarbage", {kOption, kArgument}, Number,
     "Libera la memoria que ya no se usa; con \"count\" da los KB en uso.",
     "collectgarbage()"},
    {"", Plain, "gcinfo", {}, Number,
     "Da los KB de memoria en uso; es mejor collectgarbage(\"count\").",
     "print(gcinfo())"},
    {"", Value, "_G", {}, Table,
     "La tabla de todas las variables globales.",
     "_G[\"vidas\"] = 3"},
    {"", Value, "_VERSION", {}, Text,
     "La versión de Lua.",
     "print(_VERSION)"},

    {"coroutine", Plain, "create", {kFunction}, Coroutine,
     "Hace una corrutina: una función que se puede dejar a medias.",
     "local guion = coroutine.create(function() coroutine.yield(1) end)"},
    {"coroutine", Plain, "resume", {kThread, kRest}, Boolean,
     "Sigue con la corrutina hasta su próximo yield; da true y lo que da, o false y el error.",
     "local bien, paso = coroutine.resume(guion)"},
    {"coroutine", Plain, "yield", {kRest}, Any,
     "Deja la corrutina a medias y da los valores a quien la reanudó.",
     "coroutine.yield()"},
    {"coroutine", Plain, "status", {kThread}, Text,
     "Da el estado: \"suspended\", \"running\", \"normal\" o \"dead\".",
     "if coroutine.status(guion) == \"dead\" then guion = nil end"},
    {"coroutine", Plain, "wrap", {kFunction}, Function,
     "Hace una corrutina y da una función que la reanuda.",
     "local paso = coroutine.wrap(function() coroutine.yield(1) end)"},
    {"coroutine", Plain, "running", {}, Coroutine,
     "Da la corrutina que se está ejecutando, o nil fuera de todas.",
     "local esta = coroutine.running()"},

    {"package", Plain, "seeall", {kTable}, Nothing,
     "Deja que un módulo vea las variables globales; se da a module.",
     "module(\"mapa\", package.seeall)"},
    {"package", Plain, "loadlib", {kFile, kSymbol}, Nothing,
     "No está en el reproductor: llamarla es un error.",
     "local bien = pcall(package.loadlib, \"x\", \"y\")"},
    {"package", Value, "path", {}, Text,
     "Dónde busca require los módulos.",
     "package.path = package.path .. \";mapas/?.lua\""},
    {"package", Value, "cpath", {}, Text,
     "No se usa en el reproductor: está vacío.",
     "print(package.cpath)"},
    {"package", Value, "loaded", {}, Table,
     "Los módulos que require ya ha cargado.",
     "package.loaded[\"mapa\"] = nil"},
    {"package", Value, "preload", {}, Table,
     "Funciones que require usa antes de buscar un archivo.",
     "package.preload[\"mapa\"] = function() return {} end"},
    {"package", Value, "loaders", {}, Table,
     "Las funciones con las que require busca un módulo.",
     "print(#package.loaders)"},
    {"package", Value, "config", {}, Text,
     "Los signos que se usan en path.",
     "print(package.config)"},

    {"debug", Plain, "traceback", {kText, kLevel}, Text,
     "Da el mensaje y las funciones por las que se ha llegado hasta aquí.",
     "print(debug.traceback(\"aquí\"))"},
};
// clang-format on

} // namespace

std::span<const Call> BasicCalls() {
    return kRows;
}

} // namespace documents
