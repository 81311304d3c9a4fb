// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace platform {

/// While it lives, no other copy of the program that asks for the same folder's lock goes on. It
/// leaves no file behind and ends with the process, however that ends. A folder that can't be
/// locked, or not within a short time, stops nobody.
class FolderLock {
public:
    explicit FolderLock(const std::filesystem::path& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    int m_fd;
};

} // namespace platform
