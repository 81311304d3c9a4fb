// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/Memory.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

namespace player {

constexpr int kSampleRate = 44100;

/// A decoded sound: frames of left and right at kSampleRate.
struct Samples {
    std::vector<int16_t> values;
    Share share;

    size_t Frames() const { return values.size() / 2; }
};

/// A reverb of parallel comb filters, which differ in their delay.
class Reverb {
public:
    static constexpr int kMost = 15;

    int level = 0;

    /// Adds the echoes to the frames of left and right.
    void Add(std::span<float> bus);

private:
    struct Comb {
        std::vector<float> line;
        size_t at = 0;
    };

    std::vector<Comb> m_combs;
};

/// The sounds that are heard at the same time. The script's thread starts and sets them, the
/// thread of the sound device mixes. A sound is freed in the script's thread only.
class Voices {
public:
    using Id = uint64_t;
    using Sound = std::shared_ptr<const Samples>;

    static constexpr int kMostVolume = 25;
    static constexpr int kMostPan = 255; // right; 0 is left
    static constexpr int kMostFrequency = 255;
    static constexpr int kMiddle = 128;    // of pan; of frequency: the sound's own
    static constexpr int kMostLevel = 128; // of the volume of all, and of the separation
    static constexpr size_t kMostVoices = 32;

    struct Settings {
        int volume = kMostVolume;
        int pan = kMiddle;
        int frequency = kMiddle;
    };
    struct Levels {
        int volume = kMostLevel;
        int reverb = 0;
        int separation = kMostLevel;
    };

    /// With all voices taken, the oldest one stops.
    Id Start(Sound sound, bool loop);
    void Stop(Id id);
    /// Nothing once the voice has ended.
    std::optional<Settings> Get(Id id);
    void Set(Id id, const Settings& settings);
    Levels AllLevels() const;
    void AllLevels(const Levels& levels);

    /// Adds to the frames of left and right.
    void Mix(std::span<int16_t> stream);

private:
    struct Voice {
        Id id = 0;
        Sound sound;
        bool loop = false;
        bool ended = false;
        double position = 0;
        Settings settings;
    };

    void Reap();
    Voice* Find(Id id);
    void MixVoice(Voice& voice);

    mutable std::mutex m_mutex;
    std::vector<Voice> m_voices;
    std::vector<float> m_bus;
    Levels m_levels;
    Reverb m_reverb;
    Id m_last = 0;
};

} // namespace player
