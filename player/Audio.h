// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/FileDescriptor.h"
#include "player/Voices.h"

#include <SDL_mixer.h>
#include <memory>
#include <string>

namespace player {

/// SDL_mixer's sound device, opened by the first sound. Without a device there is silence, which is
/// said once on stderr.
class Audio {
public:
    static constexpr int kMostMusicVolume = MIX_MAX_VOLUME;

    Audio() = default;
    Audio(const Audio&) = delete;
    Audio& operator=(const Audio&) = delete;
    ~Audio();

    Voices voices;

    /// How many bytes the samples of Decode will take, estimated without decoding.
    size_t DecodedSize(const std::string& file);
    /// Throws ScriptError if it isn't a sound.
    Samples Decode(const std::string& file, const std::string& name);

    /// Throws ScriptError if it isn't music.
    void PlayMusic(core::FileDescriptor file, bool loop, const std::string& name);
    void PauseMusic();
    void ResumeMusic();
    void StopMusic();
    bool MusicPlaying() const;
    int MusicVolume() const { return m_musicVolume; }
    void MusicVolume(int volume);

private:
    enum class State { Closed, Open, Missing };

    bool Open();
    bool OpenDevice();

    struct FreeMusic {
        void operator()(Mix_Music* music) const { Mix_FreeMusic(music); }
    };

    State m_state = State::Closed;
    std::unique_ptr<Mix_Music, FreeMusic> m_music;
    int m_musicVolume = kMostMusicVolume;
};

} // namespace player
