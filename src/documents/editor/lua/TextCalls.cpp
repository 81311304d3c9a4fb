// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/CallTables.h"

#include <span>

namespace documents {
namespace {

using enum ValueKind;
using enum CallForm;

constexpr Parameter kText{"texto", Text};
constexpr Parameter kPattern{"patrón", Text};
constexpr Parameter kFromToo{"desde", Number, true};
constexpr Parameter kFrom{"desde", Number};
constexpr Parameter kTo{"hasta", Number, true};
constexpr Parameter kPlain{"literal", Boolean, true};
constexpr Parameter kRest{"...", Any, true};
constexpr Parameter kFormat{"formato", Text};
constexpr Parameter kTimes{"veces", Number};
constexpr Parameter kNew{"cambio", Any};
constexpr Parameter kMost{"máximo", Number, true};
constexpr Parameter kFunction{"función", Function};
constexpr Parameter kCode{"código", Number};
constexpr Parameter kCodes{"...", Number, true};

// clang-format off
constexpr Call kRows[] = {
    {"string", "len", OnText, Number, {kText},
     "Da cuántos bytes tiene un texto.",
     "local largo = nombre:len()"},
    {"string", "sub", OnText, Text, {kText, kFrom, kTo},
     "Da un trozo del texto; los números negativos cuentan desde el final.",
     "local inicial = nombre:sub(1, 1)"},
    {"string", "upper", OnText, Text, {kText},
     "Pone el texto en mayúsculas.",
     "screen:print(0, 0, nombre:upper(), blanco)"},
    {"string", "lower", OnText, Text, {kText},
     "Pone el texto en minúsculas.",
     "if orden:lower() == \"salir\" then os.exit() end"},
    {"string", "rep", OnText, Text, {kText, kTimes},
     "Repite el texto.",
     "local barra = (\"#\"):rep(vidas)"},
    {"string", "reverse", OnText, Text, {kText},
     "Da el texto al revés.",
     "print((\"ola\"):reverse())"},
    {"string", "byte", OnText, Number, {kText, kFromToo, kTo},
     "Da los códigos de los caracteres.",
     "local codigo = (\"A\"):byte()"},
    {"string", "char", Plain, Text, {kCode, kCodes},
     "Hace un texto con los caracteres de esos códigos.",
     "local letra = string.char(65)"},
    {"string", "format", OnText, Text, {kFormat, kRest},
     "Pone valores en un texto: %d un entero, %.2f con decimales, %s un texto.",
     "screen:print(0, 0, string.format(\"%05d\", puntos), blanco)"},
    {"string", "find", OnText, Number, {kText, kPattern, kFromToo, kPlain},
     "Da dónde empieza y acaba un patrón en el texto, o nil; con true no es un patrón.",
     "local desde, hasta = linea:find(\"=\", 1, true)"},
    {"string", "match", OnText, Text, {kText, kPattern, kFromToo},
     "Da lo que el texto tiene como el patrón, o nil.",
     "local clave, valor = linea:match(\"(%w+)=(%w+)\")"},
    {"string", "gmatch", OnText, Function, {kText, kPattern},
     "Recorre en un for todo lo que el texto tiene como el patrón.",
     "for palabra in frase:gmatch(\"%a+\") do print(palabra) end"},
    {"string", "gfind", OnText, Function, {kText, kPattern},
     "Nombre antiguo de gmatch.",
     "for palabra in frase:gfind(\"%a+\") do print(palabra) end"},
    {"string", "gsub", OnText, Text, {kText, kPattern, kNew, kMost},
     "Cambia lo que es como el patrón; da el texto y cuántas veces lo cambió.",
     "local limpio = linea:gsub(\"%s+\", \" \")"},
    {"string", "dump", Plain, Text, {kFunction},
     "Da una función compilada; el reproductor no la puede volver a cargar.",
     "print(#string.dump(jugar))"},
};
// clang-format on

} // namespace

std::span<const Call> TextCalls() {
    return kRows;
}

} // namespace documents
