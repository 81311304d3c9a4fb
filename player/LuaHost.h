// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/Failure.h"
#include "player/Memory.h"
#include "player/Player.h"

#include <lua.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace player {

/// Gives a new state the libraries that its script may use.
using LibraryOpener = void (*)(lua_State*, Player&);

/// The Lua state of a script. Runs in the script's thread only.
class LuaHost {
public:
    LuaHost(Player& player, LibraryOpener openLibraries);
    ~LuaHost();
    LuaHost(const LuaHost&) = delete;
    LuaHost& operator=(const LuaHost&) = delete;

    std::optional<Failure> Run(const std::string& source, const std::string& name);

private:
    Player& m_player;
    lua_State* m_state = nullptr;
};

Player& PlayerOf(lua_State* L);

/// A function of the script's libraries. It may throw ScriptError, and must not call what raises a
/// Lua error on bad arguments (luaL_check..., luaL_error, lua_call...): Userdata.h has what throws.
using Function = int (*)(lua_State*, Player&);

/// Runs it with C++ exceptions turned into Lua errors, after all destructors.
int Guarded(lua_State* L, Function function);

/// What is registered with Lua for a function.
template<Function function>
int Call(lua_State* L) {
    return Guarded(L, function);
}

/// Counts memory outside of Lua; collects garbage if need be, and throws ScriptError if that isn't
/// enough. Called within a function of the script's libraries.
Share Reserve(lua_State* L, size_t bytes);

/// Compiles a script's text onto the stack, or throws ScriptError. Bytecode is refused.
void Load(lua_State* L, std::string_view source, const std::string& name);

} // namespace player
