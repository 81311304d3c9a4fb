// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Folder.h"

#include "core/ErrorText.h"
#include "player/Encoding.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <utility>

namespace player {
namespace {

constexpr size_t kLongestPath = 4096;
constexpr size_t kLongestShown = 200;
constexpr size_t kMostEntries = 65536;
constexpr int kAttempts = 64;
constexpr int kFilePermissions = 0644;
constexpr int kFolderPermissions = 0755;

// Texts of a script's folder, in place of the general ones.
constexpr std::array kErrors = {
    core::ErrorText{ENOTDIR, "no es una carpeta"},
    core::ErrorText{EINVAL, "no es un nombre válido"},
    core::ErrorText{EFBIG, "el archivo es demasiado grande"},
    core::ErrorText{EXDEV, "queda fuera de la carpeta del script"},
    core::ErrorText{ELOOP, "es un enlace que no se puede seguir"},
};

std::string Shown(std::string_view path) {
    return std::string(path.substr(0, std::min(path.find('\0'), kLongestShown)));
}

[[noreturn]] void Fail(std::string_view path, int code) {
    const char* const known = core::TextOfError(kErrors, code);
    const std::string text = known ? known : "no se pudo (" + std::to_string(code) + ")";
    throw FolderError("'" + Shown(path) + "': " + text, code);
}

bool IsSeparator(char c) {
    return c == '/' || c == '\\';
}

// Adds the parts of the path to those there are. False if ".." leads above the first.
bool Append(std::vector<std::string>& parts, std::string_view path) {
    while (!path.empty()) {
        const auto end = std::find_if(path.begin(), path.end(), IsSeparator);
        const std::string_view part(path.begin(), end);
        path.remove_prefix(std::min(path.size(), part.size() + 1));
        if (part.empty() || part == ".")
            continue;
        if (part != "..")
            parts.push_back(ToUtf8(part)); // files have UTF-8 names, the script may have others
        else if (parts.empty())
            return false;
        else
            parts.pop_back();
    }
    return true;
}

std::string Join(const std::vector<std::string>& parts) {
    std::string path;
    for (const std::string& part : parts)
        path += (path.empty() ? "" : "/") + part;
    return path;
}

bool HasDrive(std::string_view path) {
    const auto end = std::find_if(path.begin(), path.end(), IsSeparator);
    return std::find(path.begin(), end, ':') != end;
}

int OpenFlags(Folder::Mode mode) {
    switch (mode) {
    case Folder::Mode::Read:
        return O_RDONLY;
    case Folder::Mode::Write: // emptied once it is known to be a file
    case Folder::Mode::Truncate:
        return (mode == Folder::Mode::Write ? O_WRONLY : O_RDWR) | O_CREAT;
    case Folder::Mode::Append:
        return O_RDWR | O_CREAT | O_APPEND;
    case Folder::Mode::Update:
        return O_RDWR;
    case Folder::Mode::New:
        return O_RDWR | O_CREAT | O_EXCL;
    }
    return O_RDONLY;
}

} // namespace

bool FolderError::Outside() const {
    return code == EXDEV;
}

struct Folder::Place {
    core::FileDescriptor directory;
    std::string name;
};

Folder::Folder(const std::filesystem::path& root, Resolver resolver) : m_resolver(resolver) {
    const std::string absolute = std::filesystem::absolute(root).lexically_normal().string();
    Append(m_rootParts, absolute);
    m_root = core::FileDescriptor(open(absolute.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!m_root)
        Fail(absolute, errno);
}

core::FileDescriptor Folder::Open(std::string_view path, Mode mode) const {
    // Not blocking, for a pipe would wait for its other end.
    const int flags = OpenFlags(mode) | O_NONBLOCK | O_NOCTTY;
    core::FileDescriptor file =
        Resolve(Within(path), flags, (flags & O_CREAT) != 0 ? kFilePermissions : 0);
    if (!file)
        Fail(path, errno);
    struct stat status = {};
    if (fstat(file.Number(), &status) != 0)
        Fail(path, errno);
    if (!S_ISREG(status.st_mode))
        throw FolderError("'" + Shown(path) + "': no es un archivo", EISDIR);
    // A file that has another name may belong to somebody outside.
    if (mode != Mode::Read && status.st_nlink > 1)
        Fail(path, EXDEV);
    if ((mode == Mode::Write || mode == Mode::Truncate) && ftruncate(file.Number(), 0) != 0)
        Fail(path, errno);
    return file;
}

core::FileDescriptor Folder::OpenUnnamed() const {
    const int flags = O_TMPFILE | O_EXCL | O_RDWR | O_CLOEXEC;
    core::FileDescriptor file(openat(m_root.Number(), ".", flags, kFilePermissions));
    if (!file)
        Fail("archivo temporal", errno);
    return file;
}

std::string Folder::Read(std::string_view path, size_t limit) const {
    const core::FileDescriptor file = Open(path);
    std::string content;
    std::array<char, 65536> block = {};
    for (;;) {
        const ssize_t count = read(file.Number(), block.data(), block.size());
        if (count < 0)
            Fail(path, errno);
        if (count == 0)
            return content;
        if (content.size() + static_cast<size_t>(count) > limit)
            Fail(path, EFBIG);
        content.append(block.data(), static_cast<size_t>(count));
    }
}

void Folder::Write(std::string_view path, std::string_view bytes) const {
    const core::FileDescriptor file = Open(path, Mode::Write);
    while (!bytes.empty()) {
        const ssize_t count = write(file.Number(), bytes.data(), bytes.size());
        if (count < 0)
            Fail(path, errno);
        bytes.remove_prefix(static_cast<size_t>(count));
    }
}

std::vector<Folder::Entry> Folder::List(std::string_view path) const {
    const Parts parts = Within(path);
    core::FileDescriptor descriptor = OpenDirectory(parts, O_RDONLY, path);
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(fdopendir(descriptor.Number()), closedir);
    if (!directory)
        Fail(path, errno);
    descriptor.Release();
    std::vector<Entry> entries;
    while (const dirent* found = readdir(directory.get())) {
        Entry entry{found->d_name};
        if (entry.name == "." || entry.name == "..")
            continue;
        if (entries.size() == kMostEntries)
            Fail(path, EFBIG);
        // Through the folder again: a link that leads out tells nothing of its end.
        Parts inside = parts;
        inside.push_back(entry.name);
        struct stat status = {};
        const core::FileDescriptor file = Resolve(inside, O_PATH);
        if (file && fstat(file.Number(), &status) == 0) {
            entry.directory = S_ISDIR(status.st_mode);
            entry.size = S_ISREG(status.st_mode) ? static_cast<uint64_t>(status.st_size) : 0;
        }
        entries.push_back(std::move(entry));
    }
    std::sort(entries.begin(), entries.end(),
              [](const Entry& a, const Entry& b) { return a.name < b.name; });
    return entries;
}

void Folder::MakeDirectory(std::string_view path) const {
    const Place place = ParentOf(path);
    if (mkdirat(place.directory.Number(), place.name.c_str(), kFolderPermissions) != 0)
        Fail(path, errno);
}

void Folder::RemoveDirectory(std::string_view path) const {
    const Place place = ParentOf(path);
    if (unlinkat(place.directory.Number(), place.name.c_str(), AT_REMOVEDIR) != 0)
        Fail(path, errno);
}

void Folder::RemoveFile(std::string_view path) const {
    const Place place = ParentOf(path);
    if (unlinkat(place.directory.Number(), place.name.c_str(), 0) != 0)
        Fail(path, errno);
}

void Folder::Rename(std::string_view from, std::string_view to) const {
    const Place old = ParentOf(from);
    const Place fresh = ParentOf(to);
    if (renameat(old.directory.Number(), old.name.c_str(), fresh.directory.Number(),
                 fresh.name.c_str()) != 0)
        Fail(from, errno);
}

std::string Folder::CurrentDirectory() const {
    Parts parts = m_rootParts;
    parts.insert(parts.end(), m_current.begin(), m_current.end());
    return std::string("/").append(Join(parts));
}

void Folder::CurrentDirectory(std::string_view path) {
    Parts parts = Within(path);
    OpenDirectory(parts, O_PATH, path);
    m_current = std::move(parts);
}

// The parts from the folder on. An absolute path counts only if it is written from the folder on.
Folder::Parts Folder::Within(std::string_view path) const {
    if (path.find('\0') != std::string_view::npos || path.empty())
        Fail(path, EINVAL);
    if (path.size() > kLongestPath)
        Fail(path, ENAMETOOLONG);
    if (HasDrive(path))
        Fail(path, EXDEV);
    const bool absolute = IsSeparator(path.front());
    Parts parts = absolute ? Parts() : m_current;
    if (!Append(parts, path))
        Fail(path, EXDEV);
    if (!absolute)
        return parts;
    if (parts.size() < m_rootParts.size() ||
        !std::equal(m_rootParts.begin(), m_rootParts.end(), parts.begin()))
        Fail(path, EXDEV);
    return {parts.begin() + static_cast<ptrdiff_t>(m_rootParts.size()), parts.end()};
}

// The name itself isn't followed, so whoever removes or renames it acts on a link, not on its end.
Folder::Place Folder::ParentOf(std::string_view path) const {
    Parts parts = Within(path);
    if (parts.empty())
        Fail(path, EPERM);
    std::string name = std::move(parts.back());
    parts.pop_back();
    return {OpenDirectory(parts, O_PATH, path), std::move(name)};
}

core::FileDescriptor Folder::OpenDirectory(const Parts& parts, int flags,
                                           std::string_view path) const {
    core::FileDescriptor directory = Resolve(parts, flags | O_DIRECTORY);
    if (!directory)
        Fail(path, errno);
    return directory;
}

core::FileDescriptor Folder::Resolve(const Parts& parts, int flags, int permissions) const {
    const std::string path = parts.empty() ? "." : Join(parts);
    open_how how = {};
    how.flags = static_cast<uint64_t>(flags | O_CLOEXEC);
    how.mode = static_cast<uint64_t>(permissions);
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_MAGICLINKS;
    // EAGAIN: a folder was renamed meanwhile, and the kernel can't tell whether the path got out.
    for (int attempt = 0; m_resolver == Resolver::Kernel && attempt < kAttempts; ++attempt) {
        const long number = syscall(SYS_openat2, m_root.Number(), path.c_str(), &how, sizeof(how));
        if (number >= 0)
            return core::FileDescriptor(static_cast<int>(number));
        if (errno == ENOSYS)
            m_resolver = Resolver::Walk;
        else if (errno != EAGAIN && errno != EINTR)
            return core::FileDescriptor();
    }
    return m_resolver == Resolver::Walk ? Walk(parts, flags, permissions) : core::FileDescriptor();
}

core::FileDescriptor Folder::Walk(const Parts& parts, int flags, int permissions) const {
    core::FileDescriptor at(openat(m_root.Number(), ".", O_PATH | O_DIRECTORY | O_CLOEXEC));
    for (size_t i = 0; i + 1 < parts.size() && at; ++i)
        at = core::FileDescriptor(
            openat(at.Number(), parts[i].c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!at)
        return at;
    const char* name = parts.empty() ? "." : parts.back().c_str();
    return core::FileDescriptor(
        openat(at.Number(), name, flags | O_NOFOLLOW | O_CLOEXEC, permissions));
}

} // namespace player
