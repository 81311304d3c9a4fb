// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Audio.h"

#include "player/ScriptError.h"

#include <SDL.h>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace player {
namespace {

constexpr int kBytesPerFrame = 4;
constexpr int kFramesPerBlock = 1024;
// How many times their size files can grow whose length SDL_mixer doesn't tell.
constexpr size_t kGrowth = 48;

void MixVoices(void* voices, Uint8* stream, int bytes) {
    static_cast<Voices*>(voices)->Mix(
        {reinterpret_cast<int16_t*>(stream), static_cast<size_t>(bytes) / 2});
}

SDL_RWops* Reader(const std::string& file) {
    return SDL_RWFromConstMem(file.data(), static_cast<int>(file.size()));
}

} // namespace

Audio::~Audio() {
    if (m_state != State::Open)
        return;
    StopMusic();
    Mix_SetPostMix(nullptr, nullptr);
    Mix_CloseAudio();
    Mix_Quit();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

size_t Audio::DecodedSize(const std::string& file) {
    if (!Open() || file.empty())
        return 0;
    const std::unique_ptr<Mix_Music, FreeMusic> music(Mix_LoadMUS_RW(Reader(file), 1));
    const double seconds = music ? Mix_MusicDuration(music.get()) : -1;
    if (!(seconds > 0))
        return file.size() * kGrowth;
    constexpr double kHours = 24 * 3600;
    return static_cast<size_t>(std::ceil(std::min(seconds, kHours) * kSampleRate)) * kBytesPerFrame;
}

Samples Audio::Decode(const std::string& file, const std::string& name) {
    if (!Open())
        return {};
    Mix_Chunk* const chunk = file.empty() ? nullptr : Mix_LoadWAV_RW(Reader(file), 1);
    if (!chunk)
        throw ScriptError("'" + name + "': no es un sonido que se pueda leer");
    Samples samples;
    samples.values.resize(size_t{chunk->alen} / kBytesPerFrame * 2);
    if (!samples.values.empty())
        std::memcpy(samples.values.data(), chunk->abuf, samples.values.size() * 2);
    Mix_FreeChunk(chunk);
    return samples;
}

void Audio::PlayMusic(core::FileDescriptor file, bool loop, const std::string& name) {
    if (!Open())
        return;
    StopMusic();
    FILE* const stream = fdopen(file.Number(), "rb");
    if (!stream)
        throw ScriptError("'" + name + "': no se puede leer");
    file.Release();
    SDL_RWops* const source = SDL_RWFromFP(stream, SDL_TRUE);
    if (!source)
        std::fclose(stream);
    else
        m_music.reset(Mix_LoadMUS_RW(source, 1));
    if (!m_music || Mix_PlayMusic(m_music.get(), loop ? -1 : 0) != 0)
        throw ScriptError("'" + name + "': no es una música que se pueda tocar");
    Mix_VolumeMusic(m_musicVolume);
}

void Audio::PauseMusic() {
    if (m_music)
        Mix_PauseMusic();
}

void Audio::ResumeMusic() {
    if (m_music)
        Mix_ResumeMusic();
}

void Audio::StopMusic() {
    if (m_music)
        Mix_HaltMusic();
    m_music.reset();
}

bool Audio::MusicPlaying() const {
    return m_music && Mix_PlayingMusic() != 0 && Mix_PausedMusic() == 0;
}

void Audio::MusicVolume(int volume) {
    m_musicVolume = volume;
    if (m_music)
        Mix_VolumeMusic(volume);
}

bool Audio::Open() {
    if (m_state != State::Closed)
        return m_state == State::Open;
    m_state = State::Open;
    if (!OpenDevice()) {
        std::fputs("luaplayer: no hay dispositivo de sonido; se sigue en silencio\n", stderr);
        SDL_SetHintWithPriority(SDL_HINT_AUDIODRIVER, "dummy", SDL_HINT_OVERRIDE);
        if (!OpenDevice())
            m_state = State::Missing;
    }
    if (m_state == State::Open)
        Mix_SetPostMix(&MixVoices, &voices);
    return m_state == State::Open;
}

bool Audio::OpenDevice() {
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0)
        return false;
    if (Mix_OpenAudioDevice(kSampleRate, AUDIO_S16SYS, 2, kFramesPerBlock, nullptr, 0) == 0)
        return true;
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    return false;
}

} // namespace player
