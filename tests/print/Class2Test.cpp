// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/Class2.h"
#include "platform/Failure.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QStringList steps; // of both sides, in their order

// 2.5 twips to a pixel; a letter is 100 x 240 twips.
class PaperPrinter : public platform::Printer {
public:
    explicit PaperPrinter(int failAtPage) : m_failAtPage(failAtPage) { current = &m_painter; }
    ~PaperPrinter() override { steps += u"~"_s; }
    static inline QPainter* current = nullptr; // another one for each page
    int Width() const override { return 12000; }
    int Height() const override { return 17000; }
    int ScaleWidth() const override { return 11500; }
    int ScaleHeight() const override { return 16300; }
    int PhysicalOffsetX() const override { return 101; } // 252.5 twips
    int PhysicalOffsetY() const override { return 140; }
    double ScaleX(int pixels) const override { return pixels * 2.5; }
    double ScaleY(int pixels) const override { return pixels * 2.5; }
    void Font(const QString& name, double points) override {
        steps += u"font %1 %2"_s.arg(name).arg(points);
    }
    float TextWidth(const QString& text) const override { return 100.0F * float(text.size()); }
    float TextHeight(const QString& text) const override { return text == u"x" ? 240 : 999; }
    float CurrentX() const override { return m_x; }
    float CurrentY() const override { return m_y; }
    void CurrentX(float x) override { m_x = x; }
    void CurrentY(float y) override { m_y = y; }
    void Print(const QString& text) override {
        steps += u"%1 at %2 %3"_s.arg(text).arg(m_x).arg(m_y);
        m_x = m_y = 0;
    }
    void NewPage() override {
        if (--m_failAtPage == 0)
            throw platform::Failure(platform::FailureCode::Printer, u"p"_s, u"papel"_s);
        steps += u"page"_s;
        current = current == &m_painter ? &m_second : &m_painter;
    }
    void EndDoc() override { steps += u"end"_s; }
    QPainter* hDC() override { return current; }
    std::unique_ptr<QPaintDevice> CreateDC() const override {
        return std::make_unique<QImage>(m_image);
    }

private:
    int m_failAtPage;
    QImage m_image{1, 1, QImage::Format_RGB32};
    QImage m_other{m_image};
    QPainter m_painter{&m_image};
    QPainter m_second{&m_other};
    float m_x = 0;
    float m_y = 0;
};

// So many characters fit on a page.
struct Pages : platform::RichText {
    QString Text() const override { return text; }
    void SetTargetDevice(QPaintDevice&, int lineWidth) override {
        steps += u"width %1"_s.arg(lineWidth);
    }
    qsizetype Format(const platform::FormatRange& range) override {
        EXPECT_EQ(range.cpMax, -1);
        EXPECT_EQ(range.hdc, PaperPrinter::current);
        EXPECT_EQ(range.hdc->device(), range.hdcTarget);
        EXPECT_EQ(range.rcPage, QRectF(0, 0, 11500, 16300));
        steps += QString::asprintf("%lld in %g %g %g %g", range.cpMin, range.rc.left(),
                                   range.rc.top(), range.rc.right(), range.rc.bottom());
        return std::min(range.cpMin + fits, text.size());
    }
    void ReleaseFormat() override { steps += u"release"_s; }
    QString text;
    qsizetype fits = 0;
};

class Class2Test : public testing::Test {
protected:
    Class2Test() {
        platform::ReplaceCurrentPrinter(
            [this] { return std::make_unique<PaperPrinter>(failAtPage); });
        EXPECT_EQ(engine.MarginTop() | engine.MarginLeft(), 0);
        EXPECT_EQ(engine.MarginRight() | engine.MarginBottom(), 0);
        engine.MarginTop(1000);
        engine.MarginLeft(500);
        engine.MarginRight(600);
        engine.MarginBottom(1300);
        engine.Header(u"Título"_s);
    }
    ~Class2Test() override { platform::ReplaceCurrentPrinter({}); }
    // Answers what failed.
    QString Print(const QString& text, qsizetype fits) {
        steps.clear();
        Pages pages;
        pages.text = text;
        pages.fits = fits;
        try {
            engine.Imprimir(pages);
        } catch (const platform::Failure& failure) {
            return failure.Text();
        }
        return {};
    }
    static bool Ends(const QString& last) { return steps.join(u'|').endsWith(last); }

    print::Class2 engine;
    int failAtPage = 0;
};

} // namespace

TEST_F(Class2Test, PagesAreSetByTheMarginsAndThePrintersEdges) {
    EXPECT_EQ(Print(u"abcdef"_s, 3), QString());
    const QString page = u"| at 0 0%3|%1 in 248 650 11152 15350" // 252 and 350 to the edges
                         "|Título at 5450 205| at 5750 15705|Página %2 at 10700 15705"_s;
    EXPECT_EQ(steps.join(u'|'), u"width 10900"_s +
                                    page.arg(0).arg(1).arg(u"|font Courier New 11"_s) + u"|page"_s +
                                    page.arg(3).arg(2).arg(u""_s) + u"|end|release|~"_s);
    Print(QString(), 0);
    EXPECT_EQ(steps.filter(u"Página"_s).size(), 1);
    engine.MarginLeft(std::numeric_limits<int>::min());
    Print(QString(), 0);
    EXPECT_EQ(steps.constFirst(), u"width 2147483647"_s);
}

TEST_F(Class2Test, AJobThatCannotGoOnEndsWithAMessage) {
    EXPECT_EQ(Print(u"abc"_s, 0), u"Los márgenes no dejan sitio para el texto: la impresión "
                                  "termina en la página 1."_s);
    EXPECT_TRUE(Ends(u"Página 1 at 10700 15705|end|release|~"_s));
    EXPECT_EQ(Print(QString(40000, u'x'), 1), u"No se pueden imprimir más de 32767 páginas."_s);
    EXPECT_TRUE(Ends(u"Página 32767 at 10300 15705|end|release|~"_s));
    failAtPage = 1;
    EXPECT_EQ(Print(u"abc"_s, 1), u"papel"_s);
    EXPECT_TRUE(Ends(u"|release|~"_s) && !steps.contains(u"end"_s));
}
