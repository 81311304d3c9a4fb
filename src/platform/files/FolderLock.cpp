// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/FolderLock.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

namespace platform {
namespace {

constexpr int kAttempts = 200;
constexpr std::chrono::milliseconds kPause(10);

} // namespace

FolderLock::FolderLock(const std::filesystem::path& folder)
    : m_folder(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    for (int i = 0; m_folder && i < kAttempts; ++i) {
        if (::flock(m_folder.Number(), LOCK_EX | LOCK_NB) == 0 ||
            (errno != EWOULDBLOCK && errno != EINTR))
            return;
        std::this_thread::sleep_for(kPause);
    }
}

} // namespace platform
