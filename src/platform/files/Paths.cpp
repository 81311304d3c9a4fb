// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/Paths.h"

#include "platform/base/Failure.h"
#include "platform/files/Drives.h"
#include "platform/text/NativeNames.h"

#include <QStringList>
#include <algorithm>
#include <iterator>
#include <unistd.h>

namespace platform {
namespace {

namespace fs = std::filesystem;

// The entry of the folder with that name in any case; of several, the first in byte order. The name
// itself if there is none.
fs::path FindEntry(const fs::path& folder, const std::string& name) {
    std::error_code error;
    if (fs::exists(fs::symlink_status(folder / name, error)))
        return name;
    const QString wanted = FromNativeName(QByteArrayView(name));
    fs::path best;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        const fs::path entry = it->path().filename();
        const bool same =
            FromNativeName(QByteArrayView(entry.native())).compare(wanted, Qt::CaseInsensitive) ==
            0;
        if (same && (best.empty() || entry < best))
            best = entry;
    }
    return best.empty() ? fs::path(name) : best;
}

// "/" if the current directory has been deleted.
fs::path CurrentFolder() {
    std::error_code error;
    fs::path current = fs::current_path(error);
    return error ? fs::path("/") : current;
}

struct Start {
    fs::path root;   // what ".." can't leave
    fs::path folder; // where the rest begins
    QString rest;
};

Start StartOf(const QString& path) {
    if (path.size() >= 2 && path.at(1) == u':') {
        const auto root = CurrentDrives().Root(path.at(0));
        if (!root)
            throw Failure(FailureCode::PathNotFound, QStringLiteral("Rutas"),
                          QStringLiteral("No existe la unidad %1").arg(path.left(2).toUpper()));
        return {*root, *root, path.mid(2)};
    }
    const fs::path current = CurrentFolder();
    const fs::path root = CurrentDrives().Holding(current).root;
    return {root, path.startsWith(u'\\') ? root : current, path};
}

} // namespace

fs::path ToNative(const QString& path, LastName lastName) {
    if (path.isEmpty() || path.contains(QChar(u'\0')))
        throw Failure(FailureCode::PathNotFound, QStringLiteral("Rutas"),
                      QStringLiteral("El nombre de archivo no es válido"));
    Start start = StartOf(path);
    fs::path native = start.folder;
    start.rest.replace(u'/', u'\\');
    const QStringList parts = start.rest.split(u'\\', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const QString& part = parts.at(i);
        const bool asWritten = lastName == LastName::AsWritten && i + 1 == parts.size();
        if (part == u"..")
            native = native == start.root ? native : native.parent_path();
        else if (part != u".")
            native /=
                asWritten ? fs::path(ToNativeName(part)) : FindEntry(native, ToNativeName(part));
    }
    return native;
}

QString FromNative(const fs::path& native) {
    fs::path absolute = CurrentFolder() / native;
    std::error_code error;
    // After a link, ".." is the parent of the link's target, which lexically_normal doesn't know.
    if (std::find(absolute.begin(), absolute.end(), "..") != absolute.end())
        absolute = fs::weakly_canonical(absolute.parent_path(), error) / absolute.filename();
    absolute = absolute.lexically_normal();
    const Drive drive = CurrentDrives().Holding(absolute);
    auto part = absolute.begin();
    std::advance(part, std::distance(drive.root.begin(), drive.root.end()));
    QStringList names;
    for (; part != absolute.end(); ++part) {
        if (!part->empty())
            names.append(FromNativeName(QByteArrayView(part->native())));
    }
    return QLatin1Char(drive.letter) + QStringLiteral(":\\") + names.join(u'\\');
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

} // namespace platform
