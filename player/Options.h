// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace player {

struct Options {
    std::filesystem::path script;
    std::filesystem::path folder; // what the script's files are found from
    std::string name;             // of the document, as errors show it
    size_t memory = size_t{256} << 20;
    std::optional<int> frames;
    std::filesystem::path screenshot;

    bool Headless() const { return frames || !screenshot.empty(); }
};

/// What is said instead of running a script.
struct Notice {
    std::string text;
    int code = 0;
};

/// Reads the command line and the environment.
std::variant<Options, Notice> ReadOptions(const std::vector<std::string>& arguments);

} // namespace player
