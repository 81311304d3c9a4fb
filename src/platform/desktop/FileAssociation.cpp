// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/FileAssociation.h"

#include "platform/base/Log.h"
#include "platform/base/Silently.h"
#include "platform/desktop/FileClass.h"
#include "platform/files/Files.h"
#include "platform/files/Paths.h"
#include "platform/files/ProfileFile.h"

#include <QBuffer>
#include <QImageReader>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QXmlStreamWriter>
#include <algorithm>

namespace platform {
namespace {

namespace fs = std::filesystem;

constexpr int kToolPatience = 3000; // milliseconds

struct Association {
    QString id;        // base name of the files that are written for it
    QString extension; // with its point
    QString mimeType;
    FileClass fileClass;
};

fs::path Location(QStandardPaths::StandardLocation location) {
    return QStandardPaths::writableLocation(location).toStdString();
}

fs::path DataHome() {
    return Location(QStandardPaths::GenericDataLocation);
}

void Write(const fs::path& native, const QByteArray& bytes) {
    fs::create_directories(native.parent_path());
    WriteFile(FromNative(native), bytes);
}

// Updates one of the desktop's caches, if its tool is installed.
void RunTool(const QString& tool, const fs::path& folder) {
    const QString program = QStandardPaths::findExecutable(tool);
    if (program.isEmpty())
        return;
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, {QString::fromStdString(folder.native())});
    if (process.waitForFinished(kToolPatience) && process.exitCode() == 0)
        return;
    qCWarning(lcQuillmark) << tool << process.errorString() << process.exitCode();
    process.kill();
    process.waitForFinished();
}

QString MimeTypeOf(const QString& extension) {
    const QMimeType known = QMimeDatabase().mimeTypeForFile(QStringLiteral("x") + extension,
                                                            QMimeDatabase::MatchExtension);
    return known.isDefault() ? QStringLiteral("text/x-quillmark-") + extension.mid(1)
                             : known.name();
}

QByteArray MimePackage(const Association& association) {
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("mime-info"));
    xml.writeDefaultNamespace(
        QStringLiteral("http://www.freedesktop.org/standards/shared-mime-info"));
    xml.writeStartElement(QStringLiteral("mime-type"));
    xml.writeAttribute(QStringLiteral("type"), association.mimeType);
    xml.writeTextElement(QStringLiteral("comment"), association.fileClass.title);
    xml.writeEmptyElement(QStringLiteral("icon"));
    xml.writeAttribute(QStringLiteral("name"), association.id);
    xml.writeEmptyElement(QStringLiteral("glob"));
    xml.writeAttribute(QStringLiteral("pattern"), u'*' + association.extension);
    xml.writeEndDocument();
    return bytes;
}

void WriteMimeType(const Association& association) {
    const fs::path folder = DataHome() / "mime";
    Write(folder / "packages" / (association.id.toStdString() + ".xml"), MimePackage(association));
    RunTool(QStringLiteral("update-mime-database"), folder);
}

void WriteIcons(const Association& association) {
    QByteArray file = ReadFile(association.fileClass.icon);
    QBuffer buffer(&file);
    QImageReader reader(&buffer, "ico");
    const fs::path theme = DataHome() / "icons" / "hicolor";
    for (int i = 0; i < reader.imageCount() && reader.jumpToImage(i); ++i) {
        const QImage image = reader.read();
        if (image.isNull())
            continue;
        QBuffer png;
        image.save(&png, "png");
        const QString folder = QStringLiteral("%1x%1/mimetypes").arg(image.width());
        Write(theme / folder.toStdString() / (association.id.toStdString() + ".png"), png.data());
    }
    fs::last_write_time(theme, fs::file_time_type::clock::now()); // makes icon caches reload
}

// True if an Exec line must quote the path (freedesktop.org, Desktop Entry; "%" is doubled there).
bool NeedsQuotes(const QString& path) {
    const QString reserved = QStringLiteral(" \t\n\"'\\><~|&;$*?#()`%");
    return std::any_of(path.begin(), path.end(), [&](QChar c) { return reserved.contains(c); });
}

// A path to the program that needs no quotes, which simple openers don't understand: that of a
// script that starts it. It still needs them if the data folder's path does.
fs::path BarePath(const fs::path& program, const QString& id) {
    if (!NeedsQuotes(QString::fromStdString(program.native())))
        return program;
    const fs::path script = DataHome() / "quillmark" / "bin" / id.toStdString();
    const QByteArray path = QByteArray::fromStdString(program.native()).replace("'", "'\\''");
    const bool made = RunSilently([&] {
        Write(script, "#!/bin/sh\nexec '" + path + "' \"$@\"\n");
        fs::permissions(script, fs::perms::owner_exec, fs::perm_options::add);
    });
    return made ? script : program;
}

void WriteDesktopEntry(const Association& association) {
    const fs::path program = ParseCommand(association.fileClass.command).program;
    QString name = QString::fromStdString(program.filename());
    name.replace(0, 1, name.left(1).toUpper());
    const fs::path folder = DataHome() / "applications";
    Write(folder / (association.id.toStdString() + ".desktop"),
          DesktopEntry(BarePath(program, association.id), name, association.id,
                       association.mimeType));
    RunTool(QStringLiteral("update-desktop-database"), folder);
}

void SetDefault(const Association& association) {
    const fs::path native = Location(QStandardPaths::GenericConfigLocation) / "mimeapps.list";
    const QByteArray section = "Default Applications";
    QByteArray list = fs::exists(native) ? ReadFile(FromNative(native)) : QByteArray();
    if (list.isEmpty())
        list = '[' + section + "]\n"; // else WithProfileValue would write CR LF
    Write(native, WithProfileValue(list, section, association.mimeType.toUtf8(),
                                   association.id.toUtf8() + ".desktop"));
}

// A text with the escapes of a string value of a desktop entry.
QByteArray Escaped(QString text) {
    return text.replace(u'\\', QStringLiteral("\\\\"))
        .replace(u'\n', QStringLiteral("\\n"))
        .replace(u'\t', QStringLiteral("\\t"))
        .replace(u'\r', QStringLiteral("\\r"))
        .toUtf8();
}

// A path, quoted as an argument of an Exec line.
QByteArray ExecArgument(QString path) {
    path.replace(u'%', QStringLiteral("%%"));
    if (!NeedsQuotes(path))
        return Escaped(path);
    for (const char16_t special : {u'\\', u'"', u'`', u'$'})
        path.replace(special, QStringLiteral("\\") + special);
    return Escaped(u'"' + path + u'"');
}

} // namespace

QByteArray DesktopEntry(const fs::path& program, const QString& name, const QString& icon,
                        const QString& mimeType) {
    const QString path = QString::fromStdString(program.native());
    return "[Desktop Entry]\nType=Application\nName=" + Escaped(name) +
           "\nExec=" + ExecArgument(path) + " %f\nTryExec=" + Escaped(path) +
           "\nIcon=" + Escaped(icon) + "\nMimeType=" + Escaped(mimeType) +
           ";\nTerminal=false\nNoDisplay=true\n";
}

void PutToDesktop(const QString& extension) {
    RunSilently([&] {
        const auto fileClass = FindFileClass(extension);
        if (!fileClass)
            return;
        const Association association{QStringLiteral("quillmark-") + extension.mid(1), extension,
                                      MimeTypeOf(extension), *fileClass};
        RunSilently([&] { WriteMimeType(association); });
        RunSilently([&] { WriteIcons(association); });
        WriteDesktopEntry(association);
        SetDefault(association);
    });
}

} // namespace platform
