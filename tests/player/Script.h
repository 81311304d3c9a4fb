// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/Failure.h"
#include "player/LuaHost.h"
#include "player/Options.h"
#include "player/Player.h"
#include "player/api/Api.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

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
    std::string Run(const std::string& source) {
        failure = LuaHost(player, &OpenLibraries).Run(source, player.options.name);
        return failure ? failure->message : "";
    }
    // A failed assert tells the script's line.
    void Passes(const std::string& source) { EXPECT_EQ(Run(source), ""); }

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
