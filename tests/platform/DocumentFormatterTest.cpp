// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DocumentFormatter.h"

#include <QImage>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

// Where the pages end, on a device of 1200 dots per inch, until the answer doesn't grow.
std::vector<qsizetype> Pages(const QTextDocument& document, double width, double height) {
    QImage device(1, 1, QImage::Format_RGB32);
    device.setDotsPerMeterX(47244);
    device.setDotsPerMeterY(47244);
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

TEST(DocumentFormatter, PagesGoOnBeyondWhatTheToolkitCanCount) {
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

TEST(DocumentFormatter, CellsOfATableAreLinesOfTheirOwn) {
    QTextDocument document;
    document.setHtml(u"a<table><tr><td>b<br>c</td><td>d<br>e</td></tr></table>f"_s);
    EXPECT_GE(Pages(document, 9000, 400).size(), 6);
}

TEST(DocumentFormatter, TheDistanceOfTabsIsTheDocuments) {
    QTextDocument document(u"\ta "_s.repeated(30));
    const auto narrow = Pages(document, 9000, 400).size();
    QTextOption option;
    option.setTabStopDistance(300);
    document.setDefaultTextOption(option);
    EXPECT_GT(Pages(document, 9000, 400).size(), narrow);
}

TEST(DocumentFormatter, NothingIsDrawnWhereThereIsNoRoom) {
    QTextDocument document(u"a"_s);
    EXPECT_TRUE(Pages(document, -1, 9000).empty());
    EXPECT_TRUE(Pages(document, 9000, -1).empty());
    EXPECT_EQ(Pages(document, 8e9, 9000).size(), 1); // more than an int counts
}
