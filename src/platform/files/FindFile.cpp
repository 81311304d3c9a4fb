// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/FindFile.h"

#include "platform/base/Failure.h"
#include "platform/files/FileTime.h"
#include "platform/files/Paths.h"
#include "platform/text/NativeNames.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <linux/msdos_fs.h>
#include <memory>
#include <string_view>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>
#include <utility>

namespace platform {
namespace {

constexpr long kExfatMagic = 0x2011BAB0;

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

Folder Open(const QString& path) {
    try {
        return Folder(::opendir(ToNative(path).c_str()));
    } catch (const Failure&) {
        return nullptr; // a drive that isn't there
    }
}

bool HasAttributes(int folder) {
    struct statfs system {};
    return ::fstatfs(folder, &system) == 0 &&
           (system.f_type == MSDOS_SUPER_MAGIC || system.f_type == kExfatMagic);
}

std::optional<quint32> OwnAttributes(int folder, const char* name) {
    const int file = ::openat(folder, name, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return std::nullopt;
    __u32 attributes = 0;
    const bool told = ::ioctl(file, FAT_IOCTL_GET_ATTRIBUTES, &attributes) == 0;
    ::close(file);
    return told ? std::optional(FromFatAttributes(attributes)) : std::nullopt;
}

quint32 OrNormal(quint32 attributes) {
    return attributes == 0 ? quint32{FILE_ATTRIBUTE_NORMAL} : attributes;
}

quint32 TypeAttribute(mode_t mode) {
    if (S_ISDIR(mode))
        return FILE_ATTRIBUTE_DIRECTORY;
    const bool special = S_ISSOCK(mode) || S_ISFIFO(mode) || S_ISCHR(mode) || S_ISBLK(mode);
    return special ? quint32{FILE_ATTRIBUTE_SYSTEM} : 0U;
}

// What is known of an entry, at least its name and type; nullopt if it has vanished.
std::optional<FoundFile> Look(int folder, const dirent& entry, bool hasAttributes) {
    const std::string_view name = entry.d_name;
    FoundFile found{FromNativeName(QByteArrayView(name))};
    if (name.front() == '.')
        found.attributes = FILE_ATTRIBUTE_HIDDEN;
    struct stat status {};
    if (::fstatat(folder, entry.d_name, &status, 0) == 0) {
        found.sizeLow = static_cast<quint32>(status.st_size);
        found.lastWriteTime = ToFileTime(status.st_mtim);
        found.attributes |= TypeAttribute(status.st_mode);
        if (::faccessat(folder, entry.d_name, W_OK, AT_EACCESS) != 0)
            found.attributes |= FILE_ATTRIBUTE_READONLY;
    } else if (::fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0) {
        found.lastWriteTime = ToFileTime(status.st_mtim); // of a link with no target
        found.attributes |= TypeAttribute(status.st_mode);
    } else if (errno != ENOENT) {
        found.attributes |= TypeAttribute(DTTOIF(entry.d_type));
    } else {
        return std::nullopt;
    }
    found.attributes = OrNormal(found.attributes);
    if (hasAttributes)
        found.attributes = OwnAttributes(folder, entry.d_name).value_or(found.attributes);
    return found;
}

} // namespace

quint32 FromFatAttributes(quint32 attributes) {
    return OrNormal(attributes &
                    (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                     FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_ARCHIVE));
}

std::optional<std::vector<FoundFile>> FindFiles(const QString& folder, size_t limit) {
    const Folder opened = Open(folder);
    if (!opened)
        return std::nullopt;
    const int descriptor = ::dirfd(opened.get());
    const bool hasAttributes = HasAttributes(descriptor);
    std::vector<FoundFile> found;
    while (found.size() < limit) {
        const dirent* entry = ::readdir(opened.get());
        if (!entry)
            break;
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..")
            continue;
        if (auto file = Look(descriptor, *entry, hasAttributes))
            found.push_back(std::move(*file));
    }
    return found;
}

} // namespace platform
