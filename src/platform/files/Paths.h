// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <filesystem>
#include <string>
#include <vector>

namespace platform {

/// Program paths are what the program uses throughout: C:\juegos\juego.lua. Native paths are those
/// of the system, in bytes; platform/text/NativeNames.h defines how their names are converted.

/// How the last name of a path is looked for. Writing and deleting take it as written, so that they
/// don't hit a file whose name differs in case.
enum class LastName { AnyCase, AsWritten };

/// The native path of a program path. A relative one starts at the current directory; "/" separates
/// like the backslash. Each name is looked for as written, then without regard to case; a name that
/// is not there stays as written. Fails (PathNotFound) if the drive isn't there or the path can't
/// be one.
std::filesystem::path ToNative(const QString& path, LastName lastName = LastName::AnyCase);

/// The program path of a native path; a relative one starts at the current directory.
QString FromNative(const std::filesystem::path& native);

/// The program path of the file that the arguments, without the program's name, stand for: joined
/// by single blanks they are one path. Empty without any.
QString CommandLinePath(const std::vector<std::string>& arguments);

/// Changes the current drive and directory. Fails (PathNotFound) if the folder can't be entered.
void ChangeDirectory(const QString& folder);

} // namespace platform
