// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Voices.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace player {
namespace {

constexpr std::array<size_t, 4> kCombFrames = {1499, 1811, 2137, 2503};
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

int16_t Clamped(float value) {
    using Limits = std::numeric_limits<int16_t>;
    return static_cast<int16_t>(std::clamp<float>(value, Limits::min(), Limits::max()));
}

} // namespace

void Reverb::Add(std::span<float> bus) {
    if (m_combs.empty())
        for (const size_t frames : kCombFrames)
            m_combs.push_back({std::vector<float>(frames * 2)});
    const float part = static_cast<float>(level) / kMost;
    const float wet = part * kWet / static_cast<float>(m_combs.size());
    for (float& value : bus) {
        const float dry = value;
        for (Comb& comb : m_combs) {
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
    const std::lock_guard lock(m_mutex);
    Reap();
    if (m_voices.size() == kMostVoices)
        m_voices.erase(m_voices.begin());
    const bool ended = sound->Frames() == 0;
    m_voices.push_back({++m_last, std::move(sound), loop, ended, 0, {}});
    return m_last;
}

void Voices::Stop(Id id) {
    const std::lock_guard lock(m_mutex);
    if (Voice* const voice = Find(id))
        voice->ended = true;
    Reap();
}

std::optional<Voices::Settings> Voices::Get(Id id) {
    const std::lock_guard lock(m_mutex);
    Reap();
    const Voice* const voice = Find(id);
    return voice ? std::optional(voice->settings) : std::nullopt;
}

void Voices::Set(Id id, const Settings& settings) {
    const std::lock_guard lock(m_mutex);
    if (Voice* const voice = Find(id))
        voice->settings = settings;
}

Voices::Levels Voices::AllLevels() const {
    const std::lock_guard lock(m_mutex);
    return m_levels;
}

void Voices::AllLevels(const Levels& levels) {
    const std::lock_guard lock(m_mutex);
    m_levels = levels;
    m_reverb.level = levels.reverb;
}

void Voices::Mix(std::span<int16_t> stream) {
    const std::lock_guard lock(m_mutex);
    m_bus.assign(stream.size() / 2 * 2, 0);
    for (Voice& voice : m_voices)
        MixVoice(voice);
    if (m_levels.reverb > 0)
        m_reverb.Add(m_bus);
    for (size_t i = 0; i < m_bus.size(); ++i)
        stream[i] = Clamped(static_cast<float>(stream[i]) + m_bus[i]);
}

void Voices::Reap() {
    std::erase_if(m_voices, [](const Voice& voice) { return voice.ended; });
}

Voices::Voice* Voices::Find(Id id) {
    const auto found = std::find_if(m_voices.begin(), m_voices.end(),
                                    [id](const Voice& voice) { return voice.id == id; });
    return found == m_voices.end() ? nullptr : &*found;
}

// Resamples the sound to its frequency, with linear interpolation between its frames.
void Voices::MixVoice(Voice& voice) {
    const std::vector<int16_t>& values = voice.sound->values;
    const size_t frames = voice.sound->Frames();
    const Gains gains = GainsOf(voice.settings, m_levels);
    const double step = static_cast<double>(voice.settings.frequency) / kMiddle;
    for (size_t i = 0; i < m_bus.size() && !voice.ended; i += 2) {
        if (voice.position >= static_cast<double>(frames)) {
            voice.ended = !voice.loop;
            if (voice.ended)
                return;
            voice.position = std::fmod(voice.position, static_cast<double>(frames));
        }
        const auto at = static_cast<size_t>(voice.position);
        const size_t next = at + 1 < frames ? at + 1 : (voice.loop ? 0 : at);
        const float part = static_cast<float>(voice.position - static_cast<double>(at));
        const auto between = [&](size_t side) {
            const float first = values[at * 2 + side];
            return first + part * (static_cast<float>(values[next * 2 + side]) - first);
        };
        m_bus[i] += between(0) * gains.left;
        m_bus[i + 1] += between(1) * gains.right;
        voice.position += step;
    }
}

} // namespace player
