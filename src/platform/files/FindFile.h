// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace platform {

/// The bits of an attribute word; those up to 32 are FAT's own.
enum FileAttribute : quint32 {
    FILE_ATTRIBUTE_READONLY = 1,
    FILE_ATTRIBUTE_HIDDEN = 2,
    FILE_ATTRIBUTE_SYSTEM = 4,
    FILE_ATTRIBUTE_DIRECTORY = 16,
    FILE_ATTRIBUTE_ARCHIVE = 32,
    FILE_ATTRIBUTE_NORMAL = 128,
    FILE_ATTRIBUTE_TEMPORARY = 256,
    FILE_ATTRIBUTE_COMPRESSED = 2048,
};

/// One entry of a folder. A link counts as what it leads to; one that leads nowhere is an empty
/// file.
///
/// On FAT all attributes are the file system's own. Elsewhere read-only is what this user may not
/// write, hidden is a name that begins with a point, system is a socket, pipe or device, and normal
/// is a file with none of these.
struct FoundFile {
    QString name; ///< as in a program path
    quint32 attributes = 0;
    quint32 sizeLow = 0;      ///< the low 32 bits of the size in bytes
    qint64 lastWriteTime = 0; ///< a file time; 0 where it can't be read
};

/// The entries of a folder, hidden ones too, in the order in which the file system gives them, at
/// most `limit`; "." and ".." are left out. Nothing if the folder isn't there or can't be read.
std::optional<std::vector<FoundFile>> FindFiles(const QString& folder, size_t limit);

/// A FAT attribute word as FileAttribute bits.
quint32 FromFatAttributes(quint32 attributes);

} // namespace platform
