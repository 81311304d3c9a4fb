// SPDX-License-Identifier: GPL-3.0-or-later
#include "Script.h"

#include <algorithm>
#include <cstring>

namespace player {
namespace {

using Frames = std::vector<std::int16_t>;

Voices::Sound Made(Frames values) {
    auto samples = std::make_shared<Samples>();
    samples->values = std::move(values);
    return samples;
}

Frames Mixed(Voices& voices, std::size_t frames) {
    Frames stream(frames * 2);
    voices.Mix(stream);
    return stream;
}

TEST(VoicesTest, MixVolumePanPitchAndLoops) {
    const auto sound = Made({100, 1000, 200, 2000});
    Voices voices;
    const auto id = voices.Start(sound, false);
    EXPECT_EQ(Mixed(voices, 3), (Frames{100, 1000, 200, 2000, 0, 0}));
    EXPECT_FALSE(voices.Get(id));

    struct Case {
        Voices::Settings settings;
        Voices::Levels levels;
        Frames heard;
    };
    const Case cases[] = {
        {{5, 128, 128}, {}, {20, 200, 40, 400}},
        {{25, 0, 128}, {}, {100, 0, 200, 0}},
        {{25, 255, 128}, {}, {0, 1000, 0, 2000}},
        {{25, 255, 128}, {128, 0, 0}, {100, 1000, 200, 2000}},
        {{25, 128, 128}, {64, 0, 128}, {50, 500, 100, 1000}},
        {{25, 128, 64}, {}, {100, 1000, 150, 1500}},
        {{25, 128, 0}, {}, {100, 1000, 100, 1000}},
    };
    for (const Case& known : cases) {
        Voices other;
        other.AllLevels(known.levels);
        other.Set(other.Start(sound, true), known.settings);
        EXPECT_EQ(Mixed(other, 2), known.heard);
    }
    const auto round = voices.Start(sound, true);
    EXPECT_EQ(Mixed(voices, 3)[4], 100);
    voices.Stop(round);
    EXPECT_EQ(Mixed(voices, 1)[0], 0);
}

TEST(VoicesTest, AreBounded) {
    Voices voices;
    const auto first = voices.Start(Made(Frames(200, 30000)), true);
    EXPECT_FALSE(voices.Get(voices.Start(Made({}), true)));
    for (std::size_t i = 2; i < Voices::kMostVoices; ++i)
        voices.Start(Made(Frames(200, 30000)), true);
    EXPECT_TRUE(voices.Get(first));
    EXPECT_EQ(Mixed(voices, 1)[0], 32767);
    voices.Start(Made({0, 0}), true);
    EXPECT_TRUE(voices.Get(first));
    voices.Start(Made({0, 0}), true);
    EXPECT_FALSE(voices.Get(first));
}

TEST(VoicesTest, ReverbGoesOnAfterTheSound) {
    Voices voices;
    voices.AllLevels({128, 15, 128});
    voices.Start(Made({20000, 20000}), false);
    Mixed(voices, 100);
    const Frames tail = Mixed(voices, 4000);
    EXPECT_GT(*std::max_element(tail.begin(), tail.end()), 1000);
    for (int i = 0; i < 200; ++i)
        Mixed(voices, 4000);
    const Frames silence = Mixed(voices, 4000);
    EXPECT_EQ(std::count(silence.begin(), silence.end(), 0), 8000);
}

// Without a sound device, as on a build machine.
class SoundTest : public ScriptTest {
protected:
    SoundTest() { setenv("SDL_AUDIODRIVER", "dummy", 1); }

    static std::string Wave(std::uint32_t rate, std::size_t frames) {
        const auto size = static_cast<std::uint32_t>(frames);
        const std::uint32_t words[] = {size + 36, 16, 0x10001, rate, rate, 0x80001, size};
        std::string header = "RIFF....WAVEfmt ....................data....";
        const std::size_t places[] = {4, 16, 20, 24, 28, 32, 40};
        for (std::size_t i = 0; i < std::size(words); ++i)
            std::memcpy(header.data() + places[i], &words[i], sizeof(words[i]));
        return header + std::string(frames, '\xC0');
    }
};

TEST_F(SoundTest, PlaysSoundsAndMusic) {
    Put(folder / "corto.wav", Wave(22050, 2205));
    Put(folder / "largo.wav", Wave(8000, 80000));
    Put(folder / "enorme.wav", Wave(1, 5000));
    Put(folder / "basura.wav", std::string(500, 'x'));
    EXPECT_EQ(Run(R"(
        local before = System.getFreeMemory()
        local short, round = Sound.load("corto.wav"), Sound.load("corto.wav", true)
        local taken = before - System.getFreeMemory()
        assert(taken > 30000 and taken < 60000, taken)
        local voice, other = short:play(), round:play()
        assert(voice:playing() and voice:volume(99) == 25 and voice:pan(-1) == 0)
        assert(voice:frequency(255) == 255 and voice:frequency() == 255)
        assert(SoundSystem.SFXVolume(64) == 64 and SoundSystem.reverb(99) == 15)
        assert(SoundSystem.panoramicSeparation(128) == 128)
        local stop = os.time() + 10
        while voice:playing() and os.time() < stop do end
        assert(not voice:playing() and other:playing())
        other:stop()
        assert(not other:playing())
        local ok, reason = pcall(Sound.load, "enorme.wav")
        assert(not ok and reason:find("memoria"), reason)
        for _, bad in ipairs{"basura.wav", "nada.wav", "../x.wav", ""} do
            assert(not pcall(Sound.load, bad) and not pcall(Music.playFile, bad))
        end
        assert(not pcall(short.play, voice) and not pcall(voice.pan, short, 1))

        assert(not Music.playing())
        Music.pause() Music.resume() Music.stop()
        Music.playFile("largo.wav", false)
        assert(Music.playing() and Music.volume() == 128 and Music.volume(40) == 40)
        Music.pause() assert(not Music.playing())
        Music.resume() assert(Music.playing())
        Music.stop() assert(not Music.playing())
        Music.playFile("largo.wav", true))"),
              "");
}

TEST_F(SoundTest, AMachineWithoutSoundPlaysInSilence) {
    setenv("SDL_AUDIODRIVER", "no-hay", 1);
    Put(folder / "corto.wav", Wave(22050, 2205));
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(Run("Sound.load('corto.wav'):play() Music.playFile('corto.wav') Music.stop()"), "");
    const std::string said = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(said.find("se sigue en silencio"), std::string::npos);
    EXPECT_EQ(said.find("silencio"), said.rfind("silencio"));
}

} // namespace
} // namespace player
