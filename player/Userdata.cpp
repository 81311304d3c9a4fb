// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Userdata.h"

#include "player/ScriptError.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace player {
namespace {

constexpr double kFar = 1 << 20;

} // namespace

void BadArgument(lua_State* L, int index, const std::string& expected) {
    lua_Debug call{};
    std::string where;
    if (lua_getstack(L, 0, &call) && lua_getinfo(L, "n", &call) && call.name) {
        if (std::string_view(call.namewhat) == "method")
            --index;
        where = std::string(" de '") + call.name + "'";
    }
    const std::string which =
        index == 0 ? "el objeto" + where : "el argumento " + std::to_string(index) + where;
    throw ScriptError(which + " debe ser " + expected);
}

double Number(lua_State* L, int index) {
    if (!lua_isnumber(L, index))
        BadArgument(L, index, "un número");
    return lua_tonumber(L, index);
}

int Integer(lua_State* L, int index) {
    const double value = Number(L, index);
    return std::isnan(value) ? 0 : static_cast<int>(std::floor(std::clamp(value, -kFar, kFar)));
}

int Integer(lua_State* L, int index, int otherwise) {
    return Given(L, index) ? Integer(L, index) : otherwise;
}

std::string Text(lua_State* L, int index) {
    if (!lua_isstring(L, index))
        BadArgument(L, index, "un texto");
    size_t size = 0;
    const char* const text = lua_tolstring(L, index, &size);
    return {text, size};
}

bool Boolean(lua_State* L, int index, bool otherwise) {
    return Given(L, index) ? lua_toboolean(L, index) != 0 : otherwise;
}

} // namespace player
