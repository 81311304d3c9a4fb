// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <filesystem>
#include <string>
#include <vector>

namespace platform {

/// Program paths are what the program thinks in: C:\juegos\juego.lua. Native paths are this
/// desktop's, as bytes; their names are told as in NativeNames.h.

/// How the last name of a path is looked for. Whoever writes or deletes takes it as written, so
/// that no other file is hit that differs in case.
enum class LastName { AnyCase, AsWritten };

/// The native path of a program path. A relative one starts at the current directory; "/" separates
/// like the backslash. Each name is looked for as written, then without regard to case; a name that
/// is not there stays as written. Fails (PathNotFound) if the drive isn't there or the path can't
/// be one.
std::filesystem::path ToNative(const QString& path, LastName lastName = LastName::AnyCase);

/// The program path of a native path; a relative one starts at the current directory.
QString FromNative(const std::filesystem::path& native);

/// The program path of the file named by the arguments behind the program's name: several are one
/// path with single blanks between them; empty without any.
QString CommandLinePath(const std::vector<std::string>& arguments);

/// Moves the current drive and directory. Fails (PathNotFound) if the folder can't be entered.
void ChangeDirectory(const QString& folder);

} // namespace platform
