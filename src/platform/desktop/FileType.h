// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QString>

namespace platform {

/// What files of this kind are called: the title of the class that is registered for the extension,
/// else what the desktop says, in the program's language.
QString FileTypeName(const QString& path);

/// The icon of a file or folder in all its sizes: the file's own if it is an icon, else that of the
/// registered class, else the desktop theme's, else the one of QStyle.
QIcon FileIcon(const QString& path);

} // namespace platform
