// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace platform {

/// The names of the folders in a folder, and of the regular files that match a pattern such as
/// "*.png" without regard to case; links count as what they lead to. Sorted; names that begin with
/// a point are left out. None if the folder can't be read.
QStringList FolderNames(const QString& folder);
QStringList FileNames(const QString& folder, const QString& pattern);

} // namespace platform
