// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/CallTables.h"

#include <span>

namespace documents {
namespace {

using enum ValueKind;
using enum CallForm;

constexpr Parameter kPath{"nombre", Text};
constexpr Parameter kPathToo{"nombre", Text, true};
constexpr Parameter kMode{"modo", Text, true};
constexpr Parameter kFile{"archivo", File, true};
constexpr Parameter kChosen{"archivo", Any, true};
constexpr Parameter kWhat{"qué", Any, true};
constexpr Parameter kRest{"...", Any, true};
constexpr Parameter kValue{"valor", Any};
constexpr Parameter kWhence{"origen", Text, true};
constexpr Parameter kOffset{"distancia", Number, true};
constexpr Parameter kBuffer{"modo", Text};
constexpr Parameter kSize{"tamaño", Number, true};
constexpr Parameter kCommand{"orden", Text};
constexpr Parameter kCommandToo{"orden", Text, true};
constexpr Parameter kFormat{"formato", Text, true};
constexpr Parameter kTime{"hora", Number, true};
constexpr Parameter kParts{"tabla", Table, true};
constexpr Parameter kLate{"hora2", Number};
constexpr Parameter kEarly{"hora1", Number};
constexpr Parameter kNewName{"nuevo", Text};
constexpr Parameter kVariable{"variable", Text};
constexpr Parameter kCode{"código", Number, true};
constexpr Parameter kLocale{"región", Text, true};
constexpr Parameter kCategory{"categoría", Text, true};

// clang-format off
constexpr Call kRows[] = {
    {"io", "open", Plain, File, {kPath, kMode},
     "Abre un archivo: \"r\" para leer, \"w\" para escribirlo de nuevo, \"a\" para añadir.",
     "local archivo = io.open(\"puntos.txt\", \"w\")"},
    {"io", "lines", Plain, Function, {kPathToo},
     "Recorre en un for las líneas de un archivo.",
     "for linea in io.lines(\"nivel1.txt\") do print(linea) end"},
    {"io", "read", Plain, Text, {kWhat, kRest},
     "Lee del archivo elegido con io.input.",
     "io.input(\"nivel1.txt\") print(io.read(\"*a\"))"},
    {"io", "write", Plain, Boolean, {kValue, kRest},
     "Escribe en el archivo elegido con io.output.",
     "io.output(\"puntos.txt\") io.write(120) io.close()"},
    {"io", "input", Plain, File, {kChosen},
     "Elige de qué archivo lee io.read.",
     "io.input(\"nivel1.txt\")"},
    {"io", "output", Plain, File, {kChosen},
     "Elige en qué archivo escribe io.write.",
     "io.output(\"puntos.txt\")"},
    {"io", "close", Plain, Boolean, {kFile},
     "Cierra un archivo, o el elegido con io.output.",
     "io.close(archivo)"},
    {"io", "flush", Plain, Boolean, {},
     "Pasa al disco lo escrito con io.write.",
     "io.flush()"},
    {"io", "type", Plain, Text, {kValue},
     "Da \"file\", \"closed file\", o nil si no es un archivo.",
     "if io.type(archivo) == \"file\" then archivo:close() end"},
    {"io", "tmpfile", Plain, File, {},
     "Abre un archivo que desaparece al cerrarlo.",
     "local borrador = io.tmpfile()"},
    {"io", "popen", Plain, Nothing, {kCommand, kMode},
     "No está en el reproductor: llamarla es un error.",
     "local bien = pcall(io.popen, \"x\")"},
    {"io", "stdin", Value, File, {},
     "La entrada del programa, que en el reproductor está vacía.",
     "print(io.stdin:read())"},
    {"io", "stdout", Value, File, {},
     "La salida del programa: el terminal, si lo hay.",
     "io.stdout:write(\"hola\")"},
    {"io", "stderr", Value, File, {},
     "La salida de errores del programa.",
     "io.stderr:write(\"aviso\")"},

    {"FILE*", "read", Method, Text, {kWhat, kRest},
     "Lee una línea; con \"*a\" todo, con \"*n\" un número, con un número tantos bytes.",
     "local todo = archivo:read(\"*a\")"},
    {"FILE*", "write", Method, Boolean, {kValue, kRest},
     "Escribe textos o números en el archivo.",
     "archivo:write(puntos, \"\\n\")"},
    {"FILE*", "lines", Method, Function, {},
     "Recorre en un for las líneas del archivo.",
     "for linea in archivo:lines() do print(linea) end"},
    {"FILE*", "close", Method, Boolean, {},
     "Cierra el archivo.",
     "archivo:close()"},
    {"FILE*", "flush", Method, Boolean, {},
     "Pasa al disco lo que se ha escrito.",
     "archivo:flush()"},
    {"FILE*", "seek", Method, Number, {kWhence, kOffset},
     "Va a un sitio del archivo, desde \"set\", \"cur\" o \"end\", y dice en cuál está.",
     "local bytes = archivo:seek(\"end\")"},
    {"FILE*", "setvbuf", Method, Boolean, {kBuffer, kSize},
     "Elige cómo se junta lo que se escribe: \"no\", \"line\" o \"full\".",
     "archivo:setvbuf(\"full\")"},

    {"os", "time", Plain, Number, {kParts},
     "Da la hora en segundos, la de ahora o la de una tabla con año, mes y día.",
     "math.randomseed(os.time())"},
    {"os", "date", Plain, Text, {kFormat, kTime},
     "Da la fecha y la hora como texto, o como tabla con \"*t\".",
     "screen:print(0, 0, os.date(\"%H:%M\"), blanco)"},
    {"os", "clock", Plain, Number, {},
     "Da los segundos de trabajo que lleva el programa.",
     "local inicio = os.clock()"},
    {"os", "difftime", Plain, Number, {kLate, kEarly},
     "Da los segundos de una hora a otra.",
     "local pasado = os.difftime(os.time(), salida)"},
    {"os", "remove", Plain, Boolean, {kPath},
     "Borra un archivo o una carpeta vacía; da true, o nil y el motivo.",
     "os.remove(\"partida1.txt\")"},
    {"os", "rename", Plain, Boolean, {kPath, kNewName},
     "Cambia el nombre de un archivo; da true, o nil y el motivo.",
     "os.rename(\"partida1.txt\", \"partida2.txt\")"},
    {"os", "tmpname", Plain, Text, {},
     "Hace un archivo con un nombre nuevo y da el nombre.",
     "local nombre = os.tmpname()"},
    {"os", "exit", Plain, Nothing, {kCode},
     "Termina el script.",
     "os.exit()"},
    {"os", "getenv", Plain, Text, {kVariable},
     "En el reproductor da siempre nil.",
     "print(os.getenv(\"HOME\"))"},
    {"os", "setlocale", Plain, Text, {kLocale, kCategory},
     "En el reproductor solo dice que se usa \"C\".",
     "print(os.setlocale())"},
    {"os", "execute", Plain, Number, {kCommandToo},
     "En el reproductor no hay órdenes que ejecutar: da 0, y con una orden es un error.",
     "print(os.execute())"},
};
// clang-format on

} // namespace

std::span<const Call> FileCalls() {
    return kRows;
}

} // namespace documents
