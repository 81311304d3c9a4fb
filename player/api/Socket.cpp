// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/LuaHost.h"
#include "player/Network.h"
#include "player/Player.h"
#include "player/ScriptError.h"
#include "player/Userdata.h"
#include "player/api/Api.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace player {
namespace {

constexpr int kLastPort = 65535;
constexpr size_t kLongestHost = 255;

struct Handle {
    static constexpr const char* kName = "Socket";
    std::shared_ptr<Socket> socket;
};

Socket& Self(lua_State* L) {
    return *Type<Handle>::Check(L, 1).socket;
}

// Socket.f(x) and Socket:f(x) are the same.
int FirstArgument(lua_State* L) {
    return lua_istable(L, 1) || lua_isuserdata(L, 1) ? 2 : 1;
}

int Port(lua_State* L, int index) {
    const int port = Integer(L, index);
    if (port < 1 || port > kLastPort)
        BadArgument(L, index, "un puerto de 1 a 65535");
    return port;
}

int Push(lua_State* L, Player& player, Socket socket) {
    Type<Handle>::Push(L, {player.network.Add(std::move(socket))});
    return 1;
}

int Refuse(lua_State* L, const std::string& reason) {
    lua_pushnil(L);
    lua_pushstring(L, reason.c_str());
    return 2;
}

int Connect(lua_State* L, Player& player) {
    const int first = FirstArgument(L);
    const std::string host = Text(L, first);
    const int port = Port(L, first + 1);
    if (host.empty() || host.size() > kLongestHost || host.find('\0') != std::string::npos)
        BadArgument(L, first, "el nombre o la dirección de un equipo");
    player.network.CheckRoom();
    return Push(L, player, Socket::Connect(host, port));
}

int CreateServerSocket(lua_State* L, Player& player) {
    const int port = Port(L, FirstArgument(L));
    player.network.CheckRoom();
    try {
        return Push(L, player, Socket::Listen(port));
    } catch (const ScriptError& error) {
        return Refuse(L, error.what());
    }
}

int Accept(lua_State* L, Player& player) {
    Socket& self = Self(L);
    if (self.Closed())
        return Refuse(L, self.Failure());
    if (!self.Listening())
        throw ScriptError("solo un socket de createServerSocket puede aceptar conexiones");
    player.network.CheckRoom();
    std::optional<Socket> accepted = self.Accept();
    if (accepted)
        return Push(L, player, std::move(*accepted));
    lua_pushnil(L);
    return 1;
}

// With the reason, once there is one.
int IsConnected(lua_State* L, Player&) {
    Socket& self = Self(L);
    lua_pushboolean(L, self.Connected() ? 1 : 0);
    if (self.Failure().empty())
        return 1;
    lua_pushstring(L, self.Failure().c_str());
    return 2;
}

int Receive(lua_State* L, Player&) {
    const std::string bytes = Self(L).Receive();
    lua_pushlstring(L, bytes.data(), bytes.size());
    return 1;
}

int Send(lua_State* L, Player&) {
    Socket& self = Self(L);
    if (self.Listening())
        throw ScriptError("un socket de createServerSocket no envía; el que da accept, sí");
    const size_t count = self.Send(Text(L, 2));
    if (self.Closed())
        return Refuse(L, self.Failure());
    lua_pushnumber(L, static_cast<lua_Number>(count));
    return 1;
}

int Close(lua_State* L, Player&) {
    Self(L).Close();
    return 0;
}

constexpr luaL_Reg kSocket[] = {
    {"connect", &Call<&Connect>}, {"createServerSocket", &Call<&CreateServerSocket>},
    {"accept", &Call<&Accept>},   {"isConnected", &Call<&IsConnected>},
    {"recv", &Call<&Receive>},    {"send", &Call<&Send>},
    {"close", &Call<&Close>},     {nullptr, nullptr},
};

} // namespace

void OpenSocket(lua_State* L, Player&) {
    PushTable(L, kSocket);
    Type<Handle>::Register(L);
    lua_setglobal(L, "Socket");
}

} // namespace player
