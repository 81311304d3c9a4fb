// SPDX-License-Identifier: GPL-3.0-or-later
#include "Folder.h"

#include "ScriptError.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <linux/openat2.h>
#include <memory>
#include <sys/syscall.h>
#include <unistd.h>

namespace player {
namespace {

using File = std::unique_ptr<FILE, int (*)(FILE*)>;

File OpenBeneath(const std::filesystem::path& root, const std::string& name, int flags,
                 const char* mode) {
    const int folder = open(root.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    open_how how{};
    how.flags = static_cast<unsigned>(flags | O_CLOEXEC);
    how.mode = flags & O_CREAT ? 0666 : 0;
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_MAGICLINKS;
    const auto file =
        static_cast<int>(syscall(SYS_openat2, folder, name.c_str(), &how, sizeof how));
    const int error = errno;
    close(folder);
    if (file < 0)
        throw ScriptError(name + ": " + std::strerror(error));
    return {fdopen(file, mode), &std::fclose};
}

} // namespace

Folder::Folder(std::filesystem::path root) : root_(std::move(root)) {}

std::string Folder::Read(const std::string& name) const {
    const File file = OpenBeneath(root_, name, O_RDONLY, "rb");
    std::string bytes;
    char part[65536];
    while (const size_t count = std::fread(part, 1, sizeof part, file.get()))
        bytes.append(part, count);
    return bytes;
}

void Folder::Write(const std::string& name, std::string_view bytes) const {
    const File file = OpenBeneath(root_, name, O_WRONLY | O_CREAT | O_TRUNC, "wb");
    if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size())
        throw ScriptError("no se puede escribir " + name);
}

} // namespace player
