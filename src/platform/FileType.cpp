// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileType.h"

#include "platform/Failure.h"
#include "platform/FileClass.h"
#include "platform/Paths.h"

#include <QApplication>
#include <QFileInfo>
#include <QImageReader>
#include <QMimeDatabase>
#include <QPixmap>
#include <QStyle>

namespace platform {
namespace {

constexpr qint64 kLargestIcon = 1 << 20; // bytes

// As far as the toolkit can name it: one with bytes that aren't UTF-8 goes by its extension.
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
    for (int frame = 0; frame == 0 || frame < reader.imageCount(); ++frame) {
        if (frame > 0 && !reader.jumpToImage(frame))
            break;
        icon.addPixmap(QPixmap::fromImageReader(&reader));
    }
    return icon;
}

bool IsIcon(const QString& path) {
    const QString extension = ExtensionOf(path).toLower();
    return extension == u".ico" || extension == u".cur";
}

} // namespace

QString FileTypeName(const QString& path) {
    const auto fileClass = FindFileClass(ExtensionOf(path));
    if (fileClass && !fileClass->title.isEmpty())
        return fileClass->title;
    return QMimeDatabase().mimeTypeForFile(Native(path)).comment();
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
    const QMimeType type = QMimeDatabase().mimeTypeForFile(Native(path));
    for (const QString& name : {type.iconName(), type.genericIconName()}) {
        if (icon = QIcon::fromTheme(name); !icon.isNull())
            return icon;
    }
    const bool folder = type.name() == u"inode/directory";
    return QApplication::style()->standardIcon(folder ? QStyle::SP_DirIcon : QStyle::SP_FileIcon);
}

} // namespace platform
