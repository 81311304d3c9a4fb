// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <filesystem>

namespace platform {

/// Tells the desktop what the registry holds for an extension, for this user: a MIME type (the one
/// that the desktop has for the extension, else one of our own), its icons, a desktop entry for the
/// program, and the program as the type's default. The formats are those of freedesktop.org:
/// shared-mime-info, Icon Theme, Desktop Entry and MIME Applications Associations. The program's
/// path must be UTF-8. Never fails: what can't be written goes to the log, and without an entry the
/// program doesn't become the default. Tools that aren't installed are not run.
void PutToDesktop(const QString& extension);

/// The text of a desktop entry that opens files of the MIME type with the program.
QByteArray DesktopEntry(const std::filesystem::path& program, const QString& name,
                        const QString& icon, const QString& mimeType);

} // namespace platform
