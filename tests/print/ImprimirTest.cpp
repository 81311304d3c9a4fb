// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/Imprimir.h"
#include "platform/base/Failure.h"
#include "platform/print/PrinterSetup.h"
#include "platform/print/SystemPrinter.h"
#include "print/Class2.h"
#include "support/MainWindow.h"

#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTextEdit>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// In points: the paper, and what of it can't be printed on at its left and its top.
constexpr QSize kA4(595, 842);
constexpr QSize kEdge(9, 12);

// Where words stand, in points; each page is taken to be 1000 high and the first begins at 1000.
using Words = QMultiHash<QString, QRectF>;

struct EdgedPrinter : platform::SystemPrinter {
    using SystemPrinter::SystemPrinter;
    int PhysicalOffsetX() const override { return kEdge.width() * 1200 / 72; }
    int PhysicalOffsetY() const override { return kEdge.height() * 1200 / 72; }
};

class ImprimirTest : public support::MainWindow {
protected:
    ImprimirTest() {
        principal.MostrarImprimir(QString());
        window = dynamic_cast<print::Imprimir*>(principal.ActiveForm());
        text = Find<QTextEdit>(u"RichTextBox"_s, 1);
    }
    template<class Widget>
    Widget* Find(const QString& name, int number) {
        return window->findChild<Widget*>(name + QString::number(number));
    }
    void Set(int field, const QString& value) { Find<QLineEdit>(u"Text"_s, field)->setText(value); }
    QPushButton* Command(int number) { return Find<QPushButton>(u"Command"_s, number); }
    void Click(int command, const QString& message = {}) {
        if (!message.isEmpty())
            dialogs.Expect(message);
        QTest::mouseClick(Command(command), Qt::LeftButton);
    }
    void Open(const QString& name, const QString& message = {}) {
        dialogs.ExpectName(name);
        Click(1, message);
    }
    QString Output(QStringList arguments) {
        QProcess process;
        process.start(u"pdftotext"_s, arguments << file << u"-"_s);
        process.waitForFinished();
        return QString::fromUtf8(process.readAllStandardOutput());
    }
    Words Printed() {
        static const QRegularExpression word(
            u"<page|xMin=\"(.*?)\" yMin=\"(.*?)\" xMax=\"(.*?)\" yMax=\"(.*?)\">(.*?)<"_s);
        Words words;
        double page = 0;
        for (const auto& match : word.globalMatch(Output({u"-bbox"_s}))) {
            const auto at = [&](int i) { return match.captured(i).toDouble(); };
            const QRectF box({at(1), page + at(2)}, QPointF(at(3), page + at(4)));
            if (match.captured(5).isNull())
                page += 1000;
            else
                words.insert(match.captured(5), box);
        }
        return words;
    }
    static double InPage(double y) { return std::fmod(y, 1000); }
    // Where the text begins with such a margin.
    double Left(const QString& margin) {
        Set(4, margin);
        Set(5, u"500"_s);
        Click(2);
        return Printed().value(u"viejo"_s).left();
    }

    QString file = QString::fromStdString((home.Root() / "salida.pdf").native());
    print::Imprimir* window = nullptr;
    QTextEdit* text = nullptr;
    std::optional<support::Override<platform::PrinterFactory>> edged{
        std::in_place, platform::PrinterSeam(), [this] {
            return std::make_unique<EdgedPrinter>([this] {
                auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
                printer->setOutputFileName(file);
                return printer;
            });
        }};
};

QStringList steps; // of both sides, in their order

struct PaperPrinter : platform::SystemPrinter {
    explicit PaperPrinter(int sheets)
        : SystemPrinter([] { return std::make_unique<QPrinter>(); }), left(sheets) {}
    ~PaperPrinter() override { steps += u"~"_s; }
    int Width() const override { return 12000; }
    void Print(const QString& text) override { steps += text; }
    void NewPage() override {
        if (--left == 0)
            throw platform::Failure(platform::FailureCode::Printer, u"p"_s, u"papel"_s);
    }
    void EndDoc() override { steps += u"end"_s; }
    QPainter* hDC() override { return &painter; }
    int left;
    QPainter painter;
};

