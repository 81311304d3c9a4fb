// SPDX-License-Identifier: GPL-3.0-or-later
// What one typed letter costs, painting included, in a document window and in QScintilla alone.
#include "Ratio.h"
#include "documents/frmDocumento.h"
#include "platform/files/Paths.h"
#include "platform/forms/MDIFrame.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <Qsci/qscilexerlua.h>
#include <Qsci/qsciscintilla.h>

namespace {

struct Frame : documents::MarcoDocumentos {
    void crear_temporal_click() override {}
    void Rotulo(const QString&) override {}
    void AbrirEn(const QString&, int) override {}
    int Alto() const override { return 11000; }
};

void Type(QWidget* editor) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
    QApplication::sendEvent(editor, &press);
    QApplication::processEvents();
}

void Alone(benchmark::State& state, const QString& path) {
    QsciScintilla editor;
    QsciLexerLua lexer;
    editor.setUtf8(true);
    editor.setLexer(&lexer);
    editor.setMarginLineNumbers(0, true);
    editor.setMarginWidth(0, QStringLiteral("999999"));
    editor.setBraceMatching(QsciScintilla::SloppyBraceMatch);
    editor.setAutoIndent(true);
    editor.resize(525, 640);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !editor.read(&file))
        state.SkipWithError("not read");
    editor.show();
    editor.setFocus();
    QApplication::processEvents();
    for (auto _ : state)
        Type(&editor);
}

void Document(benchmark::State& state, const QString& path) {
    Frame frame;
    shared::ValoresCompartidos shared;
    platform::MDIFrame window;
    auto* document = new documents::frmDocumento(frame, shared);
    window.Show();
    window.Adopt(document);
    document->Load();
    document->Abrir(platform::FromNative(path.toStdString()));
    document->Show();
    document->Move(0, 0, 8000, 10350);
    QApplication::processEvents();
    auto* editor = document->findChild<QAbstractScrollArea*>();
    for (auto _ : state)
        Type(editor);
    if (!shared.texto_script.Leer().startsWith(u'x'))
        state.SkipWithError("not published");
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    for (const int kilobytes : {100, 5000}) {
        const QString path = folder.filePath(QStringLiteral("%1.lua").arg(kilobytes));
        const QByteArray line = "local x = screen.width / 2 -- a comment\r\n";
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(line.repeated(qsizetype{kilobytes} * 1024 / line.size())) < 0)
            return 1;
        const std::string name = "keystroke_" + std::to_string(kilobytes) + "KB";
        benchmark::RegisterBenchmark(("theirs/" + name).c_str(), Alone, path)
            ->Unit(benchmark::kMicrosecond)
            ->Iterations(200)
            ->Repetitions(9)
            ->ReportAggregatesOnly();
        benchmark::RegisterBenchmark(("ours/" + name).c_str(), Document, path)
            ->Unit(benchmark::kMicrosecond)
            ->Iterations(200)
            ->Repetitions(9)
            ->ReportAggregatesOnly();
    }
    return bench::RunAndCompare(argc, argv);
}
