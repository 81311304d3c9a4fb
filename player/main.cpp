// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Failure.h"
#include "player/LuaHost.h"
#include "player/Options.h"
#include "player/Player.h"
#include "player/Screen.h"
#include "player/Stage.h"
#include "player/api/Api.h"

#include <SDL_thread.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <ios>
#include <iterator>
#include <optional>
#include <string>
#include <thread>
#include <variant>

namespace {

using namespace player;

constexpr int kCannotStart = 2;

std::optional<std::string> ReadScript(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file || std::filesystem::is_directory(path))
        return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

void Report(const Failure& failure) {
    std::fprintf(stderr, "%s\n%s\n", failure.message.c_str(), failure.traceback.c_str());
}

// A script that doesn't end soon isn't waited for: it may be in a long function of Lua's.
void Join(std::thread& thread, Stage& stage) {
    constexpr std::chrono::milliseconds kPatience{300};
    if (!stage.WaitFinished(kPatience))
        std::_Exit(0);
    thread.join();
}

int RunScript(const Options& options) {
    const auto source = ReadScript(options.script);
    if (!source) {
        std::fprintf(stderr, "luaplayer: no se puede leer %s\n", options.script.c_str());
        return kCannotStart;
    }
    const Session session(options.Headless());
    Player player(options);
    Screen screen(options, player.stage);
    std::optional<Failure> failure;
    std::thread script([&] {
        LuaHost(player, &OpenLibraries).Run(*source, options.name).swap(failure);
        SDL_TLSCleanup();
        player.stage.Finish();
    });
    screen.Run();
    Join(script, player.stage);
    if (failure) {
        Report(*failure);
        player.audio.StopMusic();
        screen.ShowFailure(*failure);
    }
    if (!options.screenshot.empty() && !screen.SaveScreenshot(options.screenshot)) {
        std::fprintf(stderr, "luaplayer: no se puede escribir %s\n", options.screenshot.c_str());
        return kCannotStart;
    }
    return failure ? 1 : player.exitCode;
}

} // namespace

int main(int argc, char** argv) {
    const auto read = ReadOptions({argv + 1, argv + argc});
    if (const auto* notice = std::get_if<Notice>(&read)) {
        std::fputs(notice->text.c_str(), notice->code ? stderr : stdout);
        return notice->code;
    }
    try {
        return RunScript(std::get<Options>(read));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "luaplayer: %s\n", error.what());
        return kCannotStart;
    }
}
