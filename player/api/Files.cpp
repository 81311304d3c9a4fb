// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/api/Files.h"

#include "core/FileDescriptor.h"
#include "player/Folder.h"
#include "player/LuaHost.h"
#include "player/ScriptError.h"
#include "player/Userdata.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <random>
#include <string>
#include <vector>

namespace player {
namespace {

struct OpenMode {
    const char* name;
    Folder::Mode mode;
    const char* stream;
};

constexpr std::array kModes = {
    OpenMode{"r", Folder::Mode::Read, "rb"},       OpenMode{"w", Folder::Mode::Write, "wb"},
    OpenMode{"a", Folder::Mode::Append, "ab"},     OpenMode{"r+", Folder::Mode::Update, "r+b"},
    OpenMode{"w+", Folder::Mode::Truncate, "w+b"}, OpenMode{"a+", Folder::Mode::Append, "a+b"},
};

// Makes a file of Lua's own io library, whose methods work on it from then on.
void PushFile(lua_State* L, core::FileDescriptor descriptor, const char* mode) {
    auto* const file = static_cast<FILE**>(lua_newuserdata(L, sizeof(FILE*)));
    *file = nullptr;
    luaL_getmetatable(L, LUA_FILEHANDLE);
    lua_setmetatable(L, -2);
    lua_getfield(L, LUA_REGISTRYINDEX, "player.io");
    lua_setfenv(L, -2);
    *file = fdopen(descriptor.Number(), mode);
    if (!*file)
        throw ScriptError("no se puede abrir el archivo");
    descriptor.Release();
}

// The function's answer, or nil and the reason.
template<Function function>
int Refusing(lua_State* L, Player& player) {
    try {
        return function(L, player);
    } catch (const FolderError& error) {
        return Refuse(L, error);
    }
}

int IoOpen(lua_State* L, Player& player) {
    const std::string path = Text(L, 1);
    std::string name = Given(L, 2) ? Text(L, 2) : "r";
    std::erase(name, 'b');
    for (const OpenMode& known : kModes)
        if (name == known.name) {
            PushFile(L, player.folder.Open(path, known.mode), known.stream);
            return 1;
        }
    BadArgument(L, 2, "\"r\", \"w\", \"a\", \"r+\", \"w+\" o \"a+\"");
}

int IoTmpfile(lua_State* L, Player& player) {
    PushFile(L, player.folder.OpenUnnamed(), "w+b");
    return 1;
}

int OsRemove(lua_State* L, Player& player) {
    const std::string path = Text(L, 1);
    try {
        player.folder.RemoveFile(path);
    } catch (const FolderError& error) {
        if (error.code != EISDIR)
            throw;
        player.folder.RemoveDirectory(path);
    }
    lua_pushboolean(L, 1);
    return 1;
}

int OsRename(lua_State* L, Player& player) {
    player.folder.Rename(Text(L, 1), Text(L, 2));
    lua_pushboolean(L, 1);
    return 1;
}

int OsTmpname(lua_State* L, Player& player) {
    std::random_device random;
    for (;;) {
        const std::string name = "tmp_" + std::to_string(random());
        try {
            player.folder.Open(name, Folder::Mode::New);
        } catch (const FolderError& error) {
            if (error.code == EEXIST)
                continue;
            throw;
        }
        lua_pushstring(L, name.c_str());
        return 1;
    }
}

int OsExit(lua_State* L, Player&) {
    throw ScriptEnd{Integer(L, 1, 0)};
}

// The script sees nothing of the environment.
int OsGetenv(lua_State* L, Player&) {
    Text(L, 1);
    lua_pushnil(L);
    return 1;
}

// Only asks: the numbers of the whole program are written in one way.
int OsSetlocale(lua_State* L, Player&) {
    const std::string name = Given(L, 1) ? Text(L, 1) : "";
    if (name.empty() || name == "C")
        lua_pushliteral(L, "C");
    else
        lua_pushnil(L);
    return 1;
}

template<const char* const& name>
int NotHere(lua_State*, Player&) {
    throw ScriptError(std::string(name) + " no está disponible en el reproductor");
}

constexpr const char* kPopen = "io.popen";
constexpr const char* kExecute = "os.execute";
constexpr const char* kLoadlib = "package.loadlib";

int OsExecute(lua_State* L, Player& player) {
    if (Given(L, 1))
        return NotHere<kExecute>(L, player);
    lua_pushinteger(L, 0); // there is no shell
    return 1;
}

// A function, or nil and the reason.
int LoadFile(lua_State* L, Player& player) {
    const std::string path = Text(L, 1);
    try {
        Load(L, player.folder.Read(path, player.memory.Free()), path);
    } catch (const ScriptError& error) {
        lua_pushnil(L);
        lua_pushstring(L, error.what());
        return 2;
    }
    return 1;
}

// Whether a file can be read.
int Readable(lua_State* L, Player& player) {
    try {
        player.folder.Open(Text(L, 1));
        lua_pushboolean(L, 1);
    } catch (const FolderError&) {
        lua_pushboolean(L, 0);
    }
    return 1;
}

constexpr luaL_Reg kIo[] = {
    {"open", &Call<&Refusing<&IoOpen>>},
    {"tmpfile", &Call<&Refusing<&IoTmpfile>>},
    {"popen", &Call<&NotHere<kPopen>>},
    {nullptr, nullptr},
};

constexpr luaL_Reg kOs[] = {
    {"remove", &Call<&Refusing<&OsRemove>>},
    {"rename", &Call<&Refusing<&OsRename>>},
    {"tmpname", &Call<&OsTmpname>},
    {"exit", &Call<&OsExit>},
    {"getenv", &Call<&OsGetenv>},
    {"setlocale", &Call<&OsSetlocale>},
    {"execute", &Call<&OsExecute>},
    {nullptr, nullptr},
};

constexpr luaL_Reg kPackage[] = {
    {"loadlib", &Call<&NotHere<kLoadlib>>},
    {nullptr, nullptr},
};

// Files.lua, as the build embeds it.
constexpr char kFilesLua[] = {
#include "player/api/Files.lua.inc"
};

void OpenStandard(lua_State* L, const luaL_Reg& library, const luaL_Reg* changes) {
    lua_pushcfunction(L, library.func);
    lua_pushstring(L, library.name);
    lua_call(L, 1, 0);
    lua_getglobal(L, library.name);
    luaL_register(L, nullptr, changes);
    lua_pop(L, 1);
}

// The metatable of Lua's files is their __index too; through it a script could set __gc and run
// code while memory is freed.
void HideFileMetatable(lua_State* L) {
    luaL_getmetatable(L, LUA_FILEHANDLE);
    lua_newtable(L);
    for (const char* name : {"close", "flush", "lines", "read", "seek", "setvbuf", "write"}) {
        lua_getfield(L, -2, name);
        lua_setfield(L, -2, name);
    }
    lua_setfield(L, -2, "__index");
    lua_pushliteral(L, LUA_FILEHANDLE);
    lua_setfield(L, -2, "__metatable");
    lua_pop(L, 1);
}

// Nobody answers at the standard input: reading it would only wait.
void CloseInput(lua_State* L) {
    lua_getglobal(L, LUA_IOLIBNAME);
    lua_getfield(L, -1, "input");
    PushFile(L, core::FileDescriptor(open("/dev/null", O_RDONLY | O_CLOEXEC)), "rb");
    lua_pushvalue(L, -1);
    lua_setfield(L, -4, "stdin");
    lua_call(L, 1, 0);
    lua_pop(L, 1);
}

void RunFilesLua(lua_State* L) {
    if (luaL_loadbuffer(L, kFilesLua, sizeof(kFilesLua), "=luaplayer") != 0)
        throw ScriptError(lua_tostring(L, -1));
    lua_pushcfunction(L, &Call<&LoadFile>);
    lua_pushcfunction(L, &Call<&Readable>);
    for (const char* name : {LUA_IOLIBNAME, LUA_LOADLIBNAME, "loadstring"})
        lua_getglobal(L, name);
    lua_call(L, 5, 0);
}

} // namespace

int Refuse(lua_State* L, const FolderError& error) {
    lua_pushnil(L);
    lua_pushstring(L, error.what());
    lua_pushinteger(L, error.code);
    return 3;
}

void OpenFiles(lua_State* L, Player&) {
    OpenStandard(L, {LUA_LOADLIBNAME, luaopen_package}, kPackage);
    OpenStandard(L, {LUA_IOLIBNAME, luaopen_io}, kIo);
    OpenStandard(L, {LUA_OSLIBNAME, luaopen_os}, kOs);
    // In the environment of Lua's io functions a file finds how it is closed.
    lua_getglobal(L, LUA_IOLIBNAME);
    lua_getfield(L, -1, "lines");
    lua_getfenv(L, -1);
    lua_setfield(L, LUA_REGISTRYINDEX, "player.io");
    lua_pop(L, 2);
    HideFileMetatable(L);
    CloseInput(L);
    RunFilesLua(L);
}

} // namespace player
