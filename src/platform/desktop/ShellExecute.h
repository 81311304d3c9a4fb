// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <string>
#include <utility>
#include <vector>

namespace platform {

/// Names and values that a program finds in its environment besides this program's own.
using Environment = std::vector<std::pair<std::string, std::string>>;

/// Opens the file with the program that its class in the registry names, else a .lua file with the
/// player in the program's folder if it is there, else with the program that the desktop holds for
/// it, and returns at once. The program runs detached, in the folder of the file, and its output is
/// nowhere to be seen. What can't be opened goes to the log.
void ShellExecuteA(const QString& file, const Environment& environment = {});

} // namespace platform
