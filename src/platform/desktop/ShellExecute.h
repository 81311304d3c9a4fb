// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <string>
#include <utility>
#include <vector>

namespace platform {

/// Variables, as name and value, that a program gets in addition to this program's environment.
using Environment = std::vector<std::pair<std::string, std::string>>;

/// Opens the file and returns at once: with the program that its class in the registry names; else,
/// for a .lua file, with the player in the program's folder; else with xdg-open. The program runs
/// detached, in the folder of the file, its output goes to /dev/null. A failure goes to the log.
void ShellExecuteA(const QString& file, const Environment& environment = {});

} // namespace platform
