// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/FileDescriptor.h"

#include <QByteArray>
#include <filesystem>
#include <span>
#include <sys/stat.h>

namespace platform {

/// An open file of the desktop, closed with the object. Each operation throws a SystemError.
class FileHandle {
public:
    /// `flags` and `mode` as those of open(2).
    FileHandle(const std::filesystem::path& path, int flags, mode_t mode = 0);

    int Descriptor() const { return m_descriptor.Number(); }
    struct stat Status() const;
    /// Fails unless it is a regular file.
    void RequireRegular() const;

    /// Fills the buffer from the offset on; returns the bytes read, fewer than asked at the end.
    qsizetype Read(std::span<char> buffer, qint64 offset) const;
    /// The whole file, also what is added while it is read; fails (kTooLarge) beyond 1 GiB.
    QByteArray ReadAll() const;
    void Write(QByteArrayView bytes, qint64 offset) const;
    void Sync() const;

private:
    core::FileDescriptor m_descriptor;
};

/// Writes a folder's entries to the disk (fsync). Does nothing where the file system can't.
void SyncFolder(const std::filesystem::path& folder);

} // namespace platform
