// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/base/Seam.h"

#include <QString>
#include <filesystem>
#include <functional>
#include <vector>

namespace platform {

/// The version of the program: major, minor and revision with points between them.
QString ProgramVersion();

/// Gives a process without HOME the home folder of its user. Call before anything else.
void FindHome();

/// Finds the program's folder and puts the installed files there that it lacks: data from
/// share/quillmark, programs from libexec/quillmark. It is QUILLMARK_HOME if that is set, else the
/// folder of the executable if it can be written and isn't below /usr, else
/// $XDG_DATA_HOME/quillmark. Files that are there already are the user's and stay as they are.
/// Call once, before the current directory moves.
void PrepareProgramFolder(const std::filesystem::path& executable);

/// The program's folder as a program path, without a "\" at the end unless it is a drive's root.
QString ProgramFolder();

/// The native path of a program that goes by a program path: "X.exe" is X here. The Quillmark.exe
/// of the program's folder is the running program if the folder holds none. Fails as ToNative does.
std::filesystem::path ProgramFile(const QString& path);

/// True for a file that this user may run.
bool CanRun(const std::filesystem::path& native);

/// The program path of the file named by the arguments behind the program's name: several are one
/// path with single blanks between them; empty without any.
QString CommandLinePath(const std::vector<std::string>& arguments);

/// Moves the current drive and directory. Fails (PathNotFound) if the folder can't be entered.
void ChangeDirectory(const QString& folder);

/// Ends the process at once: no window closes, nothing is asked, nothing is cleaned up.
void EndProcess();
Seam<std::function<void()>>& EndProcessSeam();

} // namespace platform
