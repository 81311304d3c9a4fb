// SPDX-License-Identifier: GPL-3.0-or-later
// How long 64 MiB take to be on the disk, against cp and sync, and how long the windows wait at
// most meanwhile. The files are in TMPDIR, or in the system's folder for such files.
#include "Ratio.h"
#include "platform/files/CopyFile.h"
#include "platform/files/Paths.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr qsizetype kSize = 64 << 20;
qint64 longestGap = 0; // milliseconds between two turns of the event loop

void Theirs(benchmark::State& state, const QString& from, const QString& to) {
    const std::string command =
        QStringLiteral("cp '%1' '%2' && sync '%2'").arg(from, to).toStdString();
    for (auto _ : state) {
        if (std::system(command.c_str()) != 0)
            state.SkipWithError("not copied");
    }
}

void Ours(benchmark::State& state, const QString& from, const QString& to) {
    const QString source = platform::FromNative(from.toStdString());
    const QString target = platform::FromNative(to.toStdString());
    QElapsedTimer turn;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout,
                     [&] { longestGap = std::max(longestGap, turn.restart()); });
    timer.start(0);
    const int cancel = 0;
    for (auto _ : state) {
        turn.start();
        platform::CopyFileExA(
            source, target, [](qint64, qint64) { QApplication::processEvents(); }, cancel);
        longestGap = std::max(longestGap, turn.elapsed());
    }
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString from = folder.filePath(QStringLiteral("from"));
    QByteArray bytes(kSize, Qt::Uninitialized);
    for (qsizetype i = 0; i < kSize; ++i)
        bytes[i] = static_cast<char>(i * 2654435761U >> 13);
    QFile file(from);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != kSize || !file.flush())
        return 1;
    const auto add = [](const char* name, auto copy) {
        bench::NineTimes(benchmark::RegisterBenchmark(name, copy))->UseRealTime();
    };
    add("theirs/copy_64MiB",
        [&](auto& state) { Theirs(state, from, folder.filePath(QStringLiteral("theirs"))); });
    add("ours/copy_64MiB",
        [&](auto& state) { Ours(state, from, folder.filePath(QStringLiteral("ours"))); });
    const int result = bench::RunAndCompare(argc, argv);
    std::printf("longest wait of the windows: %lld ms\n", static_cast<long long>(longestGap));
    return result;
}
