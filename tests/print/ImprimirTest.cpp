// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/Imprimir.h"
#include "platform/PrinterSetup.h"
#include "platform/SystemPrinter.h"
#include "support/MainWindow.h"

#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTextEdit>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

struct Word {
    int page;
    double left, top, right, bottom; // points
};

class ImprimirTest : public support::MainWindow {
protected:
    ImprimirTest() {
        platform::ReplaceCurrentPrinter([this] {
            return std::make_unique<platform::SystemPrinter>([this] {
                auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
                printer->setOutputFileName(file);
                return printer;
            });
        });
        principal.MostrarImprimir(QString());
        window = dynamic_cast<print::Imprimir*>(principal.ActiveForm());
        text = Find<QTextEdit>("RichTextBox1");
    }
    ~ImprimirTest() override { platform::ReplaceCurrentPrinter({}); }
    template<class Widget>
    Widget* Find(const char* name) {
        return window->findChild<Widget*>(QString::fromLatin1(name));
    }
    void Set(const char* field, const QString& value) { Find<QLineEdit>(field)->setText(value); }
    void Click(const char* button) { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }
    QString Output(QStringList arguments) {
        QProcess process;
        process.start(u"pdftotext"_s, arguments << file << u"-"_s);
        process.waitForFinished();
        return QString::fromUtf8(process.readAllStandardOutput());
    }
    // Where the text begins with such a margin.
    double Left(const QString& margin) {
        Set("Text4", margin);
        Set("Text5", u"500"_s);
        Click("Command2");
        return Words().value(u"viejo"_s).left;
    }
    QMultiHash<QString, Word> Words() {
        static const QRegularExpression word(
            u"<page|xMin=\"(.*?)\" yMin=\"(.*?)\" xMax=\"(.*?)\" yMax=\"(.*?)\">(.*?)<"_s);
        QMultiHash<QString, Word> words;
        int page = 0;
        for (const auto& match : word.globalMatch(Output({u"-bbox"_s}))) {
            if (match.captured(5).isNull())
                ++page;
            else
                words.insert(match.captured(5),
                             {page, match.captured(1).toDouble(), match.captured(2).toDouble(),
                              match.captured(3).toDouble(), match.captured(4).toDouble()});
        }
        return words;
    }

    QString file = QString::fromStdString((home.Root() / "salida.pdf").native());
    print::Imprimir* window = nullptr;
    QTextEdit* text = nullptr;
};

} // namespace

TEST_F(ImprimirTest, TheWindowSaysWhatItsFieldsAreFor) {
    EXPECT_EQ(window->Caption(), u" Ejemplo de impresión de un RichTextBox "_s);
    QStringList shown;
    for (const char* name :
         {"Command1", "Command2", "Frame2", "Frame3", "Label1", "Label2", "Label3", "Label4",
          "Label5", "Label6", "Text1", "Text2", "Text3", "Text6"})
        shown += Find<QWidget>(name)->property("text").toString() +
                 Find<QWidget>(name)->property("title").toString();
    EXPECT_EQ(shown.join(u'|'),
              u" Abrir archivo |Imprimir RichTextbox |Opciones|Margenes en Twips|"
              "Texto del Encabezado:|Texto del Pie|Superior|Izquierdo|Derecho|Inferior|"
              "Text1|Text1|500|500"_s);
    EXPECT_EQ(text->font().family(), u"Times New Roman"_s);
    EXPECT_EQ(Find<QTextEdit>("txtFile")->font().family(), u"Arial"_s);
    dialogs.ExpectName(QString());
    Click("Command1");
    QStringList filters;
    for (const platform::FileFilter& filter : dialogs.questions.back().filters)
        filters += {filter.name, filter.pattern};
    EXPECT_EQ(filters.join(u'|'),
              u"Archivos RTF|*.RTF|Archivos de texto|*.Txt|Todos los Archivos|*.*"_s);
    EXPECT_EQ(text->toPlainText(), QString());
}

TEST_F(ImprimirTest, EveryLineIsPrintedOnceWithinTheMargins) {
    QStringList lines;
    for (int i = 1; i <= 200; ++i)
        lines += u"l%1"_s.arg(i);
    const QString wide = u"\niiiiiiiiii MMMMMMMMMM"_s + u" ancho"_s.repeated(50);
    home.Put("lineas.txt", (lines.join(u"\r\n"_s) + wide).toLatin1());
    dialogs.ExpectName(u"C:\\lineas.txt"_s);
    Click("Command1");
    EXPECT_EQ(text->toPlainText(), lines.join(u'\n') + wide);
    Set("Text1", u"Cabecera"_s);
    Set("Text2", u"ppp PPP"_s);
    Set("Text3", u"1440"_s);
    Set("Text4", u"2880"_s);
    Set("Text5", u"2160"_s);
    Set("Text6", u"1000"_s);
    Click("Command2");
    const QMultiHash<QString, Word> words = Words();
    int page = 1;
    double last = 0;
    double lowest = 0;
    for (const QString& line : lines) {
        ASSERT_EQ(words.count(line), 1) << line.toStdString();
        const Word word = words.value(line);
        EXPECT_NEAR(word.left, 144, 1);
        EXPECT_GT(word.top, 70);
        lowest = std::max(lowest, word.bottom);
        EXPECT_TRUE(word.page == page ? word.top > last : word.page == page + 1);
        page = word.page;
        last = word.top;
    }
    EXPECT_GT(page, 2);
    EXPECT_NEAR(lowest, 842 - 50 - 8, 9); // the last line that fits
    double right = 0;
    for (const Word& word : words.values(u"ancho"_s))
        right = std::max(right, word.right);
    EXPECT_NEAR(right, 595 - 108 - 16, 17);
    const auto width = [&](const QString& word) {
        return words.value(word).right - words.value(word).left;
    };
    EXPECT_GT(width(u"MMMMMMMMMM"_s), 2 * width(u"iiiiiiiiii"_s)); // in the body's own font
    EXPECT_NEAR(width(u"ppp"_s), width(u"PPP"_s), 0.1);            // of equal letters
    EXPECT_NEAR(width(u"ppp"_s), 3 * 0.6 * 11, 0.5);
    EXPECT_NEAR((words.value(u"ppp"_s).left + words.value(u"PPP"_s).right) / 2, 595 / 2.0, 1);
    ASSERT_EQ(words.count(u"Cabecera"_s), page);
    const Word header = words.value(u"Cabecera"_s);
    EXPECT_NEAR((header.left + header.right) / 2, 595 / 2.0, 1);
    EXPECT_NEAR((header.top + header.bottom) / 2, 36, 3);
    const Word number = words.value(QString::number(page));
    EXPECT_NEAR(number.right, 595, 1);
    EXPECT_NEAR((number.top + number.bottom) / 2, 842 - 25, 3);
}

