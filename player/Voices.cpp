// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Voices.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace player {
namespace {

constexpr std::array<std::size_t, 4> kCombFrames = {1499, 1811, 2137, 2503};
constexpr float kLongest = 0.85F; // feedback at the highest level
constexpr float kWet = 0.5F;

struct Gains {
    float left;
    float right;
};

Gains GainsOf(const Voices::Settings& settings, const Voices::Levels& levels) {
    const float side =
        static_cast<float>(settings.pan - Voices::kMiddle) /
        static_cast<float>(settings.pan < Voices::kMiddle ? Voices::kMiddle
                                                          : Voices::kMostPan - Voices::kMiddle) *
        static_cast<float>(levels.separation) / Voices::kMostLevel;
    const float volume = static_cast<float>(settings.volume) / Voices::kMostVolume *
                         static_cast<float>(levels.volume) / Voices::kMostLevel;
    return {volume * std::min(1.0F, 1 - side), volume * std::min(1.0F, 1 + side)};
}

std::int16_t Clamped(float value) {
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(std::clamp<float>(value, Limits::min(), Limits::max()));
}

} // namespace

void Reverb::Add(std::span<float> bus) {
    if (combs_.empty())
        for (const std::size_t frames : kCombFrames)
            combs_.push_back({std::vector<float>(frames * 2)});
    const float part = static_cast<float>(level) / kMost;
    const float wet = part * kWet / static_cast<float>(combs_.size());
    for (float& value : bus) {
        const float dry = value;
        for (Comb& comb : combs_) {
            float& past = comb.line[comb.at];
            value += past * wet;
            past = dry + past * part * kLongest;
            if (std::abs(past) < 1)
                past = 0;
            comb.at = (comb.at + 1) % comb.line.size();
        }
    }
}

Voices::Id Voices::Start(Sound sound, bool loop) {
    const std::lock_guard lock(mutex_);
    Reap();
    if (voices_.size() == kMostVoices)
        voices_.erase(voices_.begin());
    const bool ended = sound->Frames() == 0;
    voices_.push_back({++last_, std::move(sound), loop, ended, 0, {}});
    return last_;
}

void Voices::Stop(Id id) {
    const std::lock_guard lock(mutex_);
    if (Voice* const voice = Find(id))
        voice->ended = true;
    Reap();
}

std::optional<Voices::Settings> Voices::Get(Id id) {
    const std::lock_guard lock(mutex_);
    Reap();
    const Voice* const voice = Find(id);
    return voice ? std::optional(voice->settings) : std::nullopt;
}

void Voices::Set(Id id, const Settings& settings) {
    const std::lock_guard lock(mutex_);
    if (Voice* const voice = Find(id))
        voice->settings = settings;
}

Voices::Levels Voices::AllLevels() const {
    const std::lock_guard lock(mutex_);
    return levels_;
}

void Voices::AllLevels(const Levels& levels) {
    const std::lock_guard lock(mutex_);
    levels_ = levels;
    reverb_.level = levels.reverb;
}

void Voices::Mix(std::span<std::int16_t> stream) {
    const std::lock_guard lock(mutex_);
    bus_.assign(stream.size() / 2 * 2, 0);
    for (Voice& voice : voices_)
        MixVoice(voice);
    if (levels_.reverb > 0)
        reverb_.Add(bus_);
    for (std::size_t i = 0; i < bus_.size(); ++i)
        stream[i] = Clamped(static_cast<float>(stream[i]) + bus_[i]);
}

void Voices::Reap() {
    std::erase_if(voices_, [](const Voice& voice) { return voice.ended; });
}

Voices::Voice* Voices::Find(Id id) {
    const auto found = std::find_if(voices_.begin(), voices_.end(),
                                    [id](const Voice& voice) { return voice.id == id; });
    return found == voices_.end() ? nullptr : &*found;
}

// Reads the sound faster or slower, with straight lines between its frames.
void Voices::MixVoice(Voice& voice) {
    const std::vector<std::int16_t>& values = voice.sound->values;
    const std::size_t frames = voice.sound->Frames();
    const Gains gains = GainsOf(voice.settings, levels_);
    const double step = static_cast<double>(voice.settings.frequency) / kMiddle;
    for (std::size_t i = 0; i < bus_.size() && !voice.ended; i += 2) {
        if (voice.position >= static_cast<double>(frames)) {
            voice.ended = !voice.loop;
            if (voice.ended)
                return;
            voice.position = std::fmod(voice.position, static_cast<double>(frames));
        }
        const auto at = static_cast<std::size_t>(voice.position);
        const std::size_t next = at + 1 < frames ? at + 1 : (voice.loop ? 0 : at);
        const float part = static_cast<float>(voice.position - static_cast<double>(at));
        const auto between = [&](std::size_t side) {
            const float first = values[at * 2 + side];
            return first + part * (static_cast<float>(values[next * 2 + side]) - first);
        };
        bus_[i] += between(0) * gains.left;
        bus_[i + 1] += between(1) * gains.right;
        voice.position += step;
    }
}

} // namespace player
