// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace player {

/// The folder of the script. What lies outside of it can't be reached, links included.
class Folder {
public:
    explicit Folder(std::filesystem::path root);

    /// Both throw ScriptError.
    std::string Read(const std::string& name) const;
    void Write(const std::string& name, std::string_view bytes) const;

private:
    std::filesystem::path root_;
};

} // namespace player
