// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ShellExecute.h"

#include "platform/FileClass.h"
#include "platform/Handler.h"
#include "platform/Log.h"
#include "platform/Paths.h"

#include <QProcess>

namespace platform {
namespace {

QString Text(const std::filesystem::path& native) {
    return QString::fromStdString(native.native());
}

void Start(const Command& command, const std::filesystem::path& folder) {
    QProcess process;
    process.setProgram(Text(command.program));
    process.setArguments(command.arguments);
    process.setWorkingDirectory(Text(folder));
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    if (!process.startDetached())
        qCWarning(lcQuillmark) << "not started:" << process.program() << process.errorString();
}

Command CommandFor(const QString& file, const QString& native) {
    const auto fileClass = FindFileClass(ExtensionOf(file));
    if (!fileClass || fileClass->command.isEmpty())
        return {"xdg-open", {native}};
    Command command = ParseCommand(fileClass->command);
    command.arguments.replaceInStrings(QStringLiteral("%1"), native);
    return command;
}

} // namespace

void ShellExecuteA(const QString& file) {
    RunSilently([&] {
        const std::filesystem::path native = ToNative(file);
        Start(CommandFor(file, Text(native)), native.parent_path());
    });
}

} // namespace platform
