// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/ParserMessages.h"

#include "documents/editor/lua/Tokens.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

namespace documents {
namespace {

// In the first column * stands for any piece. In the second %1 to %3 are these pieces, %t is the
// token and %p says where something lacks.
struct MessageRow {
    std::string_view text;
    std::string_view message;
    std::string_view hint;
    FaultPlace place = FaultPlace::AtToken;
    std::size_t line = 0; // which piece is the number of another line, from 1
};

using enum FaultPlace;

constexpr std::string_view kSplitIt = "Divide el trozo en varias funciones o varios pasos";
constexpr std::string_view kUseTable = "Reúne algunas en una tabla";

constexpr std::string_view kNoValue = "'<value>' expected"; // what kUnexpectedSymbol means at times

constexpr std::array kMessages = {
    MessageRow{kUnexpectedSymbol, "%t no puede ir aquí", "", Lack},
    MessageRow{kNoValue, "Falta un valor%p", ""},
    MessageRow{"'<eof>' expected", "Sobra %t", "Detrás de return no puede venir nada más"},
    MessageRow{"'<name>' expected", "Falta un nombre%p", "", Lack},
    MessageRow{"'=' expected", "Falta '='%p",
               "La orden no está completa: da un valor con = o llama a una función con ( )", Lack},
    MessageRow{"'=' or 'in' expected", "Falta '=' o 'in'%p",
               "Se escribe for i = 1, 10 do, o for clave, valor in pairs(tabla) do", Lack},
    MessageRow{"'end' expected (to close '*' at line *)",
               "Falta 'end' para cerrar el '%1' de la línea %2", "", AtToken, 2},
    MessageRow{"'end' expected", "Falta 'end'%p", ""},
    MessageRow{"'*' expected (to close '*' at line *)",
               "Falta '%1' para cerrar el '%2' de la línea %3", "", Lack, 3},
    MessageRow{"'*' expected", "Falta '%1'%p", "", Lack},
    MessageRow{"<name> or '...' expected", "Falta el nombre de un parámetro%p", "", Lack},
    MessageRow{"function arguments expected", "Faltan los paréntesis de la llamada%p",
               "Detrás de los dos puntos va una función: objeto:función(); un campo va con punto",
               Lack},
    MessageRow{"ambiguous syntax (function call x new statement)",
               "No está claro si este paréntesis sigue la línea de arriba",
               "Une las dos líneas, o acaba la de arriba con punto y coma"},
    MessageRow{"cannot use '...' outside a vararg function", "Esta función no recibe '...'",
               "Añade ... a sus parámetros"},
    MessageRow{"no loop to break", "'break' está fuera de un bucle",
               "Solo puede ir dentro de for, while o repeat", AtPrevious},
    MessageRow{"unfinished string", "Falta la comilla que cierra el texto",
               "Un texto entre comillas acaba en su misma línea"},
    MessageRow{"unfinished long string", "Falta el cierre de este texto largo",
               "Lo que empieza por [[ acaba en ]]"},
    MessageRow{"unfinished long comment", "Falta el cierre de este comentario",
               "Lo que empieza por --[[ acaba en ]]"},
    MessageRow{"invalid long string delimiter", "Así no se abre un texto largo",
               "Se abre con [[ o con [=["},
    MessageRow{"nesting of [[...]] is deprecated", "Un texto entre [[ y ]] no puede llevar otro [[",
               "Escríbelo entre [=[ y ]=]"},
    MessageRow{"malformed number", "%t no es un número",
               "Un nombre no empieza por una cifra, y un número lleva un solo punto"},
    MessageRow{"escape sequence too large", "El número detrás de \\ es demasiado grande",
               "Va de \\0 a \\255"},
    MessageRow{"function at line * has more than * local variables",
               "La función de la línea %1 tiene más de %2 variables locales", kUseTable, AtToken,
               1},
    MessageRow{"main function has more than * local variables",
               "Hay más de %1 variables locales fuera de las funciones", kUseTable},
    MessageRow{"function at line * has more than * upvalues",
               "La función de la línea %1 usa más de %2 variables locales de fuera", kUseTable,
               AtToken, 1},
    MessageRow{"* has more than * variables in assignment",
               "La asignación tiene más de %2 variables", kUseTable},
    MessageRow{"chunk has too many syntax levels",
               "Hay demasiados bloques o paréntesis, unos dentro de otros", kSplitIt},
    MessageRow{"chunk has too many lines", "El script tiene demasiadas líneas", ""},
    MessageRow{"control structure too long", "El bloque es demasiado largo", kSplitIt},
    MessageRow{"function or expression too complex", "La expresión es demasiado larga", kSplitIt},
    MessageRow{"constant table overflow", "Hay demasiados textos y números en una función",
               kSplitIt},
    MessageRow{"code size overflow", "El script es demasiado largo", kSplitIt},
    MessageRow{"memory allocation error: block too big", "El script es demasiado largo", kSplitIt},
    MessageRow{"lexical element too long", "El texto es demasiado largo", ""},
};

// What a beginner most likely meant. The first row that fits counts; in the first two columns *
// stands for any piece.
struct HintRow {
    std::string_view text;
    std::string_view token;
    std::string_view hint;
};

constexpr std::string_view kNoBraces = "Los bloques no van entre llaves: acaban en end";
constexpr std::string_view kStraight = "Las comillas han de ser rectas: \"texto\"";

constexpr std::array kHints = {
    HintRow{"*", "!", "«Distinto de» se escribe ~=, y «no» se escribe not"},
    HintRow{"*", "&", "«Y» se escribe and"},
    HintRow{"*", "|", "«O» se escribe or"},
    HintRow{"*", "“", kStraight},
    HintRow{"*", "”", kStraight},
    HintRow{"*", "‘", kStraight},
    HintRow{"*", "’", kStraight},
    HintRow{"'=' expected", "==", "Para dar un valor se escribe un solo ="},
    HintRow{"'=' expected", "+", "Se escribe entero: x = x + 1"},
    HintRow{"'=' expected", "-", "Se escribe entero: x = x - 1"},
    HintRow{"'=' expected", "/", "Se escribe entero: x = x / 2"},
    HintRow{"'*' expected*", "=", "Para comparar se escribe =="},
    HintRow{"unexpected symbol", "=", "Una asignación lleva un solo ="},
    HintRow{"unexpected symbol", "/", "Un comentario empieza por --"},
    HintRow{"unexpected symbol", "#", "Un comentario empieza por --"},
    HintRow{"unexpected symbol", "{", kNoBraces},
    HintRow{"'then' expected", "{", kNoBraces},
    HintRow{"'do' expected", "{", kNoBraces},
    HintRow{"'<eof>' expected", "end",
            "No hay nada abierto que cerrar: quítalo, o mira si falta antes un if, for o function"},
    HintRow{"'<eof>' expected", "else*", "No hay ningún if abierto"},
    HintRow{"'<eof>' expected", "until", "No hay ningún repeat abierto"},
    HintRow{"'then' expected", "*", "Se escribe if condición then"},
    HintRow{"'do' expected", "*", "Se escribe while condición do, o for i = 1, 10 do"},
    HintRow{"'until' expected*", "*", "Un repeat acaba en until y una condición"},
    HintRow{"')' expected*", "*",
            "Mira si falta cerrar un paréntesis, o una coma entre dos valores"},
    HintRow{"'}' expected*", "*", "Los valores de una tabla se separan con comas"},
    HintRow{"'end' expected*", "else*", "Solo un if lleva else"},
    HintRow{"'end' expected*", "until", "Solo un repeat lleva until"},
    HintRow{"'end' expected*", "*",
            "Detrás de return o break no puede venir nada más en el mismo bloque"},
};

constexpr std::string_view kElseIf = "Si «else if» es otra condición, se escribe junto: elseif";
constexpr std::string_view kPlainNames = "Un nombre solo lleva letras sin tilde ni ñ, cifras y _";
constexpr std::string_view kReserved = "Es una palabra de Lua y no sirve de nombre";

using Pieces = std::vector<std::string_view>;

// Adds to `pieces` what the stars stand for, each as short as can be.
bool Fits(std::string_view text, std::string_view pattern, Pieces& pieces) {
    const std::size_t star = std::min(pattern.find('*'), pattern.size());
    if (!text.starts_with(pattern.substr(0, star)))
        return false;
    if (star == pattern.size())
        return text.size() == star;
    for (std::size_t end = star; end <= text.size(); ++end) {
        pieces.push_back(text.substr(star, end - star));
        if (Fits(text.substr(end), pattern.substr(star + 1), pieces))
            return true;
        pieces.pop_back();
    }
    return false;
}

bool Fits(std::string_view text, std::string_view pattern) {
    Pieces ignored;
    return Fits(text, pattern, ignored);
}

// The row for the text, and in `pieces` what its stars stand for.
const MessageRow* Find(std::string_view text, Pieces& pieces) {
    const auto* const row =
        std::find_if(kMessages.begin(), kMessages.end(),
                     [&](const MessageRow& one) { return Fits(text, one.text, pieces); });
    return row == kMessages.end() ? nullptr : row;
}

bool IsPlain(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

// A piece of the script in quotes: its first line, and not too much of it.
std::string Quoted(std::string_view token) {
    constexpr std::size_t kLongest = 24;
    if (token == kEndOfScript)
        return "el final del script";
    std::size_t length = std::min(token.find_first_of("\r\n"), token.size());
    if (length > kLongest) {
        length = kLongest;
        while ((static_cast<unsigned char>(token[length]) & 0xC0U) == 0x80)
            --length;
    }
    const char* const rest = length < token.size() ? "…'" : "'";
    return "'" + std::string(token.substr(0, length)) + rest;
}

std::string Where(const ParserMessage& said) {
    return said.isBehind ? " después de " + Quoted(said.previous)
                         : " antes de " + Quoted(said.token);
}

std::string Filled(std::string_view message, const ParserMessage& said, const Pieces& pieces) {
    std::string filled;
    for (std::size_t at = 0; at < message.size(); ++at) {
        if (message[at] != '%')
            filled += message[at];
        else if (const char key = message[++at]; key == 't')
            filled += Quoted(said.token);
        else if (key == 'p')
            filled += Where(said);
        else
            filled += pieces.at(static_cast<std::size_t>(key - '1'));
    }
    return filled;
}

// Why an "end" lacks, if it can be told.
std::string HintForEnd(const ParserMessage& said, std::size_t openerLine) {
    if (said.hasElseIf)
        return std::string(kElseIf);
    if (said.unclosed.line == 0 || said.unclosed.line == openerLine)
        return "";
    return "Por cómo están metidas las líneas, puede que sea el del '" +
           std::string(said.unclosed.word) + "' de la línea " + std::to_string(said.unclosed.line);
}

std::string HintFor(const ParserMessage& said, std::string_view standard) {
    const auto* const row = std::find_if(kHints.begin(), kHints.end(), [&](const HintRow& one) {
        return Fits(said.text, one.text) && Fits(said.token, one.token);
    });
    if (row != kHints.end())
        return std::string(row->hint);
    if (!IsPlain(said.token.front()))
        return std::string(kPlainNames);
    const bool wantsName = said.text.find("<name>") != std::string_view::npos;
    return std::string(wantsName && IsKeyword(said.token) ? kReserved : standard);
}

std::size_t Number(std::string_view digits) {
    std::size_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

} // namespace

Wording Translate(const ParserMessage& said) {
    Pieces pieces;
    const bool lacksValue = said.isBehind && said.text == kUnexpectedSymbol;
    const MessageRow* const row = Find(lacksValue ? kNoValue : said.text, pieces);
    if (!row)
        return {std::string(said.text), "", 0};
    const std::size_t line = row->line == 0 ? 0 : Number(pieces.at(row->line - 1));
    const bool lacksEnd = said.token == kEndOfScript && said.text.starts_with("'end' expected");
    return {Filled(row->message, said, pieces),
            lacksEnd ? HintForEnd(said, line) : HintFor(said, row->hint), line};
}

FaultPlace PlaceOf(std::string_view text) {
    Pieces pieces;
    const MessageRow* const row = Find(text, pieces);
    return row ? row->place : AtToken;
}

} // namespace documents
