// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/DocumentFormatter.h"
#include "platform/rtf/RtfReader.h"
#include "platform/rtf/TargetDevice.h"

#include <QImage>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

struct Document : QTextDocument {
    explicit Document(const QByteArray& body) {
        EXPECT_EQ(ReadRtf("{\\rtf1\\ansi" + body + '}', *this), RtfResult::Complete);
    }
};

// The format of the last character of the body.
QTextCharFormat LookOf(const QByteArray& body) {
    Document document("{\\fonttbl{\\f0 Uno;}{\\f1\\fswiss{\\*\\panose 02}Dos{\\*\\falt Otra};}}"
                      "{\\colortbl;\\red255;\\green128\\blue1;}\\deff0 " +
                      body);
    QTextCursor end(&document);
    end.movePosition(QTextCursor::End);
    return end.charFormat();
}

// Of the last paragraph. The offscreen screen has 96 dots per inch: 15 twips are a unit.
QTextBlockFormat ParagraphOf(const QByteArray& body) {
    return Document(' ' + body).lastBlock().blockFormat();
}

// A picture that stands for a device of so many dots per inch.
QImage Device(double dpi) {
    QImage device(1, 1, QImage::Format_RGB32);
    device.setDotsPerMeterX(qRound(dpi / 0.0254));
    device.setDotsPerMeterY(qRound(dpi / 0.0254));
    return device;
}

// Where the pages end, on a device of 1200 dots per inch, until the answer doesn't grow.
std::vector<qsizetype> Pages(const QTextDocument& document, double width, double height) {
    QImage device = Device(1200);
    QPainter painter(&device);
    DocumentFormatter formatter;
    formatter.LayOut(document, device, width);
    FormatRange range{
        .hdc = &painter, .hdcTarget = &device, .rc = {0, 0, width, height}, .rcPage = {}};
    std::vector<qsizetype> ends;
    for (qsizetype end = -1; end < document.characterCount() - 1; range.cpMin = end) {
        end = formatter.Render(range);
        if (end <= range.cpMin)
            break;
        ends.push_back(end);
    }
    return ends;
}

} // namespace

TEST(RtfReaderTest, TellsTheTextFromTheRest) {
    const std::pair<QByteArray, QString> cases[] = {
        {" a\r\nb\\par c\\\nd\\par", u"ab\nc\nd"_s},
        {"\\par\\par x", u"\n\nx"_s},
        {" a\\page\\page b", u"a\n\nb"_s}, // with an empty page
        {" x\\line y\\tab z\\\tw", u"x\ny\tz\tw"_s},
        {" \\{\\\\\\}\\~\\-\\_\\emdash\\endash\\lquote\\rquote\\ldblquote\\rdblquote\\bullet .",
         u"{\\} \u00AD\u2011—–‘’“”•."_s},
        {"\\'e1\\'80\xF1\\'zz", u"á€ñzz"_s},
        {"\\ansicpg1251 \\'cf", u"П"_s},
        {"\\ansicpg949 \\'b0\\'a1", u"가"_s},
        {"\\ansicpg65001 \\'c3\\'a1\\'e2\\'82\\'ac", u"á€"_s},
        {"{\\fonttbl\\f0\\fcharset128 A;\\f1\\fcharset2 B;\\f2\\fcharset0 C;}\\ansicpg1251"
         "\\f0 \\'93\\'fa{\\f1\\'b7}{\\f2\\'e1}\\f3\\'e1",
         u"日•áб"_s},
        {"\\u8364 ?x\\u-10179 ?\\u-8704 ?{\\uc2\\u225 ab}\\u225 a\\uc0\\u233 b", u"€x😀ááéb"_s},
        {"{\\uc3\\u225 a\\'e1\\emdash.}\\u225 {}b\\u225\\par\\u225\\bin3 }}}c\\u225\\u233",
         u"á.ábá\nácáé"_s},
        {"\\u-10179?x\\u65535?\\u8233?y\\u0?", u"?x\ny"_s},
        {"{\\*\\otro x{y}}{\\stylesheet{\\s1 z;}}{\\info{\\title t}}{\\header h}a"
         "{\\pict\\bin4 }}\\\\{\\u233 ?}}b{\\field{\\*\\fldinst HYPERLINK}{\\*\\fldrslt c}}\\nada5 "
         "d",
         u"abcd"_s},
        {"{\\v oculto}a{\\pntext 1.{\\tab}}b{\\listtext\\tab}c{\\listtext\\fi-9\\tab}d",
         u"a1.\tbc\td"_s},
        {R"(\trowd\cellx900\cellx1800\intbl a\par b\par\cell\cell c\cell\row\trowd\cell\row\pard d)",
         u"a\nb\t\tc\n\nd"_s},
    };
    for (const auto& [body, text] : cases)
        EXPECT_EQ(Document(body).toPlainText().toStdString(), text.toStdString())
            << body.toStdString();
}

