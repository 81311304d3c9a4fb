// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/FileDescriptor.h"

#include <filesystem>

namespace platform {

/// Holds a lock (flock) on a folder against other copies of the program. It leaves no file behind
/// and ends with the process, however that ends. If it can't be had within 2 s, the program goes on
/// without it.
class FolderLock {
public:
    explicit FolderLock(const std::filesystem::path& folder);

private:
    core::FileDescriptor m_folder;
};

} // namespace platform
