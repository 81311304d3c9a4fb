// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/CallTables.h"

#include <span>

namespace documents {
namespace {

using enum ValueKind;
using enum CallForm;

constexpr Parameter kX{"x", Number};
constexpr Parameter kY{"y", Number};
constexpr Parameter kX0{"x0", Number};
constexpr Parameter kY0{"y0", Number};
constexpr Parameter kX1{"x1", Number};
constexpr Parameter kY1{"y1", Number};
constexpr Parameter kPartX{"ox", Number, true};
constexpr Parameter kPartY{"oy", Number, true};
constexpr Parameter kPartWidth{"ancho", Number, true};
constexpr Parameter kPartHeight{"alto", Number, true};
constexpr Parameter kAlpha{"transparencia", Boolean, true};
constexpr Parameter kWidth{"ancho", Number};
constexpr Parameter kHeight{"alto", Number};
constexpr Parameter kHeightToo{"alto", Number, true};
constexpr Parameter kPath{"archivo", Text};
constexpr Parameter kText{"texto", Text};
constexpr Parameter kColor{"color", Color, true};
constexpr Parameter kRed{"rojo", Number};
constexpr Parameter kGreen{"verde", Number};
constexpr Parameter kBlue{"azul", Number};
constexpr Parameter kOpacity{"opacidad", Number, true};
constexpr Parameter kDpiX{"dpiX", Number, true};
constexpr Parameter kDpiY{"dpiY", Number, true};
constexpr Parameter kFont{"fuente", Font};
constexpr Parameter kSource{"origen", Image};
constexpr Parameter kFrames{"cuadros", Number, true};

// clang-format off
constexpr Call kRows[] = {
    {"screen", "flip", Plain, Nothing, {},
     "Enseña en la pantalla lo que se ha dibujado.",
     "screen.flip()"},
    {"screen", "waitVblankStart", Plain, Nothing, {kFrames},
     "Espera al cuadro siguiente, o tantos cuadros como se diga; hay 60 por segundo.",
     "screen.waitVblankStart()"},

    {"Image", "createEmpty", Plain, Image, {kWidth, kHeight},
     "Hace una imagen transparente de ese tamaño, hasta 4096 por 4096 puntos.",
     "local marco = Image.createEmpty(64, 32)"},
    {"Image", "load", Plain, Image, {kPath},
     "Lee una imagen PNG o JPG de la carpeta del script.",
     "local nave = Image.load(\"nave.png\")"},
    {"Image", "save", Method, Nothing, {kPath},
     "Guarda la imagen; en JPG si el nombre acaba en .jpg, si no, en PNG.",
     "screen:save(\"captura.png\")"},
    {"Image", "clear", Method, Nothing, {kColor},
     "Llena la imagen de un color. Sin color queda transparente; la pantalla, negra.",
     "screen:clear(Color.new(0, 0, 64))"},
    {"Image", "fillRect", Method, Nothing, {kX, kY, kWidth, kHeight, kColor},
     "Llena un rectángulo; sin color, de negro.",
     "screen:fillRect(10, 10, 100, 20, Color.new(255, 0, 0))"},
    {"Image", "drawLine", Method, Nothing, {kX0, kY0, kX1, kY1, kColor},
     "Traza una línea de un punto a otro; sin color, negra.",
     "screen:drawLine(0, 0, 479, 271, Color.new(255, 255, 255))"},
    {"Image", "blit", Method, Nothing, {kX, kY, kSource, kPartX, kPartY, kPartWidth, kPartHeight,
     kAlpha},
     "Dibuja otra imagen, entera o la parte que empieza en ox, oy; con false tapa también lo de "
     "debajo de sus puntos transparentes.",
     "screen:blit(200, 100, nave)"},
    {"Image", "pixel", Method, Color, {kX, kY, kColor},
     "Da el color de un punto; con un color, pinta el punto.",
     "local c = nave:pixel(0, 0)"},
    {"Image", "print", Method, Nothing, {kX, kY, kText, kColor},
     "Escribe un texto con letras de 8 puntos; sin color, negro.",
     "screen:print(10, 10, \"Hola\", Color.new(255, 255, 255))"},
    {"Image", "fontPrint", Method, Nothing, {kFont, kX, kY, kText, kColor},
     "Escribe un texto con una fuente; y es el borde de arriba de la línea.",
     "screen:fontPrint(letra, 10, 10, \"Hola\", Color.new(255, 255, 0))"},
    {"Image", "width", Method, Number, {},
     "Da el ancho de la imagen en puntos.",
     "local ancho = nave:width()"},
    {"Image", "height", Method, Number, {},
     "Da el alto de la imagen en puntos.",
     "local alto = nave:height()"},

    {"Color", "new", Plain, Color, {kRed, kGreen, kBlue, kOpacity},
     "Hace un color; cada parte va de 0 a 255. Sin opacidad es opaco del todo.",
     "local amarillo = Color.new(255, 207, 47)"},

    {"Font", "load", Plain, Font, {kPath},
     "Lee una fuente TrueType de la carpeta del script.",
     "local letra = Font.load(\"letra.ttf\")"},
    {"Font", "createMonoSpaced", Plain, Font, {},
     "Da una fuente con todas las letras del mismo ancho.",
     "local letra = Font.createMonoSpaced()"},
    {"Font", "createProportional", Plain, Font, {},
     "Da una fuente con letras de distinto ancho.",
     "local letra = Font.createProportional()"},
    {"Font", "setCharSize", Method, Nothing, {kWidth, kHeightToo, kDpiX, kDpiY},
     "Elige el tamaño en puntos de imprenta, según los puntos por pulgada; 0 en uno toma el otro.",
     "letra:setCharSize(0, 12, 96, 96)"},
    {"Font", "setPixelSizes", Method, Nothing, {kWidth, kHeightToo},
     "Elige el tamaño de las letras en puntos de la pantalla; 0 en uno toma el otro.",
     "letra:setPixelSizes(0, 16)"},
    {"Font", "getTextSize", Method, Table, {kText},
     "Mide un texto: una tabla con los campos width y height, en puntos.",
     "local ancho = letra:getTextSize(\"Hola\").width"},
};
// clang-format on

} // namespace

std::span<const Call> PictureCalls() {
    return kRows;
}

} // namespace documents