TEST(RtfReaderTest, GivesCharactersTheirLook) {
    const std::tuple<const char*, QString, double> fonts[] = {
        {"a", u"Uno"_s, 12}, {"\\f1\\fs21 a", u"Dos"_s, 10.5}, {"\\f1\\plain a", u"Uno"_s, 12}};
    for (const auto& [body, family, size] : fonts) {
        EXPECT_EQ(LookOf(body).fontFamilies().toStringList(), QStringList(family)) << body;
        EXPECT_EQ(LookOf(body).fontPointSize(), size) << body;
    }
    const QTextCharFormat all = LookOf("\\b\\i\\strike\\ulwave\\super\\cf1\\highlight2 a");
    EXPECT_TRUE(all.fontWeight() == QFont::Bold && all.fontItalic() && all.fontStrikeOut());
    EXPECT_EQ(all.underlineStyle(), QTextCharFormat::WaveUnderline);
    EXPECT_EQ(all.verticalAlignment(), QTextCharFormat::AlignSuperScript);
    EXPECT_EQ(all.foreground().color(), QColor(255, 0, 0));
    EXPECT_EQ(all.background().color(), QColor(0, 128, 1));
    for (const char* off : {"{\\b\\i\\ul\\cf1\\sub x}a", "\\b\\i\\ul\\cf1\\sub\\plain a",
                            "\\b\\b0\\i\\i0\\ul\\ulnone\\cf1\\cf0\\sub\\nosupersub a"})
        EXPECT_EQ(LookOf(off), LookOf("a")) << off;
}

TEST(RtfReaderTest, GivesParagraphsTheirLook) {
    const Document empty("\\fs96\\par\\fs20 a"); // the mark alone makes its lines high
    EXPECT_EQ(empty.firstBlock().charFormat().fontPointSize(), 48);
    const auto hanging = ParagraphOf("\\qc\\li720\\ri300\\fi-360\\sa60\\par\\sb150\\tqr\\tx1440 a");
    EXPECT_EQ(hanging.alignment(), Qt::AlignHCenter);
    const double lengths[] = {hanging.leftMargin(), hanging.rightMargin(), hanging.textIndent(),
                              hanging.topMargin(), hanging.bottomMargin()};
    EXPECT_EQ(std::to_array(lengths), std::to_array<double>({48, 20, -24, 10 + 4, 4}));
    const QList<QTextOption::Tab> tabs = {{24, QTextOption::LeftTab}, {72, QTextOption::RightTab}};
    EXPECT_EQ(hanging.tabPositions(), tabs);
    EXPECT_EQ(ParagraphOf("\\qr\\li720\\tx1440 x\\par\\pard a"), ParagraphOf("a"));
    using B = QTextBlockFormat;
    const std::tuple<const char*, B::LineHeightTypes, double> spacings[] = {
        {"\\sl360\\slmult1 a", B::ProportionalHeight, 150},
        {"\\sl-300\\slmult0 a", B::FixedHeight, 20},
        {"\\sl300 a", B::MinimumHeight, 20},
        {"\\sl0 a", B::SingleHeight, 0}};
    for (const auto& [words, type, height] : spacings) {
        EXPECT_EQ(ParagraphOf(words).lineHeightType(), type) << words;
        EXPECT_EQ(ParagraphOf(words).lineHeight(), height) << words;
    }
    for (const char* page : {"a\\page b", "a\\par\\page b", "a\\par\\pagebb b", "a\\sect b"})
        EXPECT_TRUE(ParagraphOf(page).pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore)
            << page;
    EXPECT_EQ(ParagraphOf("a\\page b\\par c"), ParagraphOf("c"));
}

