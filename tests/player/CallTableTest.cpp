// SPDX-License-Identifier: GPL-3.0-or-later
#include "Script.h"
#include "documents/editor/lua/Calls.h"

#include <set>

namespace player {
namespace {

using documents::CallForm;
using Names = std::set<std::string>;

// The functions of the table on top of the stack, and of the tables in it, one level deep.
void AddFunctions(lua_State* L, const std::string& prefix, bool inside, Names& names) {
    for (lua_pushnil(L); lua_next(L, -2) != 0; lua_pop(L, 1)) {
        const std::string name = lua_type(L, -2) == LUA_TSTRING ? lua_tostring(L, -2) : "_G";
        if (lua_isfunction(L, -1))
            names.insert(prefix + name);
        else if (lua_istable(L, -1) && inside && name != "_G")
            AddFunctions(L, prefix + name + ".", false, names);
    }
}

void AddMethods(lua_State* L, const std::string& type, Names& names) {
    luaL_getmetatable(L, type.c_str());
    lua_getfield(L, -1, "__index");
    AddFunctions(L, type + ".", false, names);
    lua_pop(L, 2);
}

// Runs an opener that may look at the new state.
class CallTableTest : public ScriptTest {
protected:
    static inline Names offered;
    static inline std::string broken;

    static void Look(lua_State* L, Player& player) {
        OpenLibraries(L, player);
        lua_pushvalue(L, LUA_GLOBALSINDEX);
        AddFunctions(L, "", true, offered);
        for (const char* type : {"Image", "screen", "Font", "Color", "Controls", "Sound", "Voice",
                                 "Socket", LUA_FILEHANDLE})
            AddMethods(L, type, offered);
    }
    static void Compile(lua_State* L, Player&) {
        for (const documents::Call* call : documents::AllCalls())
            if (luaL_loadstring(L, std::string(call->example).c_str()) != 0)
                broken += std::string(lua_tostring(L, -1)) + "\n";
    }
};

TEST_F(CallTableTest, HoldsWhatAScriptCanCallAndNothingElse) {
    LuaHost(player, &Look).Run("", "prueba.lua");
    Names known;
    for (const documents::Call* call : documents::AllCalls()) {
        const std::string library = std::string(call->library) + (call->library.empty() ? "" : ".");
        const std::string name(call->name);
        if (call->form != CallForm::Value)
            known.insert(library + name);
        if (library == "Image.") // the screen is an image
            known.insert("screen." + name);
    }
    EXPECT_EQ(known, offered);
}

TEST_F(CallTableTest, HasExamplesThatCompileAndShowTheCall) {
    LuaHost(player, &Compile).Run("", "prueba.lua");
    EXPECT_EQ(broken, "");
    for (const documents::Call* call : documents::AllCalls())
        EXPECT_NE(call->example.find(call->name), std::string::npos) << call->example;
}

} // namespace
} // namespace player
