// SPDX-License-Identifier: GPL-3.0-or-later
// How long a script of 10 MB takes to open and to be seen, against QScintilla's own reading.
#include "Ratio.h"
#include "documents/editor/CodeMax.h"
#include "documents/editor/engine/CodeMaxConstants.h"
#include "platform/files/Paths.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <Qsci/qsciscintilla.h>
#include <memory>

namespace {

constexpr qsizetype kSize = 10 << 20;

QByteArray Script(const QByteArray& line) {
    return line.repeated(kSize / line.size());
}

template<class Editor, class Open>
void Measure(benchmark::State& state, Open open) {
    for (auto _ : state) {
        Editor editor;
        editor.resize(600, 700);
        editor.show();
        open(editor);
        QApplication::processEvents();
    }
}

void Register(const char* name, const QString& file) {
    bench::NineTimes(
        benchmark::RegisterBenchmark((std::string("theirs/") + name).c_str(), [=](auto& state) {
            Measure<QsciScintilla>(state, [&](QsciScintilla& editor) {
                editor.setUtf8(true);
                QFile device(file);
                if (!device.open(QIODevice::ReadOnly) || !editor.read(&device))
                    state.SkipWithError("not read");
            });
        }));
    bench::NineTimes(
        benchmark::RegisterBenchmark((std::string("ours/") + name).c_str(), [=](auto& state) {
            Measure<documents::CodeMax>(state, [&](documents::CodeMax& editor) {
                editor.SetOption(documents::kSyntaxColorOption, true);
                editor.SetOption(documents::kBraceMatchOption, true);
                editor.OpenFile(platform::FromNative(file.toStdString()));
            });
        }));
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    const std::pair<const char*, QByteArray> files[] = {
        {"ascii_10MB", "local x = screen.width / 2 -- a comment\r\n"},
        {"utf8_10MB", QStringLiteral("local año = \"canción\" -- ¡así!\r\n").toUtf8()},
        {"codepage_10MB", "local a\xF1o = \"canci\xF3n\" -- \xA1"
                          "as\xED!\r\n"},
    };
    for (const auto& [name, line] : files) {
        const QString path = folder.filePath(QString::fromLatin1(name));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(Script(line)) < 0)
            return 1;
        Register(name, path);
    }
    return bench::RunAndCompare(argc, argv);
}
