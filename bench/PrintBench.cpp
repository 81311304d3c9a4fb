// SPDX-License-Identifier: GPL-3.0-or-later
// How long a text takes to a PDF file, against the toolkit's own printing of the same text with the
// same margins. Two lengths, to see that a page costs the same wherever it stands.
#include "Ratio.h"
#include "platform/print/RichTextBox.h"
#include "platform/print/SystemPrinter.h"
#include "print/Class2.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTextCursor>

namespace {

constexpr int kParagraphsOfAPage = 14;
constexpr int kMargin = 1134; // twips, the toolkit's own two centimetres

void Write(QTextDocument& document, int pages) {
    const char* families[] = {"Times New Roman", "Arial", "Courier New"};
    const QString words = QStringLiteral("El niño midió la posición del dibujo en la pantalla. ");
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (int i = 0; i < pages * kParagraphsOfAPage; ++i) {
        QTextCharFormat look;
        look.setFontFamilies({QString::fromLatin1(families[i % 3])});
        look.setFontPointSize(9 + i % 4);
        look.setFontWeight(i % 5 ? QFont::Normal : QFont::Bold);
        look.setForeground(i % 7 ? Qt::black : Qt::blue);
        cursor.insertText(words.repeated(1 + i % 9), look);
        cursor.insertBlock();
    }
    cursor.endEditBlock();
}

std::unique_ptr<QPrinter> Device(const QString& file) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFileName(file);
    return printer;
}

void Register(int pages, const QString& file) {
    const std::string name = "pages_" + std::to_string(pages);
    bench::NineTimes(benchmark::RegisterBenchmark(("theirs/" + name).c_str(), [=](auto& state) {
        QTextDocument document;
        Write(document, pages);
        for (auto _ : state)
            document.print(Device(file).get());
    }));
    bench::NineTimes(benchmark::RegisterBenchmark(("ours/" + name).c_str(), [=](auto& state) {
        platform::PrinterSeam().Replace([file] {
            return std::make_unique<platform::SystemPrinter>([file] { return Device(file); });
        });
        platform::RichTextBox box;
        Write(*box.document(), pages);
        print::Class2 engine;
        engine.MarginTop(kMargin);
        engine.MarginLeft(kMargin);
        engine.MarginRight(kMargin);
        engine.MarginBottom(kMargin);
        for (auto _ : state)
            engine.Imprimir(box);
    }));
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    for (const int pages : {50, 500})
        Register(pages, folder.filePath(QStringLiteral("salida.pdf")));
    return bench::RunAndCompare(argc, argv);
}
