// SPDX-License-Identifier: GPL-3.0-or-later
// From the start of the process to the main window, by turns for the program and a bare window.
#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <vector>

namespace {

constexpr int kRuns = 31;

double Start(const QString& program) {
    QProcess process;
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    const auto nanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
    process.start(program, {QString::number(nanoseconds)});
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("a start failed");
    return process.readAllStandardOutput().trimmed().toDouble();
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    qputenv("QUILLMARK_HOME", folder.path().toUtf8());
    std::ofstream(folder.filePath(QStringLiteral("config.ini")).toStdString())
        << "[inicio]\r\nejecuciones=1\r\n[general]\r\nnuevo=si\r\n";
    const QString bin = QCoreApplication::applicationDirPath();
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int run = 0; run <= kRuns; ++run) {
        const double bare = Start(bin + QStringLiteral("/startup_bare"));
        const double quillmark = Start(bin + QStringLiteral("/startup_quillmark"));
        if (run == 0)
            continue; // the caches were cold
        theirs.push_back(bare);
        ours.push_back(quillmark);
    }
    std::printf("bare window %.1f ms, Quillmark without its splash %.1f ms (medians of %d)\n",
                Median(theirs), Median(ours), kRuns);
    std::printf("ratio %-30s %.2f\n", "startup", Median(ours) / Median(theirs));
    return 0;
}
