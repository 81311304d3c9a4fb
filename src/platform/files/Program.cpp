// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/Program.h"

#include "platform/base/Failure.h"
#include "platform/base/Log.h"
#include "platform/files/FolderLock.h"
#include "platform/files/Paths.h"
#include "platform/text/NativeNames.h"

#include <QStandardPaths>
#include <cstdlib>
#include <pwd.h>
#include <unistd.h>
#include <utility>

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

std::function<void()>& End() {
    static std::function<void()> end;
    return end;
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

// Under another name first, so that a half copied file never passes for the whole one. A program
// is linked where the file system can, so that it stays the one that is installed.
void CopyFile(const fs::path& from, const fs::path& to) {
    const fs::path fresh = to.native() + ".new";
    std::error_code error;
    fs::remove(fresh, error);
    if (CanRun(from))
        fs::create_symlink(from, fresh, error);
    if (!CanRun(from) || error) {
        fs::copy_file(from, fresh, fs::copy_options::overwrite_existing);
        fs::permissions(fresh, fs::perms::owner_write, fs::perm_options::add);
    }
    fs::rename(fresh, to);
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
            CopyFile(entry.path(), target);
    }
}

} // namespace

QString ProgramVersion() {
    return QStringLiteral(QUILLMARK_VERSION);
}

void FindHome() {
    const char* home = std::getenv("HOME");
    const passwd* user = home && *home ? nullptr : ::getpwuid(::getuid());
    if (user)
        ::setenv("HOME", user->pw_dir, 1);
}

void PrepareProgramFolder(const fs::path& executable) {
    Executable() = executable;
    Folder() = ChooseFolder(executable).lexically_normal();
    const fs::path prefix = executable.parent_path().parent_path();
    try {
        fs::create_directories(Folder());
        const FolderLock lock(Folder()); // two first starts at once
        for (const char* installed : {"share", "libexec"})
            CopyMissing(prefix / installed / "quillmark", Folder());
    } catch (const fs::filesystem_error& error) {
        qCWarning(lcQuillmark) << "the program's folder can't be filled:" << error.what();
    }
}

QString ProgramFolder() {
    return FromNative(Folder());
}

fs::path ProgramFile(const QString& path) {
    const QString suffix = QStringLiteral(".exe");
    const QString name =
        path.endsWith(suffix, Qt::CaseInsensitive) ? path.chopped(suffix.size()) : path;
    const QString own = ProgramFolder() + QStringLiteral("\\Quillmark");
    fs::path native = ToNative(name);
    return name.compare(own, Qt::CaseInsensitive) == 0 && !CanRun(native) ? Executable() : native;
}

bool CanRun(const fs::path& native) {
    std::error_code error;
    return fs::is_regular_file(native, error) && ::access(native.c_str(), X_OK) == 0;
}

QString CommandLinePath(const std::vector<std::string>& arguments) {
    std::string joined;
    for (const std::string& argument : arguments)
        joined += (joined.empty() ? "" : " ") + argument;
    return joined.empty() ? QString() : FromNative(joined);
}

void ChangeDirectory(const QString& folder) {
    if (::chdir(ToNative(folder).c_str()) != 0)
        throw Failure(
            FailureCode::PathNotFound, QStringLiteral("Rutas"),
            QStringLiteral("No se puede entrar en la carpeta \"%1\".").arg(DisplayText(folder)));
}

void EndProcess() {
    if (End())
        End()();
    else
        std::_Exit(EXIT_SUCCESS);
}

void ReplaceEndProcess(std::function<void()> end) {
    End() = std::move(end);
}

} // namespace platform
