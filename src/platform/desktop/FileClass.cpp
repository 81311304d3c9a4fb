// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/FileClass.h"

#include "platform/desktop/Registry.h"
#include "platform/files/ProgramFolder.h"

#include <algorithm>

namespace platform {
namespace {

// The words of a text, split at blanks outside double quotes; the quotes are left out.
QStringList WordsOf(const QString& text) {
    QStringList words;
    QString word;
    bool quoted = false;
    bool begun = false;
    for (const QChar c : text + u' ') {
        if (c == u'"') {
            quoted = !quoted;
            begun = true;
        } else if (c != u' ' || quoted) {
            word += c;
            begun = true;
        } else if (begun) {
            words.append(word);
            word.clear();
            begun = false;
        }
    }
    return words;
}

qsizetype EndOfProgram(const QString& commandLine) {
    for (qsizetype end = commandLine.size(); end > 0;
         end = commandLine.lastIndexOf(u' ', end - 1)) {
        if (CanRun(ProgramFile(commandLine.first(end))))
            return end;
    }
    const qsizetype file = commandLine.lastIndexOf(QStringLiteral(" %1"));
    return file < 0 ? commandLine.size() : file;
}

} // namespace

std::optional<FileClass> FindFileClass(const QString& extension) {
    const QString name =
        extension.isEmpty() ? QString() : RegQueryValueA(HKEY_CLASSES_ROOT, extension);
    if (name.isEmpty())
        return std::nullopt;
    const RegistryKey key = RegCreateKeyA(HKEY_CLASSES_ROOT, name);
    return FileClass{RegQueryValueA(key, QString()),
                     RegQueryValueA(key, QStringLiteral("shell\\open\\command")),
                     RegQueryValueA(key, QStringLiteral("DefaultIcon"))};
}

QString ExtensionOf(const QString& path) {
    const QString name = path.sliced(std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/')) + 1);
    const qsizetype point = name.lastIndexOf(u'.');
    return point < 0 ? QString() : name.sliced(point);
}

Command ParseCommand(const QString& commandLine) {
    if (commandLine.startsWith(u'"'))
        return {ProgramFile(commandLine.section(u'"', 1, 1)),
                WordsOf(commandLine.section(u'"', 2))};
    const qsizetype end = EndOfProgram(commandLine);
    return {ProgramFile(commandLine.first(end)), WordsOf(commandLine.sliced(end))};
}

} // namespace platform
