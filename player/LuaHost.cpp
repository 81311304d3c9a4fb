// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/LuaHost.h"

#include "core/TextMarks.h"
#include "player/Memory.h"
#include "player/ScriptError.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <new>
#include <string_view>
#include <utility>

namespace player {
namespace {

constexpr int kStepsBetweenLooks = 10000;

// Raises the error that ends the script. A pcall of the script can't hold it up: the hook stays
// set, and raises it again at the next instruction.
int Interrupt(lua_State* L);

// By default Lua's collector starts when its memory has doubled, which may be more than there is:
// the less is free, the sooner it starts.
void TightenCollector(lua_State* L) {
    constexpr size_t kUsual = 200; // percent
    const auto used = static_cast<size_t>(lua_gc(L, LUA_GCCOUNT, 0)) + 1;
    const size_t free = PlayerOf(L).memory.Free() >> 10;
    lua_gc(L, LUA_GCSETPAUSE, static_cast<int>(std::min(kUsual, 100 + 50 * free / used)));
}

void Look(lua_State* L, lua_Debug*) {
    if (PlayerOf(L).stage.Stopping())
        Interrupt(L);
    TightenCollector(L);
}

int Interrupt(lua_State* L) {
    // A coroutine's error isn't yet one of whoever resumed it.
    for (lua_State* const thread : {L, PlayerOf(L).lua})
        lua_sethook(thread, Look, LUA_MASKCOUNT, 1);
    lua_pushliteral(L, "interrumpido");
    return lua_error(L);
}

// Notes the line, which Lua doesn't tell when memory is short. Takes no memory of Lua's itself.
void NoteRefusal(Player& player) {
    lua_Debug call{};
    for (int level = 0; player.lua && lua_getstack(player.lua, level, &call) != 0; ++level) {
        if (lua_getinfo(player.lua, "Sl", &call) == 0 || call.currentline < 0)
            continue;
        player.refusedAt =
            std::string(call.short_src) + ":" + std::to_string(call.currentline) + ": ";
        return;
    }
}

void* Allocate(void* data, void* block, size_t before, size_t after) {
    Player& player = *static_cast<Player*>(data);
    Memory& memory = player.memory;
    if (after == 0) {
        memory.Remove(before);
        std::free(block);
        return nullptr;
    }
    if (after > before && memory.native == 0 && !memory.Fits(after - before)) {
        NoteRefusal(player);
        return nullptr;
    }
    void* const made = std::realloc(block, after);
    if (made) {
        memory.Remove(before);
        memory.Add(after);
    } else if (memory.native > 0) {
        std::abort(); // better than an error that would jump over destructors
    }
    return made;
}

enum class Outcome { Returned, Failed, Ended };

// A Lua error is a longjmp: none may leave this, and Guarded, which raises it, may hold no object
// with a destructor.
Outcome Run(lua_State* L, Player& player, Function function, int& results) {
    ++player.memory.native;
    Outcome outcome = Outcome::Returned;
    try {
        results = function(L, player);
    } catch (const ScriptEnd& end) {
        player.exitCode = end.code;
        player.stage.Stop();
        outcome = Outcome::Ended;
    } catch (const std::exception& error) {
        lua_settop(L, 0);
        luaL_where(L, 1);
        lua_pushstring(L, error.what());
        lua_concat(L, 2);
        outcome = Outcome::Failed;
    }
    if (outcome == Outcome::Returned && player.memory.Over())
        lua_gc(L, LUA_GCCOLLECT, 0);
    --player.memory.native;
    return outcome;
}

// The handler of Run's pcall: the error's text becomes a table of that and the traceback.
int Trace(lua_State* L) {
    lua_settop(L, 1);
    if (!lua_isstring(L, 1)) {
        lua_pushliteral(L, "(el error no es un texto)");
        lua_replace(L, 1);
    }
    lua_getfield(L, LUA_REGISTRYINDEX, "traceback");
    lua_pushvalue(L, 1);
    lua_pushinteger(L, 2);
    lua_call(L, 2, 1);
    lua_createtable(L, 2, 0);
    lua_insert(L, 1);
    lua_rawseti(L, 1, 2);
    lua_rawseti(L, 1, 1);
    return 1;
}

std::string Field(lua_State* L, int table, int index) {
    lua_rawgeti(L, table, index);
    size_t size = 0;
    const char* const text = lua_tolstring(L, -1, &size);
    std::string result(text ? text : "", size);
    lua_pop(L, 1);
    return result;
}

Failure Describe(lua_State* L, Player& player, int status, const std::string& name) {
    if (status == LUA_ERRRUN && lua_istable(L, -1)) {
        Failure failure{Field(L, -1, 1), Field(L, -1, 2)};
        if (failure.traceback.starts_with(failure.message))
            failure.traceback.erase(0, failure.message.size() + 1);
        return failure;
    }
    const std::string place = player.refusedAt.empty() ? name + ": " : player.refusedAt;
    if (status == LUA_ERRMEM)
        return {place + "memoria agotada (el límite es de " +
                    std::to_string(player.memory.Limit() >> 20) + " MB)",
                ""};
    const char* const text = lua_tostring(L, -1);
    return {text ? text : name + ": error sin mensaje", ""};
}

int Open(lua_State* L) {
    (*static_cast<LibraryOpener*>(lua_touserdata(L, 1)))(L, PlayerOf(L));
    return 0;
}

} // namespace

Player& PlayerOf(lua_State* L) {
    void* data = nullptr;
    lua_getallocf(L, &data);
    return *static_cast<Player*>(data);
}

int Guarded(lua_State* L, Function function) {
    Player& player = PlayerOf(L);
    if (player.stage.Stopping()) // nothing more happens, whoever caught the end
        return Interrupt(L);
    int results = 0;
    switch (Run(L, player, function, results)) {
    case Outcome::Ended:
        return Interrupt(L);
    case Outcome::Failed:
        return lua_error(L);
    case Outcome::Returned:
        break;
    }
    if (player.memory.native == 0 && player.memory.Over())
        return luaL_error(L, "memoria agotada");
    if (player.stage.Stopping())
        return Interrupt(L);
    return results;
}

Share Reserve(lua_State* L, size_t bytes) {
    Memory& memory = PlayerOf(L).memory;
    if (!memory.Fits(bytes))
        lua_gc(L, LUA_GCCOLLECT, 0);
    if (!memory.Fits(bytes))
        throw ScriptError("memoria agotada (el límite es de " +
                          std::to_string(memory.Limit() >> 20) + " MB)");
    return {memory, bytes};
}

void Load(lua_State* L, std::string_view source, const std::string& name) {
    source = core::WithoutUtf8Mark(source);
    if (source.starts_with('#')) // stays a line, as errors count it
        source.remove_prefix(std::min(source.find('\n'), source.size()));
    if (source.starts_with(LUA_SIGNATURE[0]))
        throw ScriptError(name + ": es un programa compilado, y solo se admite el texto");
    // The compiler catches its own errors, so memory may be refused to it.
    const std::string chunk = "@" + name;
    const int native = std::exchange(PlayerOf(L).memory.native, 0);
    const int status = luaL_loadbuffer(L, source.data(), source.size(), chunk.c_str());
    PlayerOf(L).memory.native = native;
    if (status != 0)
        throw ScriptError(lua_tostring(L, -1));
}

LuaHost::LuaHost(Player& player, LibraryOpener openLibraries)
    : m_player(player), m_state(lua_newstate(&Allocate, &player)) {
    if (!m_state)
        throw std::bad_alloc();
    m_player.lua = m_state;
    ++m_player.memory.native;
    lua_cpcall(m_state, &Open, &openLibraries);
    --m_player.memory.native;
    lua_sethook(m_state, Look, LUA_MASKCOUNT, kStepsBetweenLooks);
}

LuaHost::~LuaHost() {
    lua_close(m_state);
    m_player.lua = nullptr;
}

std::optional<Failure> LuaHost::Run(const std::string& source, const std::string& name) {
    ++m_player.memory.native;
    lua_pushcfunction(m_state, &Trace);
    int status = LUA_ERRSYNTAX;
    try {
        Load(m_state, source, name);
        status = 0;
    } catch (const ScriptError& error) {
        lua_pushstring(m_state, error.what());
    }
    --m_player.memory.native;
    if (status == 0)
        status = lua_pcall(m_state, 0, 0, 1);
    ++m_player.memory.native;
    std::optional<Failure> failure;
    if (status != 0 && !m_player.stage.Stopping())
        failure = Describe(m_state, m_player, status, name);
    --m_player.memory.native;
    return failure;
}

} // namespace player
