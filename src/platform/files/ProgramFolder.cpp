// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/ProgramFolder.h"

#include "platform/base/Log.h"
#include "platform/files/FileErrors.h"
#include "platform/files/FileHandle.h"
#include "platform/files/FolderLock.h"
#include "platform/files/Paths.h"
#include "platform/files/Replacement.h"

#include <QStandardPaths>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace platform {
namespace {

namespace fs = std::filesystem;

fs::path& Folder() {
    static fs::path folder;
    return folder;
}

fs::path& Executable() {
    static fs::path executable;
    return executable;
}

fs::path ChooseFolder(const fs::path& executable) {
    if (const char* home = std::getenv("QUILLMARK_HOME"); home && *home)
        return fs::absolute(home);
    fs::path beside = executable.parent_path();
    const bool ofThePackageManager = beside.native().starts_with("/usr/"); // root could write there
    if (!ofThePackageManager && ::access(beside.c_str(), W_OK) == 0)
        return beside;
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return fs::path(data.toStdString()) / "quillmark";
}

// Copies an installed file and makes the copy writable for the user.
void Copy(const fs::path& from, const fs::path& to) {
    try {
        const FileHandle source(from, O_RDONLY);
        Replacement fresh(to, (source.Status().st_mode & 0777U) | S_IWUSR);
        fresh.Write(source.ReadAll(), 0);
        fresh.TakePlace();
    } catch (const SystemError& error) {
        throw fs::filesystem_error("copy", from, to, {error.number, std::system_category()});
    }
}

// Links a program if the file system can, so that an update of the installation reaches it.
void Install(const fs::path& from, const fs::path& to) {
    std::error_code error;
    if (fs::is_symlink(to)) // to a former installation
        fs::remove(to);
    if (CanRun(from))
        fs::create_symlink(from, to, error);
    if (!CanRun(from) || error)
        Copy(from, to);
}

void CopyMissing(const fs::path& from, const fs::path& to) {
    fs::create_directories(to);
    if (!fs::exists(from))
        return;
    for (const fs::directory_entry& entry : fs::directory_iterator(from)) {
        const fs::path target = to / entry.path().filename();
        if (entry.is_directory())
            CopyMissing(entry.path(), target);
        else if (!fs::exists(target))
            Install(entry.path(), target);
    }
}

} // namespace

void PrepareProgramFolder(const fs::path& executable) {
    Executable() = executable;
    Folder() = ChooseFolder(executable).lexically_normal();
    const fs::path prefix = executable.parent_path().parent_path();
    try {
        fs::create_directories(Folder());
        const FolderLock lock(Folder()); // against a second first start
        for (const char* installed : {"share", "libexec"})
            CopyMissing(prefix / installed / "quillmark", Folder());
    } catch (const fs::filesystem_error& error) {
        qCWarning(lcQuillmark) << "the program's folder can't be filled:" << error.what();
    }
}

QString ProgramFolder() {
    return FromNative(Folder());
}

QString InProgramFolder(QStringView name) {
    QString path = ProgramFolder();
    if (!path.endsWith(u'\\'))
        path += u'\\';
    return path += name;
}

fs::path ProgramFile(const QString& path) {
    const QString suffix = QStringLiteral(".exe");
    const QString name =
        path.endsWith(suffix, Qt::CaseInsensitive) ? path.chopped(suffix.size()) : path;
    const QString own = InProgramFolder(u"Quillmark");
    fs::path native = ToNative(name);
    return name.compare(own, Qt::CaseInsensitive) == 0 && !CanRun(native) ? Executable() : native;
}

bool CanRun(const fs::path& native) {
    std::error_code error;
    return fs::is_regular_file(native, error) && ::access(native.c_str(), X_OK) == 0;
}

} // namespace platform
