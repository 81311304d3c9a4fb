// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/FileDescriptor.h"

#include <filesystem>

namespace platform {

/// While it lives, no other copy of the program that asks for the same folder's lock goes on. It
/// leaves no file behind and ends with the process, however that ends. A folder that can't be
/// locked, or not within a short time, stops nobody.
class FolderLock {
public:
    explicit FolderLock(const std::filesystem::path& folder);

private:
    core::FileDescriptor m_folder;
};

} // namespace platform