// One character fits on a page.
struct Pages : platform::RichText {
    QString Text() const override { return QString(40000, u'x'); }
    void SetTargetDevice(QPaintDevice&, int lineWidth) override {
        steps += u"width %1"_s.arg(lineWidth);
    }
    qsizetype Format(const platform::FormatRange& range) override { return range.cpMin + 1; }
    void ReleaseFormat() override { steps += u"release"_s; }
};

} // namespace

TEST(Class2Test, AJobThatCannotGoOnEndsWithAMessage) {
    print::Class2 engine;
    engine.MarginRight(600);
    Pages pages;
    const auto failed = [&](int sheets) {
        steps.clear();
        const support::Override printer(platform::PrinterSeam(),
                                        [=] { return std::make_unique<PaperPrinter>(sheets); });
        try {
            engine.Imprimir(pages);
        } catch (const platform::Failure& failure) {
            return failure.Text();
        }
        return QString();
    };
    EXPECT_EQ(failed(3), u"papel"_s);
    EXPECT_EQ(steps.join(u'|'), u"width 11400||||Página 1||||Página 2||||Página 3|release|~"_s);
    engine.MarginLeft(std::numeric_limits<int>::min()); // wider than can be told
    EXPECT_EQ(failed(40000), u"No se pueden imprimir más de 32767 páginas."_s);
    EXPECT_EQ(steps.constFirst(), u"width 2147483647"_s);
    EXPECT_EQ(steps.mid(steps.size() - 4).join(u'|'), u"Página 32767|end|release|~"_s);
}

TEST_F(ImprimirTest, EveryLineIsPrintedOnceWithinTheMargins) {
    EXPECT_EQ(window->Caption(), u" Ejemplo de impresión de un RichTextBox "_s);
    EXPECT_EQ(Command(1)->text() + Command(2)->text(), u" Abrir archivo Imprimir RichTextbox "_s);
    EXPECT_EQ(window->focusWidget(), Command(1));
    QStringList lines;
    for (int i = 1; i <= 200; ++i)
        lines += u"l%1"_s.arg(i);
    const QString wide = u"\niiiiiiiiii MMMMMMMMMM"_s + u" ancho"_s.repeated(50);
    home.Put("lineas.txt", (lines.join(u"\r\n"_s) + wide).toLatin1());
    Open(u"C:\\lineas.txt"_s);
    EXPECT_EQ(dialogs.questions.back().filters.at(2).pattern, u"*.*"_s);
    EXPECT_EQ(text->toPlainText(), lines.join(u'\n') + wide);
    const QStringList values = u"Cabecera,ppp PPP,1440,2880,2160,1000"_s.split(u',');
    for (int i = 0; i < values.size(); ++i)
        Set(i + 1, values[i]);
    Click(2);
    const Words words = Printed();
    double last = 0;
    double lowest = 0;
    for (const QString& line : lines) {
        ASSERT_EQ(words.count(line), 1) << line.toStdString();
        const QRectF box = words.value(line);
        EXPECT_NEAR(box.left(), 144 - kEdge.width(), 1);
        EXPECT_GT(InPage(box.top()), 72 - kEdge.height() - 2);
        EXPECT_GT(box.top(), last);
        last = box.top();
        lowest = std::max(lowest, InPage(box.bottom()));
    }
    EXPECT_NEAR(lowest, kA4.height() - 50 + kEdge.height() - 8, 9); // the last line that fits
    double right = 0;
    for (const QRectF& box : words.values(u"ancho"_s))
        right = std::max(right, box.right());
    EXPECT_NEAR(right, kA4.width() - 108 + kEdge.width() - 16, 17);
    // In the body's own font, and the rest in one of equal letters.
    EXPECT_GT(words.value(u"MMMMMMMMMM"_s).width(), 2 * words.value(u"iiiiiiiiii"_s).width());
    const QRectF lower = words.value(u"ppp"_s);
    const QRectF upper = words.value(u"PPP"_s);
    EXPECT_NEAR(lower.width(), 3 * 0.6 * 11, 0.5);
    EXPECT_NEAR((lower.left() + upper.right()) / 2, kA4.width() / 2.0, 1);
    const auto page = static_cast<int>(last / 1000);
    EXPECT_GT(page, 2);
    EXPECT_EQ(words.count(u"Cabecera"_s), page);
    EXPECT_NEAR(InPage(words.value(u"Cabecera"_s).center().y()), 30, 3);
    const QRectF number = words.value(QString::number(page));
    EXPECT_NEAR(number.right(), kA4.width(), 1);
    EXPECT_NEAR(InPage(number.center().y()), kA4.height() - 19, 3);
}

