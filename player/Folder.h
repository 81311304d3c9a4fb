// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/FileDescriptor.h"
#include "player/ScriptError.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace player {

/// What couldn't be done with a path, in Spanish.
struct FolderError : ScriptError {
    FolderError(const std::string& text, int errorCode) : ScriptError(text), code(errorCode) {}

    bool Outside() const;

    int code; // errno
};

/// The folder of the script. A path is taken from the script's current directory, its parts end at
/// "/" and "\", and ".." takes away the part before it. The kernel resolves what is left strictly
/// beneath the folder, so a link counts only if it stays within. All throw FolderError.
class Folder {
public:
    enum class Resolver { Kernel, Walk }; // Walk serves kernels without openat2 and follows no link
    static constexpr size_t kLargestRead = size_t{256} << 20;
    enum class Mode { Read, Write, Append, Update, Truncate, New };

    struct Entry {
        std::string name;
        uint64_t size = 0;
        bool directory = false;
    };

    explicit Folder(const std::filesystem::path& root, Resolver resolver = Resolver::Kernel);

    /// Regular files only.
    core::FileDescriptor Open(std::string_view path, Mode mode = Mode::Read) const;
    /// A file without a name in the folder's file system.
    core::FileDescriptor OpenUnnamed() const;
    std::string Read(std::string_view path, size_t limit = kLargestRead) const;
    void Write(std::string_view path, std::string_view bytes) const;
    std::vector<Entry> List(std::string_view path) const;
    void MakeDirectory(std::string_view path) const;
    void RemoveDirectory(std::string_view path) const;
    void RemoveFile(std::string_view path) const;
    void Rename(std::string_view from, std::string_view to) const;

    /// In full; an absolute path is good if it is written like this one.
    std::string CurrentDirectory() const;
    void CurrentDirectory(std::string_view path);

private:
    using Parts = std::vector<std::string>;
    struct Place;

    Parts Within(std::string_view path) const;
    Place ParentOf(std::string_view path) const;
    core::FileDescriptor Resolve(const Parts& parts, int flags, int permissions = 0) const;
    core::FileDescriptor Walk(const Parts& parts, int flags, int permissions) const;
    core::FileDescriptor OpenDirectory(const Parts& parts, int flags, std::string_view path) const;

    Parts m_rootParts;
    Parts m_current;
    core::FileDescriptor m_root;
    mutable Resolver m_resolver;
};

} // namespace player
