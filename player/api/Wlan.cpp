// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/LuaHost.h"
#include "player/Network.h"
#include "player/Player.h"
#include "player/Userdata.h"
#include "player/api/Api.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace player {
namespace {

// The machine's network is there anyway.
int Init(lua_State* L, Player&) {
    lua_pushboolean(L, 1);
    return 1;
}

int Term(lua_State*, Player& player) {
    player.network.CloseAll();
    return 0;
}

int GetConnectionConfigs(lua_State* L, Player&) {
    lua_newtable(L);
    int index = 0;
    for (const Connection& connection : Network::Connections()) {
        lua_pushstring(L, connection.name.c_str());
        lua_rawseti(L, -2, ++index);
    }
    return 1;
}

// Chooses whose address the script sees; the system chooses the way that data take.
int UseConnectionConfig(lua_State* L, Player& player) {
    const int number = Integer(L, 1);
    const size_t count = Network::Connections().size();
    if (number < 1 || static_cast<size_t>(number) > count)
        BadArgument(L, 1, "el número de una conexión (hay " + std::to_string(count) + ")");
    player.network.chosen = static_cast<size_t>(number) - 1;
    lua_pushboolean(L, 1);
    return 1;
}

int GetIPAddress(lua_State* L, Player& player) {
    const auto connections = Network::Connections();
    if (connections.empty())
        lua_pushliteral(L, "127.0.0.1");
    else
        lua_pushstring(
            L,
            connections[std::min(player.network.chosen, connections.size() - 1)].address.c_str());
    return 1;
}

constexpr luaL_Reg kWlan[] = {
    {"init", &Call<&Init>},
    {"term", &Call<&Term>},
    {"getConnectionConfigs", &Call<&GetConnectionConfigs>},
    {"useConnectionConfig", &Call<&UseConnectionConfig>},
    {"getIPAddress", &Call<&GetIPAddress>},
    {nullptr, nullptr},
};

} // namespace

void OpenWlan(lua_State* L, Player&) {
    PushTable(L, kWlan);
    lua_setglobal(L, "Wlan");
}

} // namespace player