TEST_F(ImprimirTest, RichTextIsPrintedInItsOwnShape) {
    home.Put("carta.rtf",
             "{\\rtf1{\\fonttbl{\\f0 Arial;}}\\f0\\fs24 uno\\par\\li1440\\fs48 dos\\par"
             "\\page\\page tres\\par}");
    Open(u"C:\\carta.rtf"_s);
    Set(2, QString());
    Click(2);
    const Words words = Printed();
    EXPECT_NEAR(words.value(u"uno"_s).left(), 25 - kEdge.width(), 1);
    const QRectF second = words.value(u"dos"_s);
    EXPECT_NEAR(second.left(), 25 - kEdge.width() + 72, 2);
    EXPECT_GT(words.value(u"tres"_s).top(), 3000);
    home.Put("rota.rtf", "{\\rtf1 a\\b b");
    Open(u"C:\\rota.rtf"_s, u"incompleto"_s);
    EXPECT_EQ(text->toPlainText(), u"ab"_s);
    home.Put("llana.txt", "c");
    Open(u"C:\\llana.txt"_s);
    EXPECT_EQ(text->fontWeight(), QFont::Normal);
    text->clear();
    Click(2);
    EXPECT_TRUE(Output({}).contains(u"Página 1"_s));
}

TEST_F(ImprimirTest, WhatCannotBeReadOrPrintedIsSaid) {
    text->setPlainText(u"viejo"_s);
    Open(QString());
    for (const QString& name : {u"C:\\falta.rtf"_s, QString()}) // the last pick stays
        Open(name, u"falta.rtf"_s);
    const std::tuple<int, QString, QString> wrong[] = {
        {6, u"Inferior"_s, u"1,5,5"_s}, {5, u"Derecho"_s, u"x"_s},
        {4, u"Izquierdo"_s, QString()}, {3, u"Superior"_s, u"2147483647,6"_s},
        {3, u"Superior"_s, u"-3e9"_s},  {3, u"Superior"_s, u"nan"_s}};
    for (const auto& [field, name, margin] : wrong) { // the upper fields are read first
        Set(field, margin);
        Click(2, u"El margen \"%1\" no es un número válido: \"%2\"."_s.arg(name, margin));
    }
    EXPECT_FALSE(QFile::exists(file));
    for (const int field : {3, 6})
        Set(field, u"500"_s);
    EXPECT_EQ(Left(u"1440,5"_s), Left(u"1440"_s));
    EXPECT_EQ(Left(u" 1441.5 "_s), Left(u"1442"_s));
    EXPECT_NE(Left(u"1441"_s), Left(u"1442"_s));
    Set(5, u" -20 "_s);
    Set(6, u"20000"_s);
    Click(2, u"márgenes"_s);
    const QString pages = Output({});
    EXPECT_TRUE(pages.contains(u"Página 1"_s) && !pages.contains(u"Página 2"_s));
    file = u"/no/hay/x.pdf"_s;
    Click(2, u"impresora"_s);
}

TEST_F(ImprimirTest, TheFileOfThePrintDialogIsWritten) {
    edged.reset();
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
    Click(2);
    EXPECT_EQ(Printed().count(u"carta"_s), 1);
    EXPECT_NEAR(Printed().value(u"1"_s).right(), 420, 1); // the width of A5
    platform::KeepPrinterFile({});
}
