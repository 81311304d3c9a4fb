// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/CallTables.h"

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
    {"string", OnText, "len", {kText}, Number,
     "Da cuántos bytes tiene un texto.",
     "local largo = nombre:len()"},
    {"string", OnText, "sub", {kText, kFrom, kTo}, Text,
     "Da un trozo del texto; los números negativos cuentan desde el final.",
     "local inicial = nombre:sub(1, 1)"},
    {"string", OnText, "upper", {kText}, Text,
     "Pone el texto en mayúsculas.",
     "screen:print(0, 0, nombre:upper(), blanco)"},
    {"string", OnText, "lower", {kText}, Text,
     "Pone el texto en minúsculas.",
     "if orden:lower() == \"salir\" then os.exit() end"},
    {"string", OnText, "rep", {kText, kTimes}, Text,
     "Repite el texto.",
     "local barra = (\"#\"):rep(vidas)"},
    {"string", OnText, "reverse", {kText}, Text,
     "Da el texto al revés.",
     "print((\"ola\"):reverse())"},
    {"string", OnText, "byte", {kText, kFromToo, kTo}, Number,
     "Da los códigos de los caracteres.",
     "local codigo = (\"A\"):byte()"},
    {"string", Plain, "char", {kCode, kCodes}, Text,
     "Hace un texto con los caracteres de esos códigos.",
     "local letra = string.char(65)"},
    {"string", OnText, "format", {kFormat, kRest}, Text,
     "Pone valores en un texto: %d un entero, %.2f con decimales, %s un texto.",
     "screen:print(0, 0, string.format(\"%05d\", puntos), blanco)"},
    {"string", OnText, "find", {kText, kPattern, kFromToo, kPlain}, Number,
     "Da dónde empieza y acaba un patrón en el texto, o nil; con true no es un patrón.",
     "local desde, hasta = linea:find(\"=\", 1, true)"},
    {"string", OnText, "match", {kText, kPattern, kFromToo}, Text,
     "Da lo que el texto tiene como el patrón, o nil.",
     "local clave, valor = linea:match(\"(%w+)=(%w+)\")"},
    {"string", OnText, "gmatch", {kText, kPattern}, Function,
     "Recorre en un for todo lo que el texto tiene como el patrón.",
     "for palabra in frase:gmatch(\"%a+\") do print(palabra) end"},
    {"string", OnText, "gfind", {kText, kPattern}, Function,
     "Nombre antiguo de gmatch.",
     "for palabra in frase:gfind(\"%a+\") do print(palabra) end"},
    {"string", OnText, "gsub", {kText, kPattern, kNew, kMost}, Text,
     "Cambia lo que es como el patrón; da el texto y cuántas veces lo cambió.",
     "local limpio = linea:gsub(\"%s+\", \" \")"},
    {"string", Plain, "dump", {kFunction}, Text,
     "Da una función compilada; el reproductor no la puede volver a cargar.",
     "print(#string.dump(jugar))"},
};
// clang-format on

} // namespace

std::span<const Call> TextCalls() {
    return kRows;
}

} // namespace documents