TEST(RtfReaderTest, SaysWhatIsWrongWithTheFile) {
    QTextDocument document(u"antes"_s);
    for (const char* other : {"", "{", "hola", "{\\rtx1 a}", "{\\rtfx a}", "\\rtf1 a"}) {
        EXPECT_EQ(ReadRtf(other, document), RtfResult::NotRtf) << other;
        EXPECT_EQ(document.toPlainText(), u"antes"_s) << other;
    }
    for (const char* cut : {"{\\rtf1 ab", "{\\rtf1{\\b ab}", "{\\rtf1 ab\\", "{\\rtf1 ab\\u225",
                            "{\\rtf1 ab\\'e", "{\\rtf1 ab\\bin9 }", "{\\rtf1 ab{\\pict 00"}) {
        EXPECT_EQ(ReadRtf(cut, document), RtfResult::Truncated) << cut;
        EXPECT_TRUE(document.toPlainText().startsWith(u"ab"_s)) << cut;
    }
    EXPECT_EQ(ReadRtf("{\\rtf1 ab" + QByteArray(1'000'000, '{'), document), RtfResult::TooDeep);
    EXPECT_EQ(document.toPlainText(), u"ab"_s);
    EXPECT_EQ(ReadRtf("{\\rtf1 ab}\0 }x"_ba, document), RtfResult::Complete);
    EXPECT_EQ(document.toPlainText(), u"ab"_s);
}

TEST(RtfReaderTest, LengthsAreTrueOnAnyDevice) {
    for (const double dpi : {96, 300, 1200}) {
        QImage device = Device(dpi);
        Document document("\\li1440\\fi-720\\ri2880\\tx2880\\sb1440\\sl-720 a\\tab\\tab b\\line c"
                          "\\par\\pard\\qr\\ri1440\\sb1440 d\\par\\pard\\deftab2160\\tab e");
        SetTargetDevice(document, device);
        document.setDocumentMargin(0);
        document.setTextWidth(8 * dpi);
        const QTextLayout& first = *document.firstBlock().layout();
        const double close = 0.02; // inches
        EXPECT_NEAR(first.lineAt(0).x() / dpi, 0.5, close);
        EXPECT_NEAR(first.lineAt(0).cursorToX(2) / dpi, 1, close); // the hanging indent is a tab
        EXPECT_NEAR(first.lineAt(0).cursorToX(3) / dpi, 2, close);
        EXPECT_NEAR(first.lineAt(1).x() / dpi, 1, close);
        EXPECT_NEAR(first.lineAt(1).width() / dpi, 8 - 1 - 2, close);
        const QTextLayout& second = *document.firstBlock().next().layout();
        EXPECT_NEAR(second.lineAt(0).cursorToX(1) / dpi, 7, close);
        EXPECT_NEAR((second.position() - first.position()).y() / dpi, 2 * 0.5 + 1, close);
        EXPECT_NEAR(document.lastBlock().layout()->lineAt(0).cursorToX(1) / dpi, 1.5, close);
    }
}

TEST(DocumentFormatterTest, PagesGoOnBeyondWhatTheToolkitCanCount) {
    QTextDocument document;
    document.setPlainText(u"a\n"_s.repeated(2000) + u'z');
    QTextCursor all(&document);
    all.select(QTextCursor::Document);
    QTextBlockFormat high;
    high.setTopMargin(2000); // 25,000 of the device's pixels
    all.setBlockFormat(high);
    const auto ends = Pages(document, 9000, 20000);
    ASSERT_EQ(ends.size(), 2001);
    for (size_t i = 0; i + 1 < ends.size(); ++i)
        ASSERT_EQ(ends[i], qsizetype(2 * (i + 1)));
}

TEST(DocumentFormatterTest, KnowsTablesTabsAndTheRoom) {
    QTextDocument table; // whose cells are lines of their own
    table.setHtml(u"a<table><tr><td>b<br>c</td><td>d<br>e</td></tr></table>f"_s);
    EXPECT_GE(Pages(table, 9000, 400).size(), 6);
    QTextDocument tabs(u"\ta "_s.repeated(30));
    const auto narrow = Pages(tabs, 9000, 400).size();
    QTextOption option;
    option.setTabStopDistance(300);
    tabs.setDefaultTextOption(option);
    EXPECT_GT(Pages(tabs, 9000, 400).size(), narrow);
    const QTextDocument document(u"a"_s);
    EXPECT_TRUE(Pages(document, -1, 9000).empty());
    EXPECT_TRUE(Pages(document, 9000, -1).empty());
    EXPECT_EQ(Pages(document, 8e9, 9000).size(), 1); // more than an int counts
}
