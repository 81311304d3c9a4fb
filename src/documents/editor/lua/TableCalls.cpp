// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/CallTables.h"

#include <span>

namespace documents {
namespace {

using enum ValueKind;
using enum CallForm;

constexpr Parameter kList{"lista", Table};
constexpr Parameter kPlaceToo{"posición", Number, true};
constexpr Parameter kValue{"valor", Any};
constexpr Parameter kBetween{"separador", Text, true};
constexpr Parameter kFrom{"desde", Number, true};
constexpr Parameter kTo{"hasta", Number, true};
constexpr Parameter kBefore{"va_antes", Function, true};
constexpr Parameter kFunction{"función", Function};
constexpr Parameter kTable{"tabla", Table};
constexpr Parameter kSize{"tamaño", Number};

// clang-format off
constexpr Call kRows[] = {
    {"table", "insert", Plain, Nothing, {kList, kPlaceToo, kValue},
     "Añade un valor al final de la lista, o lo mete en una posición.",
     "table.insert(enemigos, {x = 480, y = 100})"},
    {"table", "remove", Plain, Any, {kList, kPlaceToo},
     "Quita el último valor de la lista, o el de una posición, y lo da.",
     "local primero = table.remove(cola, 1)"},
    {"table", "concat", Plain, Text, {kList, kBetween, kFrom, kTo},
     "Junta los elementos de la lista en un texto.",
     "print(table.concat({1, 2, 3}, \", \"))"},
    {"table", "sort", Plain, Nothing, {kList, kBefore},
     "Ordena la lista; la función dice si su primer argumento va antes que el segundo.",
     "table.sort(puntos, function(a, b) return a > b end)"},
    {"table", "maxn", Plain, Number, {kTable},
     "Da la mayor clave que es un número.",
     "local ultima = table.maxn(casillas)"},
    {"table", "getn", Plain, Number, {kList},
     "Da cuántos elementos tiene la lista; es mejor #lista.",
     "local cuantos = table.getn(enemigos)"},
    {"table", "setn", Plain, Nothing, {kList, kSize},
     "Ya no está en Lua 5.1: llamarla es un error.",
     "local bien = pcall(table.setn, {}, 3)"},
    {"table", "foreach", Plain, Any, {kTable, kFunction},
     "Llama a la función con cada clave y valor; es mejor for con pairs.",
     "table.foreach(datos, print)"},
    {"table", "foreachi", Plain, Any, {kList, kFunction},
     "Llama a la función con cada posición y valor; es mejor for con ipairs.",
     "table.foreachi(puntos, print)"},
};
// clang-format on

} // namespace

std::span<const Call> TableCalls() {
    return kRows;
}

} // namespace documents
