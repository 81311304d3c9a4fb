// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/Class2.h"
#include "platform/Failure.h"
#include "platform/SystemPrinter.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

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
        platform::ReplaceCurrentPrinter([=] { return std::make_unique<PaperPrinter>(sheets); });
        try {
            engine.Imprimir(pages);
        } catch (const platform::Failure& failure) {
            return failure.Text();
        }
        return QString();
    };
    EXPECT_EQ(failed(3), u"papel"_s);
    steps.removeAll(QString());
    EXPECT_EQ(steps.join(u'|'), u"width 11400|Página 1|Página 2|Página 3|release|~"_s);
    engine.MarginLeft(std::numeric_limits<int>::min()); // wider than can be told
    EXPECT_EQ(failed(40000), u"No se pueden imprimir más de 32767 páginas."_s);
    EXPECT_EQ(steps.constFirst(), u"width 2147483647"_s);
    EXPECT_EQ(steps.mid(steps.size() - 4).join(u'|'), u"Página 32767|end|release|~"_s);
    platform::ReplaceCurrentPrinter({});
}
