// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/FolderNames.h"

#include "platform/base/Failure.h"
#include "platform/files/Paths.h"
#include "platform/text/NativeNames.h"

#include <QDir>
#include <algorithm>
#include <filesystem>

namespace platform {
namespace {

namespace fs = std::filesystem;

bool ComesBefore(const QString& a, const QString& b) {
    const int order = a.compare(b, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : a < b;
}

template<class Wanted>
QStringList Names(const QString& folder, Wanted wanted) {
    fs::path native;
    try {
        native = ToNative(folder);
    } catch (const Failure&) {
        return {}; // a drive that isn't there
    }
    QStringList names;
    std::error_code error;
    for (fs::directory_iterator it(native, error), end; !error && it != end; it.increment(error)) {
        const QString name = FromNativeName(QByteArrayView(it->path().filename().native()));
        if (!name.startsWith(u'.') && wanted(*it, name))
            names.append(name);
    }
    std::sort(names.begin(), names.end(), ComesBefore);
    return names;
}

} // namespace

QStringList FolderNames(const QString& folder) {
    return Names(folder, [](const fs::directory_entry& entry, const QString&) {
        std::error_code unknown;
        return entry.is_directory(unknown);
    });
}

QStringList FileNames(const QString& folder, const QString& pattern) {
    return Names(folder, [&](const fs::directory_entry& entry, const QString& name) {
        std::error_code unknown;
        return QDir::match(pattern, name) && entry.is_regular_file(unknown);
    });
}

} // namespace platform
