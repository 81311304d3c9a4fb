// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace platform {

/// The file questions that the program asks of its "scripting.filesystemobject", by program path.
class FileSystemObject {
public:
    /// True for a file, or a link to one; false for a folder and for a path that can't be one.
    bool FileExists(const QString& path) const;
    /// Removes a file; one without write permission only with `force`. Fails with a text that names
    /// the file and the reason.
    void DeleteFile(const QString& path, bool force = false) const;
};

} // namespace platform
