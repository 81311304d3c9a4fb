// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Folder.h"
#include "player/LuaHost.h"
#include "player/Player.h"
#include "player/Power.h"
#include "player/Userdata.h"
#include "player/api/Api.h"
#include "player/api/Files.h"

#include <cstdio>
#include <string>
#include <string_view>

namespace player {
namespace {

// Says, the first time, that a desktop has nothing of the kind.
template<const char* const& what>
void Lack() {
    static bool said = false;
    if (!said)
        std::fprintf(stderr, "luaplayer: este equipo no tiene %s; la llamada no hace nada\n", what);
    said = true;
}

constexpr const char* kInfrared = "puerto de infrarrojos";
constexpr const char* kUsbDisk = "modo de disco USB";

template<const char* const& what>
int Nothing(lua_State*, Player&) {
    Lack<what>();
    return 0;
}

int IrdaWrite(lua_State* L, Player&) {
    Text(L, 1);
    Lack<kInfrared>();
    return 0;
}

int IrdaRead(lua_State* L, Player&) {
    Lack<kInfrared>();
    lua_pushliteral(L, "");
    return 1;
}

void Push(lua_State* L, bool value) {
    lua_pushboolean(L, value ? 1 : 0);
}
void Push(lua_State* L, int value) {
    lua_pushinteger(L, value);
}
void Push(lua_State* L, double value) {
    lua_pushnumber(L, value);
}

// One value of the power supplies.
template<auto value>
int PowerValue(lua_State* L, Player& player) {
    Push(L, value(ReadPower(player.powerFolder)));
    return 1;
}

// The screen stays awake by itself as long as the window stands.
int Tick(lua_State*, Player&) {
    return 0;
}

int CurrentDirectory(lua_State* L, Player& player) {
    if (Given(L, 1))
        player.folder.CurrentDirectory(Text(L, 1));
    const std::string path = player.folder.CurrentDirectory();
    lua_pushlstring(L, path.data(), path.size());
    return 1;
}

int ListDirectory(lua_State* L, Player& player) {
    const auto entries = player.folder.List(Given(L, 1) ? Text(L, 1) : ".");
    lua_createtable(L, static_cast<int>(entries.size()), 0);
    int index = 0;
    for (const Folder::Entry& entry : entries) {
        lua_createtable(L, 0, 3);
        lua_pushlstring(L, entry.name.data(), entry.name.size());
        lua_setfield(L, -2, "name");
        lua_pushnumber(L, static_cast<lua_Number>(entry.size));
        lua_setfield(L, -2, "size");
        lua_pushboolean(L, entry.directory ? 1 : 0);
        lua_setfield(L, -2, "directory");
        lua_rawseti(L, -2, ++index);
    }
    return 1;
}

// True, or nil and the reason; what leads out of the folder is an error.
template<void (Folder::*change)(std::string_view) const>
int Change(lua_State* L, Player& player) {
    const std::string path = Text(L, 1);
    try {
        (player.folder.*change)(path);
    } catch (const FolderError& error) {
        if (error.Outside())
            throw;
        return Refuse(L, error);
    }
    lua_pushboolean(L, 1);
    return 1;
}

int GetFreeMemory(lua_State* L, Player& player) {
    lua_pushnumber(L, static_cast<lua_Number>(player.memory.Free()));
    return 1;
}

constexpr luaL_Reg kSystem[] = {
    {"powerIsPowerOnline", &Call<&PowerValue<[](const Power& p) { return p.online; }>>},
    {"powerIsBatteryCharging",
     &Call<&PowerValue<[](const Power& p) { return p.charging == Power::Charging::Yes; }>>},
    {"powerGetBatteryChargingStatus",
     &Call<&PowerValue<[](const Power& p) { return static_cast<int>(p.charging); }>>},
    {"powerGetBatteryLifePercent", &Call<&PowerValue<[](const Power& p) { return p.percent; }>>},
    {"powerGetBatteryLifeTime", &Call<&PowerValue<[](const Power& p) { return p.minutes; }>>},
    {"powerGetBatteryTemp", &Call<&PowerValue<[](const Power& p) { return p.temperature; }>>},
    {"powerGetBatteryVolt", &Call<&PowerValue<[](const Power& p) { return p.volts; }>>},
    {"powerIsBatteryExist", &Call<&PowerValue<[](const Power& p) { return p.battery; }>>},
    {"powerIsLowBattery", &Call<&PowerValue<[](const Power& p) { return p.Low(); }>>},
    {"powerTick", &Call<&Tick>},
    {"irdaInit", &Call<&Nothing<kInfrared>>},
    {"irdaWrite", &Call<&IrdaWrite>},
    {"irdaRead", &Call<&IrdaRead>},
    {"currentDirectory", &Call<&CurrentDirectory>},
    {"listDirectory", &Call<&ListDirectory>},
    {"createDirectory", &Call<&Change<&Folder::MakeDirectory>>},
    {"removeDirectory", &Call<&Change<&Folder::RemoveDirectory>>},
    {"removeFile", &Call<&Change<&Folder::RemoveFile>>},
    {"getFreeMemory", &Call<&GetFreeMemory>},
    {"usbDiskModeActivate", &Call<&Nothing<kUsbDisk>>},
    {"usbDiskModeDeactivate", &Call<&Nothing<kUsbDisk>>},
    {nullptr, nullptr},
};

} // namespace

void OpenSystem(lua_State* L, Player& player) {
    PushTable(L, kSystem);
    lua_setglobal(L, "System");
    OpenFiles(L, player);
}

} // namespace player
