// SPDX-License-Identifier: GPL-3.0-or-later
#include "Script.h"
#include "player/Voices.h"

#include <algorithm>
#include <sstream>

namespace player {
namespace {

using Frames = std::vector<int16_t>;

Voices::Sound Made(Frames values) {
    return std::make_shared<Samples>(Samples{std::move(values), {}});
}

Frames Mixed(Voices& voices, size_t frames) {
    Frames stream(frames * 2);
    voices.Mix(stream);
    return stream;
}

TEST(VoicesTest, VoicesMixVolumePanPitchAndLoops) {
    const auto sound = Made({100, 1000, 200, 2000});
    Voices voices;
    const auto id = voices.Start(sound, false);
    EXPECT_EQ(Mixed(voices, 3), (Frames{100, 1000, 200, 2000, 0, 0}));
    EXPECT_FALSE(voices.Get(id));
    constexpr int kLoud = Voices::kMostVolume, kRight = Voices::kMostPan, kMiddle = Voices::kMiddle;
    const std::tuple<Voices::Settings, Voices::Levels, Frames> known[] = {
        {{kLoud / 5, kMiddle, kMiddle}, {}, {20, 200, 40, 400}},
        {{kLoud, 0, kMiddle}, {}, {100, 0, 200, 0}},
        {{kLoud, kRight, kMiddle}, {}, {0, 1000, 0, 2000}},
        {{kLoud, kRight, kMiddle}, {.separation = 0}, {100, 1000, 200, 2000}},
        {{kLoud, kMiddle, kMiddle}, {.volume = 64}, {50, 500, 100, 1000}},
        {{kLoud, kMiddle, kMiddle / 2}, {}, {100, 1000, 150, 1500}}};
    for (const auto& [settings, levels, heard] : known) {
        voices.AllLevels(levels);
        const auto round = voices.Start(sound, true);
        voices.Set(round, settings);
        EXPECT_EQ(Mixed(voices, 2), heard);
        EXPECT_EQ(Mixed(voices, 1)[1], settings.frequency == kMiddle ? heard[1] : 2000);
        voices.Stop(round);
        EXPECT_EQ(Mixed(voices, 1)[0], 0);
    }
}

TEST(VoicesTest, VoicesAreBoundedAndRingOn) {
    Voices voices;
    const auto first = voices.Start(Made(Frames(200, 30000)), true);
    EXPECT_FALSE(voices.Get(voices.Start(Made({}), true)));
    for (size_t i = 1; i < Voices::kMostVoices; ++i)
        voices.Start(Made(Frames(200, 30000)), false);
    EXPECT_EQ(Mixed(voices, 1)[0], 32767);
    EXPECT_TRUE(voices.Get(first));
    voices.AllLevels({.reverb = Reverb::kMost});
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

TEST_F(MachineTest, SoundsAndMusicArePlayed) {
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    Put(folder / "corto.wav", Wave(22050, 2205));
    Put(folder / "largo.wav", Wave(8000, 80000));
    Put(folder / "enorme.wav", Wave(1, 5000));
    Put(folder / "basura.wav", std::string(500, 'x'));
    Passes(R"lua(local before = System.getFreeMemory()
local short, round = Sound.load("corto.wav"), Sound.load("corto.wav", true)
local taken = before - System.getFreeMemory() assert(taken > 30000 and taken < 60000, taken)
local voice, other = short:play(), round:play() assert(voice:playing())
equal(voice:volume(99), 25) equal(voice:pan(-1), 0)
equal(voice:frequency(255), 255) equal(voice:frequency(), 255)
equal(SoundSystem.SFXVolume(64), 64) equal(SoundSystem.reverb(99), 15)
equal(SoundSystem.panoramicSeparation(128), 128) fails("memoria", Sound.load, "enorme.wav")
local stop = os.time() + 10 while voice:playing() and os.time() < stop do end
assert(not voice:playing()) assert(other:playing()) other:stop() assert(not other:playing())
fails("Sound", short.play, voice) fails("Voice", voice.pan, short, 1)
for _, bad in ipairs{"basura.wav", "nada.wav", "../x.wav", ""} do
    fails("'" .. bad .. "'", Sound.load, bad) fails("'" .. bad .. "'", Music.playFile, bad)
end)lua");
    Passes(R"lua(Music.pause() Music.resume() Music.stop() assert(not Music.playing())
Music.playFile("largo.wav", false) assert(Music.playing())
equal(Music.volume(), 128) equal(Music.volume(40), 40)
Music.pause() assert(not Music.playing()) Music.resume() assert(Music.playing())
Music.stop() assert(not Music.playing()) Music.playFile("largo.wav", true))lua");
}

TEST_F(MachineTest, WhatTheMachineLacksIsSaidOnce) {
    Put(folder / "corto.wav", Wave(22050, 2205));
    setenv("SDL_AUDIODRIVER", "no-hay", 1);
    ::testing::internal::CaptureStderr();
    Passes(R"lua(Sound.load("corto.wav"):play() Music.playFile("corto.wav") Music.stop()
local silent = "irdaInit irdaWrite usbDiskModeActivate usbDiskModeDeactivate powerTick"
for name in silent:gmatch("%a+") do equal(System[name]("x"), nil) end
equal(System.irdaRead("x"), "") fails("un texto", System.irdaWrite))lua");
    const std::string said = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(said.find("se sigue en silencio"), std::string::npos);
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 3) << said;
}

TEST_F(MachineTest, ThePowerSupplyIsTold) {
    player.powerFolder = around / "power";
    // The values of a supply as "name value" one after another.
    const auto supply = [&](const std::string& name, const std::string& values) {
        std::istringstream words(values);
        for (std::string file, value; words >> file >> value;)
            Put(player.powerFolder / name / file, value + "\n");
    };
    // Online, charging, status, percent, minutes, temperature, volts, battery, low.
    const auto expect = [&](const std::string& figures) {
        EXPECT_EQ(Run(R"lua(local names, figures = "IsPowerOnline IsBatteryCharging " ..
    "GetBatteryChargingStatus GetBatteryLifePercent GetBatteryLifeTime GetBatteryTemp " ..
    "GetBatteryVolt IsBatteryExist IsLowBattery", {}
for name in names:gmatch("%a+") do figures[#figures + 1] = tostring(System["power" .. name]()) end
error(table.concat(figures, " "), 0))lua"),
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
    Passes(R"lua(local function soon(ask)
    local stop, answer = os.time() + 10
    repeat answer = ask() until answer or os.time() > stop
    if not answer then error("not in time", 2) end
    return answer
end
assert(Wlan.init()) assert(#Wlan.getConnectionConfigs() > 0) assert(Wlan.useConnectionConfig(1))
assert(Wlan.getIPAddress():find("^%d+%.%d+%.%d+%.%d+$"))
local port, server = 45000
repeat port = port + 1 server = Socket:createServerSocket(port) until server
fails("puerto " .. port .. ": el puerto ya está en uso", Socket.createServerSocket, port)
equal(server:accept(), nil) assert(not server:isConnected())
local a, text = Socket.connect("localhost", port), ""
local b = soon(function() a:isConnected() return server:accept() end)
soon(function() return a:isConnected() end)
equal(b:isConnected(), true) equal(b:recv(), "") equal(a:send("hola\0\255"), 6)
soon(function() text = text .. b:recv() return text == "hola\0\255" end)
-- Nobody reads: the way fills up, and then takes nothing more.
local sent, got, big = 0, 0, ("x"):rep(1000000)
soon(function() local n = b:send(big) sent = sent + n return n == 0 end)
b:close() assert(not b:isConnected()) assert(not b:send("x"))
soon(function() got = got + #a:recv() return got == sent end)
soon(function() return select(2, a:isConnected()) == "el otro lado cerró la conexión" end)
local c, d = Socket.connect("127.0.0.1", 1), Socket.connect("255.255.255.255", 9)
soon(function() return select(2, c:isConnected()) == "nadie atiende en ese puerto" end)
for _, s in ipairs{a, c} do assert(not s:isConnected()) fails("un texto", s.send, s, {}) end
local ok, reason = d:isConnected() assert(not ok and reason ~= "error de red 0", reason)
fails("Socket", server.recv, io.stdout) fails("el número de una", Wlan.useConnectionConfig, 0)
Wlan.term() equal(server:accept(), nil) assert(not server:isConnected()))lua");
}

} // namespace
} // namespace player
