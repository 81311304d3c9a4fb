// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace platform {

/// The file questions that the program asks of its "scripting.filesystemobject", by program path.
class FileSystemObject {
public:
    /// True for a file, or a link to one; false for a folder and for a path that can't be one.
    bool FileExists(const QString& path) const;
    /// Removes a file; a write-protected one only with `force`. Fails with a text that names the
    /// file and the reason.
    void DeleteFile(const QString& path, bool force = false) const;

    /// Folder and name with exactly one separator between them.
    QString BuildPath(const QString& folder, const QString& name) const;

    /// True for a folder, or a link to one.
    bool FolderExists(const QString& path) const;
    /// Removes a folder with all it holds, or a file; with `force` write-protected ones too. Links
    /// are removed, never followed, even if the path is one. Fails as DeleteFile does.
    void DeleteFolder(const QString& path, bool force = false) const;
    /// Makes one folder, whose parent must exist. Fails as DeleteFile does.
    void CreateFolder(const QString& path) const;
};

} // namespace platform
