// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/Failure.h"
#include "player/LuaHost.h"
#include "player/Options.h"
#include "player/Player.h"
#include "player/api/Api.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace player {

// A script in a folder of its own, with a folder around it that isn't the script's.
class ScriptTest : public ::testing::Test {
protected:
    ~ScriptTest() override { std::filesystem::remove_all(around); }

    static void Put(const std::filesystem::path& path, const std::string& content) {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << content;
    }
    static std::string Get(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // The error of the script, or nothing.
    std::string Run(const std::string& source, const std::string& name = "prueba.lua") {
        failure = LuaHost(player, &OpenLibraries).Run(source, name);
        return failure ? failure->message : "";
    }
    // The script must run without an error, which would tell the line in the test's own file.
    void Passes(const std::string& source, const char* file = __builtin_FILE(),
                int line = __builtin_LINE()) {
        const auto above = line - 1 - std::count(helpers.begin(), helpers.end(), '\n');
        const std::string text = helpers + std::string(static_cast<size_t>(above), '\n') + source;
        EXPECT_EQ(Run(text, std::filesystem::path(file).filename()), "") << failure->traceback;
    }

    // Stands before each script of Passes. `equal` compares two values; `fails` wants an error with
    // the text, or nil and the text.
    std::string helpers = R"lua(local function equal(actual, expected)
    if actual ~= expected then error(tostring(actual) .. " is not " .. tostring(expected), 2) end
end
local function fails(text, act, ...)
    local ok, why, reason = pcall(act, ...)
    why = tostring(ok and (why == nil and reason or "no error") or not ok and why)
    if not why:find(text, 1, true) then error(why .. " instead of " .. text, 2) end
end )lua";
    const std::filesystem::path around = [] {
        std::string pattern = (std::filesystem::temp_directory_path() / "scriptXXXXXX").string();
        std::filesystem::path made = mkdtemp(pattern.data());
        std::filesystem::create_directory(made / "juego");
        return made;
    }();
    const std::filesystem::path folder = around / "juego";
    Player player{std::get<Options>(ReadOptions({folder / "prueba.lua"}))};
    std::optional<Failure> failure;
};

} // namespace player
