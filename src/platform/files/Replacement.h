// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/files/FileHandle.h"

#include <QByteArrayView>
#include <filesystem>
#include <sys/stat.h>

namespace platform {

/// A file that is written under a name of its own beside the one whose place it takes when it is
/// whole; it is gone again unless it takes it. What a copy of the program that was killed left of
/// this kind in the same folder goes too. Each operation throws a SystemError.
class Replacement {
public:
    /// The permissions are those of `mode` less the umask.
    explicit Replacement(const std::filesystem::path& target, mode_t mode = 0666);
    ~Replacement();
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    /// Takes over owner and permissions.
    void Resemble(const struct stat& other) const;
    /// The disk begins to write at once, so that there is little left to wait for at the end.
    void Write(QByteArrayView bytes, qint64 offset);
    void Sync();
    /// Syncs it if that hasn't been done, gives it the target's name and syncs the folder.
    void TakePlace();

private:
    std::filesystem::path m_target;
    std::filesystem::path m_path;
    FileHandle m_handle;
    bool m_synced = false;
    bool m_whole = false;
};

} // namespace platform
