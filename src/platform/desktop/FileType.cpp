// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/FileType.h"

#include "platform/base/Failure.h"
#include "platform/desktop/FileClass.h"
#include "platform/files/Paths.h"

#include <QApplication>
#include <QFileInfo>
#include <QImageReader>
#include <QMimeDatabase>
#include <QPixmap>
#include <QStyle>
#include <algorithm>

namespace platform {
namespace {

// A larger file or picture is not taken for an icon, since it may take long to read.
constexpr qint64 kLargestIcon = 1 << 20; // bytes
constexpr int kLargestSide = 256;        // pixels
constexpr int kPictures = 32;

// For QFileInfo, which finds no file with bytes that aren't UTF-8: it goes by its extension then.
QString Native(const QString& path) {
    try {
        return QString::fromStdString(ToNative(path).native());
    } catch (const Failure&) {
        return {}; // the drive has gone
    }
}

QIcon IconInFile(const QString& path) {
    const QString native = Native(path);
    const QFileInfo file(native);
    if (!file.isFile() || file.size() > kLargestIcon)
        return {};
    QIcon icon;
    QImageReader reader(native);
    const int pictures = std::clamp(reader.imageCount(), 1, kPictures);
    for (int i = 0; i < pictures && (i == 0 || reader.jumpToImage(i)); ++i) {
        const QPixmap picture = QPixmap::fromImageReader(&reader);
        if (picture.width() > kLargestSide || picture.height() > kLargestSide)
            break;
        icon.addPixmap(picture);
    }
    return icon;
}

bool IsIcon(const QString& path) {
    const QString extension = ExtensionOf(path).toLower();
    return extension == u".ico" || extension == u".cur";
}

// A file of size 0 isn't read: it is empty, or the kernel generates it (as in /proc), and reading
// might never end.
QMimeType DesktopType(const QString& path) {
    const QMimeDatabase database;
    const QFileInfo file(Native(path));
    const bool sizeless = file.isFile() && file.size() == 0;
    const QMimeType type = database.mimeTypeForFile(file, sizeless ? QMimeDatabase::MatchExtension
                                                                   : QMimeDatabase::MatchDefault);
    return sizeless && type.isDefault()
               ? database.mimeTypeForName(QStringLiteral("application/x-zerosize"))
               : type;
}

} // namespace

QString FileTypeName(const QString& path) {
    const auto fileClass = FindFileClass(ExtensionOf(path));
    if (fileClass && !fileClass->title.isEmpty())
        return fileClass->title;
    return DesktopType(path).comment();
}

QIcon FileIcon(const QString& path) {
    QIcon icon = IsIcon(path) ? IconInFile(path) : QIcon();
    if (icon.isNull()) {
        const auto fileClass = FindFileClass(ExtensionOf(path));
        if (fileClass && !fileClass->icon.isEmpty())
            icon = IconInFile(fileClass->icon);
    }
    if (!icon.isNull())
        return icon;
    const QMimeType type = DesktopType(path);
    for (const QString& name : {type.iconName(), type.genericIconName()}) {
        if (icon = QIcon::fromTheme(name); !icon.isNull())
            return icon;
    }
    const bool folder = type.name() == u"inode/directory";
    return QApplication::style()->standardIcon(folder ? QStyle::SP_DirIcon : QStyle::SP_FileIcon);
}

} // namespace platform
