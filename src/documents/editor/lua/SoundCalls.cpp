// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/CallTables.h"

#include <span>

namespace documents {
namespace {

using enum ValueKind;
using enum CallForm;

constexpr Parameter kPath{"archivo", Text};
constexpr Parameter kLoop{"repetir", Boolean, true};
constexpr Parameter kVolume{"volumen", Number, true};
constexpr Parameter kPlace{"lado", Number, true};
constexpr Parameter kPitch{"tono", Number, true};
constexpr Parameter kReverb{"eco", Number, true};
constexpr Parameter kSeparation{"separación", Number, true};

// clang-format off
constexpr Call kRows[] = {
    {"Sound", "load", Plain, Sound, {kPath, kLoop},
     "Lee un sonido de la carpeta del script; con true se repite hasta que se pare.",
     "local salto = Sound.load(\"salto.wav\")"},
    {"Sound", "play", Method, Voice, {},
     "Hace sonar el sonido y da la voz con la que suena. Suenan hasta 32 a la vez.",
     "local voz = salto:play()"},

    {"Voice", "stop", Method, Nothing, {},
     "Calla la voz.",
     "voz:stop()"},
    {"Voice", "volume", Method, Number, {kVolume},
     "Da el volumen de la voz, de 0 a 25, o lo cambia.",
     "voz:volume(12)"},
    {"Voice", "pan", Method, Number, {kPlace},
     "Da o cambia de qué lado suena la voz: 0 a la izquierda, 128 en medio, 255 a la derecha.",
     "voz:pan(255)"},
    {"Voice", "frequency", Method, Number, {kPitch},
     "Da o cambia el tono de la voz, de 0 a 255; con 128 suena como se grabó.",
     "voz:frequency(160)"},
    {"Voice", "playing", Method, Boolean, {},
     "Dice si la voz suena todavía.",
     "if not voz:playing() then voz = salto:play() end"},

    {"SoundSystem", "SFXVolume", Plain, Number, {kVolume},
     "Da el volumen de todos los sonidos, de 0 a 128, o lo cambia.",
     "SoundSystem.SFXVolume(64)"},
    {"SoundSystem", "reverb", Plain, Number, {kReverb},
     "Da el eco de todos los sonidos, de 0 a 15, o lo cambia.",
     "SoundSystem.reverb(5)"},
    {"SoundSystem", "panoramicSeparation", Plain, Number, {kSeparation},
     "Da o cambia cuánto se separan los lados, de 0 (suenan igual) a 128.",
     "SoundSystem.panoramicSeparation(128)"},

    {"Music", "playFile", Plain, Nothing, {kPath, kLoop},
     "Toca la música de un archivo de la carpeta del script; con true, una y otra vez.",
     "Music.playFile(\"tema.mp3\", true)"},
    {"Music", "pause", Plain, Nothing, {},
     "Deja la música en pausa.",
     "Music.pause()"},
    {"Music", "resume", Plain, Nothing, {},
     "Sigue con la música que está en pausa.",
     "Music.resume()"},
    {"Music", "stop", Plain, Nothing, {},
     "Para la música.",
     "Music.stop()"},
    {"Music", "playing", Plain, Boolean, {},
     "Dice si la música suena.",
     "if not Music.playing() then Music.playFile(\"tema.mp3\") end"},
    {"Music", "volume", Plain, Number, {kVolume},
     "Da el volumen de la música, de 0 a 128, o lo cambia.",
     "Music.volume(64)"},
};
// clang-format on

} // namespace

std::span<const Call> SoundCalls() {
    return kRows;
}

} // namespace documents
