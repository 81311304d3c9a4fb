// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/ShellExecute.h"

#include "platform/base/Log.h"
#include "platform/base/Silently.h"
#include "platform/desktop/FileClass.h"
#include "platform/files/FileErrors.h"
#include "platform/files/Paths.h"
#include "platform/files/ProgramFolder.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace platform {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> Words(const Command& command, const fs::path& file) {
    std::vector<std::string> words = {command.program.native()};
    for (const QString& argument : command.arguments) {
        QByteArray word = argument.toUtf8();
        words.push_back(word.replace("%1", QByteArray::fromStdString(file.native())).toStdString());
    }
    return words;
}

// The texts as a null-terminated array for exec; valid as long as they are.
std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

// The other variables before our own: the first of a name counts.
std::vector<std::string> Whole(const Environment& environment) {
    std::vector<std::string> whole;
    for (const auto& [name, value] : environment)
        whole.emplace_back(name).append("=").append(value);
    for (char** own = environ; *own; ++own)
        whole.emplace_back(*own);
    return whole;
}

struct Invocation {
    char* const* arguments;
    char* const* environment;
    const char* folder;
};

// Replaces the process by the program, or writes the errno to the pipe `report`.
[[noreturn]] void Become(const Invocation& call, int report) {
    const int nowhere = ::open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        ::dup2(nowhere, stream);
    ::signal(SIGPIPE, SIG_DFL); // QProcess may have ignored it, and the program would inherit that
    if (::chdir(call.folder) == 0)
        ::execvpe(call.arguments[0], call.arguments, call.environment);
    const int error = errno;
    [[maybe_unused]] const ssize_t told = ::write(report, &error, sizeof error);
    ::_exit(EXIT_FAILURE);
}

// Returns 0, or the errno of a failed start. QProcess::startDetached would take QStrings, which
// can't hold every native file name.
int StartDetached(const Invocation& call) {
    std::array<int, 2> report{};
    if (::pipe2(report.data(), O_CLOEXEC) != 0)
        return errno;
    const pid_t middle = ::fork();
    if (middle == 0) {
        ::setsid();
        // Its parent ends at once, so the program becomes a child of init, which waits for it.
        if (::fork() == 0)
            Become(call, report[1]);
        ::_exit(EXIT_SUCCESS);
    }
    int error = middle < 0 ? errno : 0;
    ::close(report[1]);
    if (middle > 0) {
        ::waitpid(middle, nullptr, 0);
        [[maybe_unused]] const ssize_t told = ::read(report[0], &error, sizeof error);
    }
    ::close(report[0]);
    return error;
}

void Start(const Command& command, const fs::path& file, const Environment& environment) {
    std::vector<std::string> words = Words(command, file);
    std::vector<std::string> whole = Whole(environment);
    const fs::path folder = file.parent_path();
    const std::vector<char*> arguments = Pointers(words);
    const std::vector<char*> variables = Pointers(whole);
    if (const int error = StartDetached({arguments.data(), variables.data(), folder.c_str()}))
        qCWarning(lcQuillmark) << "not started:" << arguments.front() << ErrorText(error);
}

Command CommandFor(const QString& file) {
    const QString extension = ExtensionOf(file);
    if (const auto found = FindFileClass(extension); found && !found->command.isEmpty())
        return ParseCommand(found->command);
    const fs::path player = ProgramFile(InProgramFolder(u"QM\\luaplayer"));
    const bool plays = extension.compare(u".lua", Qt::CaseInsensitive) == 0 && CanRun(player);
    return {plays ? player : fs::path("xdg-open"), {QStringLiteral("%1")}};
}

} // namespace

void ShellExecuteA(const QString& file, const Environment& environment) {
    RunSilently([&] { Start(CommandFor(file), ToNative(file), environment); });
}

} // namespace platform
