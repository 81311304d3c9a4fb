// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/CallTables.h"

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
    {"math", Plain, "random", {kFrom, kTo}, Number,
     "Da un número al azar: de 0 a 1 sin argumentos; entero de 1 a uno, o entre dos.",
     "local dado = math.random(6)"},
    {"math", Plain, "randomseed", {kSeed}, Nothing,
     "Hace que los números al azar no sean siempre los mismos.",
     "math.randomseed(os.time())"},
    {"math", Plain, "floor", {kNumber}, Number,
     "Redondea hacia abajo.",
     "local columna = math.floor(x / 16)"},
    {"math", Plain, "ceil", {kNumber}, Number,
     "Redondea hacia arriba.",
     "local filas = math.ceil(cuantos / 4)"},
    {"math", Plain, "abs", {kNumber}, Number,
     "Quita el signo.",
     "if math.abs(x1 - x2) < 16 then choque = true end"},
    {"math", Plain, "max", {kNumber, kMore}, Number,
     "Da el mayor de los números.",
     "x = math.max(0, x)"},
    {"math", Plain, "min", {kNumber, kMore}, Number,
     "Da el menor de los números.",
     "x = math.min(479, x)"},
    {"math", Plain, "sqrt", {kNumber}, Number,
     "Da la raíz cuadrada.",
     "local lejos = math.sqrt(dx * dx + dy * dy)"},
    {"math", Plain, "pow", {kNumber, kExponent}, Number,
     "Eleva un número a otro, como número ^ exponente.",
     "print(math.pow(2, 10))"},
    {"math", Plain, "sin", {kAngle}, Number,
     "Da el seno de un ángulo en radianes.",
     "y = 136 + 50 * math.sin(t)"},
    {"math", Plain, "cos", {kAngle}, Number,
     "Da el coseno de un ángulo en radianes.",
     "x = 240 + 50 * math.cos(t)"},
    {"math", Plain, "tan", {kAngle}, Number,
     "Da la tangente de un ángulo en radianes.",
     "print(math.tan(1))"},
    {"math", Plain, "asin", {kNumber}, Number,
     "Da el ángulo, en radianes, que tiene ese seno.",
     "print(math.asin(1))"},
    {"math", Plain, "acos", {kNumber}, Number,
     "Da el ángulo, en radianes, que tiene ese coseno.",
     "print(math.acos(0))"},
    {"math", Plain, "atan", {kNumber}, Number,
     "Da el ángulo, en radianes, que tiene esa tangente.",
     "print(math.atan(1))"},
    {"math", Plain, "atan2", {kY, kX}, Number,
     "Da el ángulo, en radianes, hacia un punto.",
     "local rumbo = math.atan2(dy, dx)"},
    {"math", Plain, "rad", {kAngle}, Number,
     "Pasa de grados a radianes.",
     "print(math.rad(180))"},
    {"math", Plain, "deg", {kAngle}, Number,
     "Pasa de radianes a grados.",
     "print(math.deg(math.pi))"},
    {"math", Plain, "fmod", {kNumber, kOther}, Number,
     "Da el resto de una división, con el signo del primero.",
     "print(math.fmod(7, 3))"},
    {"math", Plain, "mod", {kNumber, kOther}, Number,
     "Nombre antiguo de fmod.",
     "print(math.mod(7, 3))"},
    {"math", Plain, "modf", {kNumber}, Number,
     "Da la parte entera y la parte decimal.",
     "local entero, resto = math.modf(3.75)"},
    {"math", Plain, "exp", {kNumber}, Number,
     "Da e elevado al número.",
     "print(math.exp(1))"},
    {"math", Plain, "log", {kNumber}, Number,
     "Da el logaritmo natural.",
     "print(math.log(10))"},
    {"math", Plain, "log10", {kNumber}, Number,
     "Da el logaritmo decimal.",
     "print(math.log10(1000))"},
    {"math", Plain, "sinh", {kNumber}, Number,
     "Da el seno hiperbólico.",
     "print(math.sinh(1))"},
    {"math", Plain, "cosh", {kNumber}, Number,
     "Da el coseno hiperbólico.",
     "print(math.cosh(1))"},
    {"math", Plain, "tanh", {kNumber}, Number,
     "Da la tangente hiperbólica.",
     "print(math.tanh(1))"},
    {"math", Plain, "frexp", {kNumber}, Number,
     "Da la mantisa y el exponente de 2 del número.",
     "local mantisa, exponente = math.frexp(10)"},
    {"math", Plain, "ldexp", {kNumber, kExponent}, Number,
     "Da el número por 2 elevado al exponente.",
     "print(math.ldexp(0.5, 3))"},
    {"math", Value, "pi", {}, Number,
     "El número pi.",
     "local vuelta = 2 * math.pi"},
    {"math", Value, "huge", {}, Number,
     "Un número mayor que todos.",
     "local cerca = math.huge"},
};
// clang-format on

} // namespace

std::span<const Call> MathCalls() {
    return kRows;
}

} // namespace documents
