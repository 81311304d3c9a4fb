// SPDX-License-Identifier: GPL-3.0-or-later
// How long a folder takes from the press to the rows shown, against the toolkit's own reading and
// sorting of the same folder, which shows nothing.
#include "Ratio.h"
#include "explorer/clsListFile.h"
#include "platform/controls/ListView.h"
#include "platform/files/Paths.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>

namespace {

class Nobody : public explorer::MarcoExplorador {
    void AbrirProyecto(const QString&, const QString&) override {}
};

struct Window {
    Window() {
        files.SetControls(view, small, large);
        view.resize(240, 500);
        view.show();
        QApplication::processEvents();
    }
    Nobody nobody;
    platform::FileSystemObject fso;
    platform::ImageList small;
    platform::ImageList large;
    platform::ListView view;
    explorer::clsListFile files{nobody, fso};
};

bool Fill(const QString& folder, int count) {
    constexpr int kExtensions = 40;
    for (int i = 0; i < count; ++i) {
        QFile file(QStringLiteral("%1/archivo %2.e%3").arg(folder).arg(i).arg(i % kExtensions));
        if (!file.open(QIODevice::WriteOnly))
            return false;
    }
    return true;
}

void Register(const std::string& name, const QString& folder) {
    bench::NineTimes(benchmark::RegisterBenchmark(("theirs/" + name).c_str(), [=](auto& state) {
        for (auto _ : state)
            benchmark::DoNotOptimize(
                QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System,
                                       QDir::Name | QDir::IgnoreCase | QDir::LocaleAware));
    }));
    bench::NineTimes(benchmark::RegisterBenchmark(("ours/" + name).c_str(), [=](auto& state) {
        Window window;
        for (auto _ : state) {
            window.files.Listar(platform::FromNative(folder.toStdString()));
            QApplication::processEvents();
        }
    }));
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    const QTemporaryDir large;
    const QTemporaryDir small;
    if (!Fill(large.path(), 32000) || !Fill(small.path(), 200))
        return 1;
    Register("folder_32000", large.path());
    Register("folder_200", small.path());
    return bench::RunAndCompare(argc, argv);
}
