// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Options.h"

#include "core/Version.h"

#include <charconv>
#include <cstdlib>
#include <system_error>

namespace player {
namespace {

constexpr const char* kHelp =
    R"(Uso: luaplayer [opciones] ARCHIVO.lua
Ejecuta un script de Lua en una ventana de 480 x 272 puntos.

Opciones:
  --memory MB        memoria que el script puede ocupar, de 1 a 4096 (256)
  --frames N         sin ventana: termina después de N cuadros
  --screenshot PNG   sin ventana: escribe al final lo que se ve en la pantalla
  --help             esta ayuda
  --version          la versión

Teclas:
  flechas   cruceta            Intro       start
  X         cross              Retroceso   select
  S         circle             Inicio      home
  Z         square             H           hold
  A         triangle           N           note
  Q, W      l, r
  F1        consola            F2          tamaño, de 1x a 4x
  Escape    termina
También vale un mando de juegos.

El código de salida es 0, 1 tras un error del script, 2 si no se pudo empezar.
)";

constexpr size_t kMostMegabytes = 4096;

Notice Wrong(const std::string& text) {
    return {"luaplayer: " + text + "\nPrueba luaplayer --help\n", 2};
}

template<class T>
bool ReadNumber(const std::string& text, T least, T most, T& number) {
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end && number >= least && number <= most;
}

bool ReadValue(const std::string& option, const std::string& value, Options& options) {
    if (option == "--screenshot") {
        options.screenshot = value;
        return !value.empty();
    }
    if (option == "--frames")
        return ReadNumber(value, 1, 1'000'000'000, options.frames.emplace());
    if (!ReadNumber(value, size_t{1}, kMostMegabytes, options.memory))
        return false;
    options.memory <<= 20;
    return true;
}

bool TakesValue(const std::string& option) {
    return option == "--memory" || option == "--frames" || option == "--screenshot";
}

std::string Variable(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

void FillPlace(Options& options) {
    std::error_code error;
    options.folder = Variable("QUILLMARK_SCRIPT_FOLDER");
    if (options.folder.empty())
        options.folder = std::filesystem::absolute(options.script, error).parent_path();
    options.name = Variable("QUILLMARK_SCRIPT_NAME");
    if (options.name.empty())
        options.name = options.script.filename().string();
}

} // namespace

std::variant<Options, Notice> ReadOptions(const std::vector<std::string>& arguments) {
    Options options;
    bool onlyNames = false;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (onlyNames || !argument.starts_with("-")) {
            if (!options.script.empty())
                return Wrong("solo se ejecuta un archivo");
            options.script = argument;
        } else if (argument == "--") {
            onlyNames = true;
        } else if (argument == "--help") {
            return Notice{kHelp};
        } else if (argument == "--version") {
            return Notice{std::string("luaplayer ") + core::Version() + "\n"};
        } else if (!TakesValue(argument)) {
            return Wrong("no existe la opción " + argument);
        } else if (++i == arguments.size() || !ReadValue(argument, arguments[i], options)) {
            return Wrong("la opción " + argument + " pide un valor válido");
        }
    }
    if (options.script.empty())
        return Wrong("falta el archivo");
    FillPlace(options);
    return options;
}

} // namespace player
