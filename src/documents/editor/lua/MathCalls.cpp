// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/CallTables.h"

#include <span>

namespace documents {
namespace {

using enum ValueKind;
using enum CallForm;

constexpr Parameter kNumber{"número", Number};
constexpr Parameter kOther{"otro", Number};
constexpr Parameter kMore{"...", Number, true};
constexpr Parameter kAngle{"ángulo", Number};
constexpr Parameter kY{"y", Number};
constexpr Parameter kX{"x", Number};
constexpr Parameter kFrom{"desde", Number, true};
constexpr Parameter kTo{"hasta", Number, true};
constexpr Parameter kSeed{"semilla", Number};
constexpr Parameter kExponent{"exponente", Number};

// clang-format off
constexpr Call kRows[] = {
    {"math", "random", Plain, Number, {kFrom, kTo},
     "Da un número al azar: de 0 a 1 sin argumentos; entero de 1 a uno, o entre dos.",
     "local dado = math.random(6)"},
    {"math", "randomseed", Plain, Nothing, {kSeed},
     "Hace que los números al azar no sean siempre los mismos.",
     "math.randomseed(os.time())"},
    {"math", "floor", Plain, Number, {kNumber},
     "Redondea hacia abajo.",
     "local columna = math.floor(x / 16)"},
    {"math", "ceil", Plain, Number, {kNumber},
     "Redondea hacia arriba.",
     "local filas = math.ceil(cuantos / 4)"},
    {"math", "abs", Plain, Number, {kNumber},
     "Quita el signo.",
     "if math.abs(x1 - x2) < 16 then choque = true end"},
    {"math", "max", Plain, Number, {kNumber, kMore},
     "Da el mayor de los números.",
     "x = math.max(0, x)"},
    {"math", "min", Plain, Number, {kNumber, kMore},
     "Da el menor de los números.",
     "x = math.min(479, x)"},
    {"math", "sqrt", Plain, Number, {kNumber},
     "Da la raíz cuadrada.",
     "local lejos = math.sqrt(dx * dx + dy * dy)"},
    {"math", "pow", Plain, Number, {kNumber, kExponent},
     "Eleva un número a otro, como número ^ exponente.",
     "print(math.pow(2, 10))"},
    {"math", "sin", Plain, Number, {kAngle},
     "Da el seno de un ángulo en radianes.",
     "y = 136 + 50 * math.sin(t)"},
    {"math", "cos", Plain, Number, {kAngle},
     "Da el coseno de un ángulo en radianes.",
     "x = 240 + 50 * math.cos(t)"},
    {"math", "tan", Plain, Number, {kAngle},
     "Da la tangente de un ángulo en radianes.",
     "print(math.tan(1))"},
    {"math", "asin", Plain, Number, {kNumber},
     "Da el ángulo, en radianes, que tiene ese seno.",
     "print(math.asin(1))"},
    {"math", "acos", Plain, Number, {kNumber},
     "Da el ángulo, en radianes, que tiene ese coseno.",
     "print(math.acos(0))"},
    {"math", "atan", Plain, Number, {kNumber},
     "Da el ángulo, en radianes, que tiene esa tangente.",
     "print(math.atan(1))"},
    {"math", "atan2", Plain, Number, {kY, kX},
     "Da el ángulo, en radianes, hacia un punto.",
     "local rumbo = math.atan2(dy, dx)"},
    {"math", "rad", Plain, Number, {kAngle},
     "Pasa de grados a radianes.",
     "print(math.rad(180))"},
    {"math", "deg", Plain, Number, {kAngle},
     "Pasa de radianes a grados.",
     "print(math.deg(math.pi))"},
    {"math", "fmod", Plain, Number, {kNumber, kOther},
     "Da el resto de una división, con el signo del primero.",
     "print(math.fmod(7, 3))"},
    {"math", "mod", Plain, Number, {kNumber, kOther},
     "Nombre antiguo de fmod.",
     "print(math.mod(7, 3))"},
    {"math", "modf", Plain, Number, {kNumber},
     "Da la parte entera y la parte decimal.",
     "local entero, resto = math.modf(3.75)"},
    {"math", "exp", Plain, Number, {kNumber},
     "Da e elevado al número.",
     "print(math.exp(1))"},
    {"math", "log", Plain, Number, {kNumber},
     "Da el logaritmo natural.",
     "print(math.log(10))"},
    {"math", "log10", Plain, Number, {kNumber},
     "Da el logaritmo decimal.",
     "print(math.log10(1000))"},
    {"math", "sinh", Plain, Number, {kNumber},
     "Da el seno hiperbólico.",
     "print(math.sinh(1))"},
    {"math", "cosh", Plain, Number, {kNumber},
     "Da el coseno hiperbólico.",
     "print(math.cosh(1))"},
    {"math", "tanh", Plain, Number, {kNumber},
     "Da la tangente hiperbólica.",
     "print(math.tanh(1))"},
    {"math", "frexp", Plain, Number, {kNumber},
     "Da la mantisa y el exponente de 2 del número.",
     "local mantisa, exponente = math.frexp(10)"},
    {"math", "ldexp", Plain, Number, {kNumber, kExponent},
     "Da el número por 2 elevado al exponente.",
     "print(math.ldexp(0.5, 3))"},
    {"math", "pi", Value, Number, {},
     "El número pi.",
     "local vuelta = 2 * math.pi"},
    {"math", "huge", Value, Number, {},
     "Un número mayor que todos.",
     "local cerca = math.huge"},
};
// clang-format on

} // namespace

std::span<const Call> MathCalls() {
    return kRows;
}

} // namespace documents
