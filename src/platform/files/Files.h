// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace platform {

/// Whole files by program path. They throw a Failure with IsFileAccess(), whose text names the file
/// and the reason.

/// Reads a regular file of at most 1 GiB. Folders, pipes and devices are refused.
QByteArray ReadFile(const QString& path);

/// The first bytes of such a file, of any size: at most `count`.
QByteArray ReadFileHead(const QString& path, qint64 count);

/// Writes the whole file or leaves the old one as it was. The bytes are on the disk on return. A
/// new file appears under its name only when it is whole. Permissions, owner, and links, symbolic
/// and hard, are kept; a file whose write permission is missing is refused. Where the folder can't
/// take a second file, or a replacement would lose a hard link or an owner, the file is rewritten
/// in place and put back on a failure.
void WriteFile(const QString& path, const QByteArray& bytes);

/// Puts a new file in the place of any that bears the name, even a write-protected one. A link is
/// itself replaced; a pipe or device is refused. The old file stays until the new one is whole and
/// on the disk. Where the folder can't take a second file, this is WriteFile.
void ReplaceFile(const QString& path, const QByteArray& bytes);

} // namespace platform
