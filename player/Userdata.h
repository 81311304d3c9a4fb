// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <lua.hpp>
#include <string>
#include <utility>

namespace player {

/// The arguments of a function. Each throws ScriptError with a Spanish message.
[[noreturn]] void BadArgument(lua_State* L, int index, const std::string& expected);
double Number(lua_State* L, int index);
/// Any number as a coordinate: rounded down, and within what sums can't overflow.
int Integer(lua_State* L, int index);
int Integer(lua_State* L, int index, int otherwise);
std::string Text(lua_State* L, int index);
bool Boolean(lua_State* L, int index, bool otherwise);
inline bool Given(lua_State* L, int index) {
    return !lua_isnoneornil(L, index);
}

/// A type of the script's values: T needs `static constexpr const char* kName`.
template<class T>
struct Type {
    static inline char tag = 0;

    static T* Find(lua_State* L, int index) {
        void* const value = lua_touserdata(L, index);
        if (!value || !lua_getmetatable(L, index))
            return nullptr;
        lua_rawgeti(L, -1, 1);
        const bool same = lua_touserdata(L, -1) == &tag;
        lua_pop(L, 2);
        return same ? static_cast<T*>(value) : nullptr;
    }

    static T& Check(lua_State* L, int index) {
        T* const value = Find(L, index);
        if (!value)
            BadArgument(L, index, std::string("un objeto ") + T::kName);
        return *value;
    }

    static int Collect(lua_State* L) {
        static_cast<T*>(lua_touserdata(L, 1))->~T();
        return 0;
    }

    /// Makes the metatable; the table of methods is on top of the stack, and stays there.
    static void Register(lua_State* L, const char* name = T::kName) {
        luaL_newmetatable(L, name);
        lua_pushlightuserdata(L, &tag);
        lua_rawseti(L, -2, 1);
        lua_pushcfunction(L, &Collect);
        lua_setfield(L, -2, "__gc");
        lua_pushvalue(L, -2);
        lua_setfield(L, -2, "__index");
        lua_pushstring(L, T::kName);
        lua_setfield(L, -2, "__metatable");
        lua_pop(L, 1);
    }

    static T& Push(lua_State* L, T value, const char* name = T::kName) {
        void* const place = lua_newuserdata(L, sizeof(T));
        T* const made = new (place) T(std::move(value));
        luaL_getmetatable(L, name);
        lua_setmetatable(L, -2);
        return *made;
    }
};

/// Puts a table of functions on the stack: luaL_Reg entries made with Call<...>, ended by {}.
inline void PushTable(lua_State* L, const luaL_Reg* functions) {
    lua_newtable(L);
    luaL_register(L, nullptr, functions);
}

} // namespace player
