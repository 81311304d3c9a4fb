// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <filesystem>

namespace platform {

/// Finds the program's folder and copies the installed files there that it lacks: data from
/// share/quillmark, programs from libexec/quillmark. The folder is QUILLMARK_HOME if that is set,
/// else that of the executable if it can be written and isn't below /usr, else
/// $XDG_DATA_HOME/quillmark. Files that it has already are the user's and stay as they are. Call
/// once, before the current directory changes.
void PrepareProgramFolder(const std::filesystem::path& executable);

/// The program's folder as a program path, without a "\" at the end unless it is a drive's root.
QString ProgramFolder();
/// The program path of a name, or of a relative path, in that folder.
QString InProgramFolder(QStringView name);

/// The native path of a program: "X.exe" means X on this system. Quillmark.exe in the program's
/// folder means the running program if the folder holds none. Fails as ToNative does.
std::filesystem::path ProgramFile(const QString& path);

/// True for a file that this user may run.
bool CanRun(const std::filesystem::path& native);

} // namespace platform
