// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LuaHost.h"
#include "Player.h"

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>

namespace player {

// A script in a folder of its own, with a folder around it that isn't the script's.
class ScriptTest : public ::testing::Test {
protected:
    ScriptTest() {
        std::string pattern = (std::filesystem::temp_directory_path() / "scriptXXXXXX").string();
        around = mkdtemp(pattern.data());
        folder = around / "juego";
        std::filesystem::create_directory(folder);
    }
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
        Options options;
        options.folder = folder;
        Player player(options);
        player.powerFolder = around / "power";
        if (prepare)
            prepare(player);
        const auto failure = LuaHost(player).Run(source, "prueba.lua");
        exitCode = player.exitCode;
        lines = player.stage.Lines();
        traceback = failure ? failure->traceback : "";
        return failure ? failure->message : "";
    }

    std::filesystem::path around;
    std::filesystem::path folder;
    std::function<void(Player&)> prepare; // before the script runs
    int exitCode = 0;
    std::deque<std::string> lines; // that it printed
    std::string traceback;
};

} // namespace player
