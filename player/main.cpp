// SPDX-License-Identifier: GPL-3.0-or-later
#include "LuaHost.h"
#include "Options.h"
#include "Player.h"

#include <cstdio>
#include <fstream>
#include <iterator>

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

int RunScript(const Options& options) {
    const auto source = ReadScript(options.script);
    if (!source) {
        std::fprintf(stderr, "luaplayer: no se puede leer %s\n", options.script.c_str());
        return kCannotStart;
    }
    Player player(options);
    LuaHost host(player);
    const auto failure = host.Run(*source, options.name);
    if (failure)
        Report(*failure);
    return failure ? 1 : player.exitCode;
}

} // namespace

int main(int argc, char** argv) {
    const auto read = ReadOptions({argv + 1, argv + argc});
    if (const auto* notice = std::get_if<Notice>(&read)) {
        std::fputs(notice->text.c_str(), notice->code ? stderr : stdout);
        return notice->code;
    }
    return RunScript(std::get<Options>(read));
}
