// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/ScriptCheck.h"
#include "documents/editor/lua/ParserMessages.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace documents;

namespace {

// As "line/other line [what is underlined] message; hint".
std::string Tell(const std::string& script) {
    const auto fault = Check(script);
    if (!fault)
        return "";
    return std::to_string(fault->line) + "/" + std::to_string(fault->otherLine) + " [" +
           script.substr(fault->begin, fault->end - fault->begin) + "] " + fault->message + "; " +
           fault->hint;
}

std::string Many(int count, const std::string& piece) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += piece;
    return all;
}

struct Row {
    std::string script;
    const char* told; // its beginning
};

} // namespace

TEST(ScriptCheckTest, EachFaultIsToldWhereItShows) {
    const std::vector<Row> rows = {
        {"x = = 1", "1/0 [=] '=' no puede ir aquí; Una asignación"},
        {"x =\r\n-- y\r\nlocal z", "1/0 [=] Falta un valor después de '='"},
        {"f(", "1/0 [(] Falta un valor después de '('"},
        {"x()\n}", "2/0 [}] '}' no puede ir aquí"},
        {"if x = 1 then end", "1/0 [=] Falta 'then' antes de '='; Para comparar"},
        {"while x\ny()", "1/0 [x] Falta 'do' después de 'x'"},
        {"repeat x()", "1/0 [)] Falta 'until' después de ')'; Un repeat"},
        {"x += 1", "1/0 [+] Falta '=' antes de '+'; Se escribe entero"},
        {"foo\n\nbar()", "1/0 [foo] Falta '=' después de 'foo'; La orden"},
        {"if a then\n b()\n-- c\n", "2/1 [)] Falta 'end' para cerrar el 'if' de la línea 1; "},
        {"if a then\nelse if b then\nend",
         "3/1 [end] Falta 'end' para cerrar el 'if' de la línea 1; Si «else if»"},
        {"function f(a)\n\tif a then\n\t\tx({\n1})\n\n\ty()\nend\n",
         "7/1 [end] Falta 'end' para cerrar el 'function' de la línea 1; Por cómo están metidas "
         "las "
         "líneas, puede que sea el del 'if' de la línea 2"},
        {"do\nreturn 1\nx() end",
         "3/1 [x] Falta 'end' para cerrar el 'do' de la línea 1; Detrás de return"},
        {"while a do else end", "1/0 [else] Falta 'end' antes de 'else'; Solo un if"},
        {"do return", "1/0 [return] Falta 'end' después de 'return'; "},
        {"print('a'\nprint('b')", "1/0 ['a'] Falta ')' para cerrar el '(' de la línea 1; Mira"},
        {"end", "1/0 [end] Sobra 'end'; No hay"},
        {"return 1 x()", "1/0 [x] Sobra 'x'; Detrás"},
        {"local end", "1/0 [end] Falta un nombre antes de 'end'; Es una palabra"},
        {"for i", "1/0 [i] Falta '=' o 'in' después de 'i'; Se escribe for"},
        {"function f(3)", "1/0 [3] Falta el nombre de un parámetro antes de '3'"},
        {"a:b = 1", "1/0 [=] Faltan los paréntesis de la llamada antes de '='"},
        {"f\n(g)", "2/0 [(] No está claro"},
        {"function g() return ... end", "1/0 [...] Esta función no recibe '...'"},
        {"break x()", "1/0 [break] 'break' está fuera de un bucle"},
        {"x='abc\ny", "1/0 ['abc] Falta la comilla"},
        {"\"abc", "1/0 [\"abc] Falta la comilla"},
        {"x=[[abc\n\n", "1/0 [[[abc] Falta el cierre de este texto"},
        {"x=1\n--[[abc\n", "2/0 [--[[abc] Falta el cierre de este comentario"},
        {"x=[=abc", "1/0 [=] Así no se abre"},
        {"x=[[\n [[ ]]", "1/0 [[[] Un texto entre"},
        {"x=3x", "1/0 [3x] '3x' no es un número"},
        {"x='a\\300'", "1/0 ['a\\300'] El número detrás de \\ es"},
        {Many(201, "local a\n"), "201/0 [a] Hay más de 200 variables locales fuera"},
        {"function f()" + Many(201, "local a "),
         "1/0 [a] La función de la línea 1 tiene más de 200"},
        {"a" + Many(300, ",a") + "=1", "1/0 [,] La asignación tiene más de"},
        {"x=" + Many(300, "("), "1/0 [(] Hay demasiados bloques"},
        {"f(1" + Many(300, ",1") + ")", "1/0 [1] La expresión es demasiado larga"},
        {"while x do " + Many(135000, "x=x ") + "end", "1/0 [end] El bloque es demasiado largo"},
        {"f(1 '" + std::string(22, 'y') + "ñ')",
         "1/0 ['yyyyyyyyyyyyyyyyyyyyyyñ'] Falta ')' antes de ''yyyyyyyyyyyyyyyyyyyyyy…'; "},
    };
    // Where the indentation tells nothing else, neither does the hint.
    for (const char* script : {"if a then\n  b()\nc()\n", "if a then\nif b then\nx()\nend",
                               "if a then\n  if b then\n  x()\n  end\n"})
        EXPECT_TRUE(Tell(script).ends_with("de la línea 1; ")) << Tell(script);
    for (const Row& row : rows)
        EXPECT_EQ(Tell(row.script).rfind(row.told, 0), 0U) << row.told << "\n" << Tell(row.script);
}

TEST(ScriptCheckTest, LettersOutsideAsciiAreWholeInAnyEncoding) {
    for (const std::string before : {"-- ñ\n", "-- → ñ\n"}) { // in the code page, and not
        EXPECT_EQ(Tell(before + "if x == ñu then end")
                      .rfind("2/0 [ñ] 'ñ' no puede ir aquí; Un nombre", 0),
                  0U);
        EXPECT_EQ(Tell(before + "s = “a”").rfind("2/0 [“] '“' no puede ir aquí; Las comillas", 0),
                  0U);
        EXPECT_EQ(Tell(before + "s = 'ñ' 'ñ").rfind("2/0 ['ñ] Falta la comilla", 0), 0U);
    }
}

TEST(ScriptCheckTest, WhatRunsHasNoFault) {
    for (const char* script : {"", "\n\n", "#!lua (", "#!lua (\nx = 1", "\x1BLua", "-- ñ\nx = 'ñ'"})
        EXPECT_EQ(Tell(script), "") << script;
    EXPECT_EQ(Tell("#!lua (\nx = ").rfind("2/0 [=]", 0), 0U);
}

TEST(ScriptCheckTest, UnknownMessagesStayAsTheyAre) {
    EXPECT_EQ(Translate({.text = "label already defined", .token = "x"}).message,
              "label already defined");
}