TEST_F(ImprimirTest, RichTextIsPrintedInItsOwnShape) {
    home.Put("carta.rtf",
             "{\\rtf1{\\fonttbl{\\f0 Arial;}}\\f0\\fs24 uno\\par\\li1440\\fs48 dos\\par"
             "\\page\\page tres\\par}");
    dialogs.ExpectName(u"C:\\carta.rtf"_s);
    Click("Command1");
    Set("Text2", QString());
    Click("Command2");
    const QMultiHash<QString, Word> words = Words();
    EXPECT_NEAR(words.value(u"uno"_s).left, 25, 1);
    EXPECT_NEAR(words.value(u"dos"_s).left, 25 + 72, 2);
    EXPECT_NEAR(words.value(u"dos"_s).bottom - words.value(u"dos"_s).top, 24 * 1.15, 4);
    EXPECT_EQ(words.value(u"dos"_s).page, 1);
    EXPECT_EQ(words.value(u"tres"_s).page, 3);
    EXPECT_EQ(words.values(u"Text1"_s).size(), 3);
    home.Put("rota.rtf", "{\\rtf1 a\\b b");
    dialogs.ExpectName(u"C:\\rota.rtf"_s);
    dialogs.Expect(u"incompleto"_s, platform::Answer::Ok);
    Click("Command1");
    EXPECT_EQ(text->toPlainText(), u"ab"_s);
    home.Put("llana.txt", "c");
    dialogs.ExpectName(u"C:\\llana.txt"_s);
    Click("Command1");
    EXPECT_EQ(text->fontWeight(), QFont::Normal);
}

TEST_F(ImprimirTest, WhatCannotBeReadOrPrintedIsSaid) {
    text->setPlainText(u"viejo"_s);
    dialogs.ExpectName(u"C:\\falta.rtf"_s);
    dialogs.Expect(u"falta.rtf"_s, platform::Answer::Ok);
    Click("Command1");
    EXPECT_EQ(text->toPlainText(), u"viejo"_s);
    dialogs.ExpectName(QString()); // the name of the last pick stays
    dialogs.Expect(u"falta.rtf"_s, platform::Answer::Ok);
    Click("Command1");
    for (const QString& margin :
         {u"1,5,5"_s, u"x"_s, QString(), u"2147483647,6"_s, u"-3e9"_s, u"nan"_s}) {
        Set("Text5", margin);
        dialogs.Expect(u"El margen \"Derecho\" no es un número válido: \"%1\"."_s.arg(margin),
                       platform::Answer::Ok);
        Click("Command2");
    }
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_EQ(Left(u"1440,5"_s), Left(u"1440"_s));
    EXPECT_EQ(Left(u" 1441.5 "_s), Left(u"1442"_s));
    EXPECT_NE(Left(u"1441"_s), Left(u"1442"_s));
    Set("Text5", u" -20 "_s);
    Set("Text6", u"20000"_s);
    dialogs.Expect(u"márgenes"_s, platform::Answer::Ok);
    Click("Command2");
    EXPECT_TRUE(Output({}).contains(u"Página 1"_s));
    EXPECT_FALSE(Output({}).contains(u"Página 2"_s));
    file = u"/no/hay/x.pdf"_s;
    dialogs.Expect(u"impresora"_s, platform::Answer::Ok);
    Click("Command2");
}

TEST_F(ImprimirTest, TheFileOfThePrintDialogIsWritten) {
    platform::ReplaceCurrentPrinter({});
    Press("mnuarchivonuevo");
    dialogs.ExpectPrinter([this](QPrinter& printer) {
        printer.setOutputFileName(file);
        printer.setPageSize(QPageSize(QPageSize::A5));
        return true;
    });
    Press("mnuarchivoimprimir");
    EXPECT_TRUE(Output({}).contains(u"while"_s));
    text->setPlainText(u"carta"_s);
    window->Show();
    Click("Command2");
    EXPECT_EQ(Words().count(u"carta"_s), 1);
    EXPECT_NEAR(Words().value(u"1"_s).right, 420, 1);
    platform::KeepPrinterFile({});
}
