// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/files/FileHandle.h"

#include <QByteArrayView>
#include <filesystem>
#include <sys/stat.h>

namespace platform {

/// Writes a file under a temporary name beside the target, whose place it takes once it is whole;
/// the destructor deletes it unless TakePlace was called. The constructor also deletes those that
/// killed copies of the program left in the folder. Each operation throws a SystemError.
class Replacement {
public:
    /// `mode` as of open(2): the umask is taken off.
    explicit Replacement(const std::filesystem::path& target, mode_t mode = 0666);
    ~Replacement();
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    /// Takes over owner and permissions of another file.
    void Resemble(const struct stat& other) const;
    /// The disk begins to write at once, which leaves Sync little to wait for.
    void Write(QByteArrayView bytes, qint64 offset);
    void Sync();
    /// Syncs the file if need be, renames it to the target and syncs the folder.
    void TakePlace();

private:
    std::filesystem::path m_target;
    std::filesystem::path m_path;
    FileHandle m_handle;
    bool m_synced = false;
    bool m_whole = false;
};

} // namespace platform
