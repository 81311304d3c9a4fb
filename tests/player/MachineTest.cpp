// SPDX-License-Identifier: GPL-3.0-or-later
#include "Script.h"
#include "player/Voices.h"

#include <algorithm>
#include <sstream>

namespace player {
namespace {

using Frames = std::vector<int16_t>;

Voices::Sound Made(Frames values) {
    auto samples = std::make_shared<Samples>();
    samples->values = std::move(values);
    return samples;
}

Frames Mixed(Voices& voices, size_t frames) {
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
    const std::tuple<Voices::Settings, Voices::Levels, Frames> known[] = {
        {{5, 128, 128}, {}, {20, 200, 40, 400}},
        {{25, 0, 128}, {}, {100, 0, 200, 0}},
        {{25, 255, 128}, {}, {0, 1000, 0, 2000}},
        {{25, 255, 128}, {128, 0, 0}, {100, 1000, 200, 2000}},
        {{25, 128, 128}, {64, 0, 128}, {50, 500, 100, 1000}},
        {{25, 128, 64}, {}, {100, 1000, 150, 1500}}};
    for (const auto& [settings, levels, heard] : known) {
        voices.AllLevels(levels);
        const auto round = voices.Start(sound, true);
        voices.Set(round, settings);
        EXPECT_EQ(Mixed(voices, 2), heard);
        EXPECT_EQ(Mixed(voices, 1)[1], settings.frequency == 128 ? heard[1] : 2000);
        voices.Stop(round);
        EXPECT_EQ(Mixed(voices, 1)[0], 0);
    }
}

TEST(VoicesTest, AreBoundedAndRingOn) {
    Voices voices;
    const auto first = voices.Start(Made(Frames(200, 30000)), true);
    EXPECT_FALSE(voices.Get(voices.Start(Made({}), true)));
    for (size_t i = 1; i < Voices::kMostVoices; ++i)
        voices.Start(Made(Frames(200, 30000)), false);
    EXPECT_EQ(Mixed(voices, 1)[0], 32767);
    EXPECT_TRUE(voices.Get(first));
    voices.AllLevels({128, 15, 128});
    voices.Start(Made({20000, 20000}), false);
    EXPECT_FALSE(voices.Get(first));
    Mixed(voices, 100);
    EXPECT_GT(std::ranges::max(Mixed(voices, 4000)), 1000);
    for (int i = 0; i < 200; ++i)
        Mixed(voices, 4000);
    EXPECT_EQ(Mixed(voices, 4000), Frames(8000));
}

// A byte per frame.
std::string Wave(uint32_t rate, uint32_t frames) {
    std::string wave = "RIFF";
    const std::pair<uint32_t, const char*> words[] = {
        {frames + 36, "WAVEfmt "}, {16, ""},    {0x10001, ""}, {rate, ""}, {rate, ""},
        {0x80001, "data"},         {frames, ""}};
    for (const auto& [word, text] : words)
        wave.append(reinterpret_cast<const char*>(&word), sizeof(word)).append(text);
    return wave.append(frames, '\xC0');
}

using MachineTest = ScriptTest;

TEST_F(MachineTest, PlaysSoundsAndMusic) {
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    Put(folder / "corto.wav", Wave(22050, 2205));
    Put(folder / "largo.wav", Wave(8000, 80000));
    Put(folder / "enorme.wav", Wave(1, 5000));
    Put(folder / "basura.wav", std::string(500, 'x'));
    Passes(R"(
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
        other:stop() assert(not other:playing())
        assert(select(2, pcall(Sound.load, "enorme.wav")):find("memoria"))
        for _, bad in ipairs{"basura.wav", "nada.wav", "../x.wav", ""} do
            assert(not pcall(Sound.load, bad) and not pcall(Music.playFile, bad))
        end
        assert(not pcall(short.play, voice) and not pcall(voice.pan, short, 1))
        Music.pause() Music.resume() Music.stop() assert(not Music.playing())
        Music.playFile("largo.wav", false)
        assert(Music.playing() and Music.volume() == 128 and Music.volume(40) == 40)
        Music.pause() assert(not Music.playing())
        Music.resume() assert(Music.playing())
        Music.stop() assert(not Music.playing())
        Music.playFile("largo.wav", true))");
}

TEST_F(MachineTest, SaysOnceWhatItLacks) {
    Put(folder / "corto.wav", Wave(22050, 2205));
    setenv("SDL_AUDIODRIVER", "no-hay", 1);
    ::testing::internal::CaptureStderr();
    Passes(R"(Sound.load("corto.wav"):play() Music.playFile("corto.wav") Music.stop()
        for _, name in ipairs{"irdaInit", "irdaWrite", "irdaRead", "usbDiskModeActivate",
                "usbDiskModeDeactivate", "powerTick"} do
            assert(System[name]("x") == (name == "irdaRead" and "" or nil))
        end
        assert(not pcall(System.irdaWrite)))");
    const std::string said = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(said.find("se sigue en silencio"), std::string::npos);
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 3) << said;
}

TEST_F(MachineTest, TellsHowItIsFed) {
    player.powerFolder = around / "power";
    // The values of a supply as "name value" one after another.
    const auto supply = [&](const std::string& name, const std::string& values) {
        std::istringstream words(values);
        for (std::string file, value; words >> file >> value;)
            Put(player.powerFolder / name / file, value + "\n");
    };
    // Online, charging, status, percent, minutes, temperature, volts, battery, low.
    const auto expect = [&](const std::string& figures) {
        EXPECT_EQ(Run(R"(local figures = {}
            for i, name in ipairs{"IsPowerOnline", "IsBatteryCharging", "GetBatteryChargingStatus",
                    "GetBatteryLifePercent", "GetBatteryLifeTime", "GetBatteryTemp",
                    "GetBatteryVolt", "IsBatteryExist", "IsLowBattery"} do
                figures[i] = tostring(System["power" .. name]())
            end
            error(table.concat(figures, " "), 0))"),
                  figures);
    };
    expect("true false 0 100 0 0 0 false false");
    supply("mouse", "type Battery scope Device capacity 3 status Discharging");
    supply("AC", "type Mains online 0");
    expect("true false 0 100 0 0 0 false false");
    supply("BAT0", "type Battery present 1 status Discharging capacity 9 energy_now 5000000 "
                   "power_now 10000000 temp 315 voltage_now 11750000");
    expect("false false 0 9 30 31 11.75 true true");
    supply("BAT1", "type Battery status Full capacity 101");
    expect("false false 2 54 30 31 11.75 true false");
    supply("AC", "online 1");
    supply("BAT0", "status Charging temp nada voltage_now 1e999");
    expect("true true 1 54 0 0 0 true false");
}

TEST_F(MachineTest, SocketsTalkWithoutWaiting) {
    Passes(R"(
        local function soon(what, ask)
            local stop, answer = os.time() + 10
            repeat answer = ask() until answer or os.time() > stop
            return assert(answer, what)
        end
        assert(Wlan.init() and #Wlan.getConnectionConfigs() > 0 and Wlan.useConnectionConfig(1))
        assert(Wlan.getIPAddress():find("^%d+%.%d+%.%d+%.%d+$"))
        local port, server = 45000
        repeat port = port + 1 server = Socket:createServerSocket(port) until server
        local none, why = Socket:createServerSocket(port)
        assert(not none and why == "puerto " .. port .. ": el puerto ya está en uso")
        assert(server:accept() == nil and not server:isConnected())
        local a = Socket.connect("localhost", port)
        local b = soon("accept", function() a:isConnected() return server:accept() end)
        soon("connect", function() return a:isConnected() end)
        assert(b:isConnected() == true and b:recv() == "" and a:send("hola\0\255") == 6)
        local text = ""
        soon("recv", function() text = text .. b:recv() return text == "hola\0\255" end)

        -- Nobody reads: the way fills up, and then takes nothing more.
        local sent, got, big = 0, 0, ("x"):rep(1000000)
        soon("full", function() local n = b:send(big) sent = sent + n return n == 0 end)
        b:close() assert(not b:isConnected() and not b:send("x"))
        soon("rest", function() got = got + #a:recv() return got == sent end)
        local function said(socket, text)
            soon(text, function() return select(2, socket:isConnected()) == text end)
            assert(not socket:isConnected() and not pcall(socket.send, socket, {}))
        end
        said(a, "el otro lado cerró la conexión")
        said(Socket.connect("127.0.0.1", 1), "nadie atiende en ese puerto")
        local ok, reason = Socket.connect("255.255.255.255", 9):isConnected()
        assert(not ok and reason ~= "error de red 0")
        assert(not pcall(server.recv, io.stdout) and not pcall(Wlan.useConnectionConfig, 0))
        Wlan.term()
        assert(server:accept() == nil and not server:isConnected()))");
}

} // namespace
} // namespace player
