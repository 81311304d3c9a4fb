// SPDX-License-Identifier: GPL-3.0-or-later
// What it costs to find all places of a word in 8 MB, and of all that ours offers beside, against
// the engine's own search.
#include "Ratio.h"
#include "documents/editor/find/Replacement.h"

#include <QApplication>
#include <Qsci/qsciscintilla.h>

namespace {

using documents::Search;
using documents::SearchFor;

QByteArray Text() {
    const QByteArray line =
        "local x = screen.width / 2 -- a comment with some words in it and more\r\n";
    return line.repeated((8 << 20) / line.size());
}

void Engine(benchmark::State& state, const SearchFor& wanted) {
    QsciScintilla editor;
    const QByteArray text = Text();
    const QByteArray what = wanted.what.toUtf8();
    editor.setUtf8(true);
    editor.SendScintilla(QsciScintilla::SCI_ADDTEXT, static_cast<unsigned long>(text.size()),
                         text.constData());
    const int flags = (wanted.caseSensitive ? QsciScintilla::SCFIND_MATCHCASE : 0) |
                      (wanted.wholeWord ? QsciScintilla::SCFIND_WHOLEWORD : 0);
    editor.SendScintilla(QsciScintilla::SCI_SETSEARCHFLAGS, flags);
    for (auto _ : state) {
        editor.SendScintilla(QsciScintilla::SCI_SETTARGETRANGE, 0UL,
                             static_cast<long>(text.size()));
        qsizetype hits = 0;
        while (editor.SendScintilla(QsciScintilla::SCI_SEARCHINTARGET,
                                    static_cast<unsigned long>(what.size()),
                                    what.constData()) >= 0) {
            ++hits;
            const auto end = editor.SendScintilla(QsciScintilla::SCI_GETTARGETEND);
            editor.SendScintilla(QsciScintilla::SCI_SETTARGETRANGE, static_cast<unsigned long>(end),
                                 static_cast<long>(text.size()));
        }
        benchmark::DoNotOptimize(hits);
    }
}

void Ours(benchmark::State& state, const SearchFor& wanted) {
    const QByteArray text = Text();
    for (auto _ : state)
        benchmark::DoNotOptimize(Search(wanted).In(text).hits.size());
}

void Replace(benchmark::State& state, const SearchFor& wanted) {
    const QByteArray text = Text();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            documents::Replacement(Search(wanted), QStringLiteral("pantalla")).All(text, 0).count);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QString word = QStringLiteral("screen");
    const std::pair<const char*, SearchFor> plain[] = {
        {"any_case", {word}}, {"case", {word, true}}, {"word", {word, false, true}}};
    for (const auto& [name, wanted] : plain) {
        bench::NineTimes(benchmark::RegisterBenchmark((std::string("theirs/find_") + name).c_str(),
                                                      Engine, wanted));
        bench::NineTimes(
            benchmark::RegisterBenchmark((std::string("ours/find_") + name).c_str(), Ours, wanted));
    }
    const SearchFor pattern{QStringLiteral("scr%w+"), false, false, true};
    bench::NineTimes(benchmark::RegisterBenchmark("ours_alone/find_pattern", Ours, pattern));
    bench::NineTimes(
        benchmark::RegisterBenchmark("ours_alone/replace_all", Replace, plain[0].second));
    return bench::RunAndCompare(argc, argv);
}
