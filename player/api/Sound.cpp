// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/LuaHost.h"
#include "player/Memory.h"
#include "player/Player.h"
#include "player/Userdata.h"
#include "player/Voices.h"
#include "player/api/Api.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace player {
namespace {

constexpr size_t kLargestFile = size_t{64} << 20;

struct Sound {
    static constexpr const char* kName = "Sound";
    Voices::Sound samples;
    bool loop = false;
};

struct Voice {
    static constexpr const char* kName = "Voice";
    Voices::Id id = 0;
};

// Reserves what decoding may take, and then what the samples do take.
int LoadSound(lua_State* L, Player& player) {
    const std::string path = Text(L, 1);
    const bool loop = Boolean(L, 2, false);
    const std::string file = player.folder.Read(path, std::min(kLargestFile, player.memory.Free()));
    Share most = Reserve(L, player.audio.DecodedSize(file));
    auto samples = std::make_shared<Samples>(player.audio.Decode(file, path));
    most = Share();
    samples->share = Reserve(L, samples->values.size() * sizeof(samples->values[0]));
    Type<Sound>::Push(L, {std::move(samples), loop});
    return 1;
}

int Play(lua_State* L, Player& player) {
    const Sound& sound = Type<Sound>::Check(L, 1);
    Type<Voice>::Push(L, {player.audio.voices.Start(sound.samples, sound.loop)});
    return 1;
}

int Stop(lua_State* L, Player& player) {
    player.audio.voices.Stop(Type<Voice>::Check(L, 1).id);
    return 0;
}

int Playing(lua_State* L, Player& player) {
    lua_pushboolean(L, player.audio.voices.Get(Type<Voice>::Check(L, 1).id) ? 1 : 0);
    return 1;
}

// Sets one setting of a voice, if a number is given, and answers it. A voice that has ended has
// none.
template<int Voices::Settings::*setting, int most>
int Adjust(lua_State* L, Player& player) {
    const Voices::Id id = Type<Voice>::Check(L, 1).id;
    auto settings = player.audio.voices.Get(id).value_or(Voices::Settings());
    if (Given(L, 2)) {
        settings.*setting = std::clamp(Integer(L, 2), 0, most);
        player.audio.voices.Set(id, settings);
    }
    lua_pushinteger(L, settings.*setting);
    return 1;
}

// The same for one level of all voices.
template<int Voices::Levels::*level, int most>
int AdjustAll(lua_State* L, Player& player) {
    auto levels = player.audio.voices.AllLevels();
    if (Given(L, 1)) {
        levels.*level = std::clamp(Integer(L, 1), 0, most);
        player.audio.voices.AllLevels(levels);
    }
    lua_pushinteger(L, levels.*level);
    return 1;
}

constexpr luaL_Reg kSoundSystem[] = {
    {"SFXVolume", &Call<&AdjustAll<&Voices::Levels::volume, Voices::kMostLevel>>},
    {"reverb", &Call<&AdjustAll<&Voices::Levels::reverb, Reverb::kMost>>},
    {"panoramicSeparation", &Call<&AdjustAll<&Voices::Levels::separation, Voices::kMostLevel>>},
    {nullptr, nullptr},
};

constexpr luaL_Reg kSound[] = {
    {"load", &Call<&LoadSound>},
    {"play", &Call<&Play>},
    {nullptr, nullptr},
};

constexpr luaL_Reg kVoice[] = {
    {"stop", &Call<&Stop>},
    {"volume", &Call<&Adjust<&Voices::Settings::volume, Voices::kMostVolume>>},
    {"pan", &Call<&Adjust<&Voices::Settings::pan, Voices::kMostPan>>},
    {"frequency", &Call<&Adjust<&Voices::Settings::frequency, Voices::kMostFrequency>>},
    {"playing", &Call<&Playing>},
    {nullptr, nullptr},
};

} // namespace

void OpenSound(lua_State* L, Player&) {
    PushTable(L, kSoundSystem);
    lua_setglobal(L, "SoundSystem");
    PushTable(L, kSound);
    Type<Sound>::Register(L);
    lua_setglobal(L, "Sound");
    PushTable(L, kVoice);
    Type<Voice>::Register(L);
    lua_setglobal(L, "Voice");
}

} // namespace player
