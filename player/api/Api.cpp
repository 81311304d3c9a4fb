// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/api/Api.h"

#include "player/LuaHost.h"
#include "player/ScriptError.h"
#include "player/Userdata.h"

#include <array>
#include <string>

namespace player {
namespace {

constexpr luaL_Reg kLuaLibraries[] = {
    {"", luaopen_base},
    {LUA_TABLIBNAME, luaopen_table},
    {LUA_STRLIBNAME, luaopen_string},
    {LUA_MATHLIBNAME, luaopen_math},
};

// What reads files or compiled programs, and newproxy, whose __gc would run code of the script
// while memory is freed.
constexpr std::array kRemoved = {"newproxy", "loadfile", "dofile", "load", "loadstring"};

int Print(lua_State* L, Player& player) {
    std::string line;
    const int count = lua_gettop(L);
    for (int i = 1; i <= count; ++i) {
        size_t size = 0;
        const char* const text = lua_tolstring(L, i, &size);
        line.append(i > 1 ? "\t" : "").append(text, size);
    }
    line += '\n';
    player.stage.Print(line);
    return 0;
}

// Turns the values into texts with tostring first, which may be the script's own.
int PrintAll(lua_State* L) {
    const int count = lua_gettop(L);
    for (int i = 1; i <= count; ++i) {
        lua_getglobal(L, "tostring");
        lua_pushvalue(L, i);
        lua_call(L, 1, 1);
        if (!lua_isstring(L, -1))
            return luaL_error(L, "'tostring' debe devolver un texto");
        lua_replace(L, i);
    }
    return Guarded(L, &Print);
}

int LoadText(lua_State* L, Player&) {
    try {
        Load(L, Text(L, 1), Given(L, 2) ? Text(L, 2) : "texto");
    } catch (const ScriptError& error) {
        lua_pushnil(L);
        lua_pushstring(L, error.what());
        return 2;
    }
    return 1;
}

// Runs the function of Lua's own that it stands for.
int Original(lua_State* L) {
    return lua_tocfunction(L, lua_upvalueindex(1))(L);
}

// Lua's matcher recurses on the C stack as deep as the pattern is long.
template<bool find>
int Match(lua_State* L) {
    constexpr size_t kLongest = 8192;
    const bool plain = find && lua_toboolean(L, 4) != 0;
    if (!plain && lua_type(L, 2) == LUA_TSTRING && lua_objlen(L, 2) > kLongest)
        return luaL_error(L, "el patrón es demasiado largo");
    return Original(L);
}

// Lua's unpack counts in an int, which may overflow.
int Unpack(lua_State* L) {
    constexpr lua_Number kMost = 1e6;
    const lua_Number first = luaL_optnumber(L, 2, 1);
    const lua_Number last = luaL_optnumber(L, 3, static_cast<lua_Number>(lua_objlen(L, 1)));
    if (!(last - first < kMost))
        return luaL_error(L, "demasiados valores para 'unpack'");
    return Original(L);
}

void Watch(lua_State* L, const char* library, const char* name, lua_CFunction watched) {
    lua_getglobal(L, library);
    lua_getfield(L, -1, name);
    lua_pushcclosure(L, watched, 1);
    lua_setfield(L, -2, name);
    lua_pop(L, 1);
}

// Of the debug library only what can't undo the player's own hook and limits.
void OpenDebug(lua_State* L) {
    lua_pushcfunction(L, luaopen_debug);
    lua_pushstring(L, LUA_DBLIBNAME);
    lua_call(L, 1, 0);
    lua_getglobal(L, LUA_DBLIBNAME);
    lua_getfield(L, -1, "traceback");
    lua_pushvalue(L, -1);
    lua_setfield(L, LUA_REGISTRYINDEX, "traceback");
    lua_newtable(L);
    lua_insert(L, -2);
    lua_setfield(L, -2, "traceback");
    lua_getfield(L, LUA_REGISTRYINDEX, "_LOADED"); // where require finds it
    lua_pushvalue(L, -2);
    lua_setfield(L, -2, LUA_DBLIBNAME);
    lua_pop(L, 1);
    lua_setglobal(L, LUA_DBLIBNAME);
    lua_pop(L, 1);
}

void OpenLua(lua_State* L) {
    for (const luaL_Reg& library : kLuaLibraries) {
        lua_pushcfunction(L, library.func);
        lua_pushstring(L, library.name);
        lua_call(L, 1, 0);
    }
    for (const char* name : kRemoved) {
        lua_pushnil(L);
        lua_setglobal(L, name);
    }
    OpenDebug(L);
    Watch(L, "_G", "unpack", &Unpack);
    Watch(L, LUA_STRLIBNAME, "find", &Match<true>);
    for (const char* name : {"match", "gmatch", "gfind", "gsub"})
        Watch(L, LUA_STRLIBNAME, name, &Match<false>);
    lua_register(L, "print", &PrintAll);
    lua_register(L, "loadstring", &Call<&LoadText>);
}

} // namespace

void OpenLibraries(lua_State* L, Player& player) {
    constexpr LibraryOpener kOpeners[] = {
        &OpenColor,  &OpenImage, &OpenScreen, &OpenFont, &OpenControls,
        &OpenSystem, &OpenMusic, &OpenSound,  &OpenWlan, &OpenSocket,
    };
    OpenLua(L);
    for (const LibraryOpener open : kOpeners) {
        open(L, player);
        lua_settop(L, 0);
    }
}

} // namespace player
