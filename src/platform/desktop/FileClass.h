// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <filesystem>
#include <optional>

namespace platform {

/// What the registry holds for the files of an extension.
struct FileClass {
    QString title;   ///< what such a file is called
    QString command; ///< the program path and its arguments, "%1" for the file
    QString icon;    ///< program path of an .ico file
};

/// The class of an extension such as ".lua"; empty if none is registered.
std::optional<FileClass> FindFileClass(const QString& extension);

/// The extension of a path's last name, with its point; empty if it has none.
QString ExtensionOf(const QString& path);

struct Command {
    std::filesystem::path program; ///< native
    QStringList arguments;         ///< without their quotes
};

/// Splits a command line. A program's path without quotes may have blanks: it is the longest start
/// of the line that can be run, else what stands before the last " %1". Fails as ToNative does.
Command ParseCommand(const QString& commandLine);

} // namespace platform
