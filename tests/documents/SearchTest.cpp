// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/find/LinePlace.h"
#include "documents/editor/find/Replacement.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace documents;

namespace documents {
void PrintTo(const Hit& hit, std::ostream* out) {
    *out << hit.from << '-' << hit.to;
}
} // namespace documents

namespace {

using Hits = std::vector<Hit>;

constexpr bool kCase = true;
constexpr bool kWord = true;
constexpr bool kPattern = true;

Hits Found(const QByteArray& text, const SearchFor& wanted) {
    return Search(wanted).In(text).hits;
}

} // namespace

TEST(SearchTest, TellsBytesWhateverStandsBefore) {
    const QByteArray text = u"añoÑ\r→ 😀x\nÁX"_s.toUtf8();
    EXPECT_EQ(Found(text, {u"ñ"_s}), (Hits{{1, 3}, {4, 6}}));
    EXPECT_EQ(Found(text, {u"ñ"_s, kCase}), (Hits{{1, 3}}));
    EXPECT_EQ(Found(text, {u"x"_s}), (Hits{{15, 16}, {19, 20}}));
    EXPECT_EQ(Found(text, {u"á"_s}), (Hits{{17, 19}}));
    // A mark, and words behind the border of pieces.
    const QByteArray line = u"\uFEFFé"_s.toUtf8() + QByteArray(70000, ' ');
    EXPECT_EQ(Found((line + "\r\n").repeated(3) + "\xC3\xA9.", {u"É."_s}),
              (Hits{{210021, 210024}}));
    const QByteArray ascii = QByteArray(65535, 'x') + "\r\nword\r\n";
    EXPECT_EQ(Found(ascii, {u"^word$"_s, false, false, kPattern}), (Hits{{65537, 65541}}));
}

TEST(SearchTest, PlainTextsAreTakenAsTheyAreAndDoNotOverlap) {
    EXPECT_EQ(Found("a.b axb \\E(", {u"a.b"_s}), (Hits{{0, 3}}));
    EXPECT_EQ(Found("a \\E(", {u"\\E("_s}), (Hits{{2, 5}}));
    EXPECT_EQ(Found("aaaaa", {u"aa"_s}), (Hits{{0, 2}, {2, 4}}));
    EXPECT_EQ(Found("ab", {u"a\0b"_s}), Hits());
    EXPECT_EQ(Found("ab", {QString()}), Hits());
    const QString large(10000, u'ñ');
    EXPECT_EQ(Found(large.toUtf8(), {large}), (Hits{{0, 20000}}));
}

TEST(SearchTest, WholeWordsEndWhereNoLetterGoesOn) {
    EXPECT_EQ(Found("x xy _x x1 x ax", {u"x"_s, false, kWord}), (Hits{{0, 1}, {11, 12}}));
    EXPECT_EQ(Found(u"año ano añ"_s.toUtf8(), {u"a"_s, false, kWord}), Hits());
    EXPECT_EQ(Found("a.x b.x.", {u".x"_s, false, kWord}), (Hits{{1, 3}, {5, 7}}));
    EXPECT_EQ(Found("ab1 b1", {u"%l%d"_s, false, kWord, kPattern}), (Hits{{4, 6}}));
}

TEST(SearchTest, HopelessPatternsAreGivenUpAndEmptyMatchesLeftOut) {
    const QByteArray wide = QByteArray("ab((\"").repeated(200000);
    for (const QString& pattern : {u".*zz"_s, u".-.-.-zz"_s, u"%b()"_s, u"(.*)(.*)(.*)%1zz"_s}) {
        QElapsedTimer clock;
        clock.start();
        const Search search({pattern, false, false, kPattern});
        EXPECT_EQ(search.In(wide).fault, u"El patrón pide demasiado trabajo"_s);
        EXPECT_EQ(Replacement(search, u"x"_s).All(wide, 0).fault, Search::TooMuchWork());
        EXPECT_LT(clock.elapsed(), 10000);
    }
    EXPECT_EQ(Found("baab", {u"a*"_s, false, false, kPattern}), (Hits{{1, 3}}));
    EXPECT_EQ(Found("baab", {u"a-"_s, false, false, kPattern}), Hits());
    const Search broken({u"["_s, false, false, kPattern});
    EXPECT_EQ(broken.Fault(), u"El patrón no vale: falta el ] de un conjunto"_s);
    EXPECT_TRUE(broken.In(wide).hits.empty());
}

TEST(ReplacementTest, PutsTextAndCapturesInThePlaceOfEachHit) {
    const auto replaced = [](const char* text, const SearchFor& wanted, const QString& by) {
        return Replacement(Search(wanted), by).All(text, 0).utf8;
    };
    EXPECT_EQ(replaced("a=1\r\nA=2", {u"a"_s}, u"%0ña"_s), u"%0ña=1\r\n%0ña=2"_s.toUtf8());
    const SearchFor pair{u"(%w+)=(%w+)"_s, false, false, kPattern};
    EXPECT_EQ(replaced("a=1, b=2", pair, u"%2=%1 %0%% %x%"_s), "1=a a=1% x%, 2=b b=2% x%");
    EXPECT_EQ(replaced("a b", {u"%w"_s, false, false, kPattern}, u"[%1]"_s), "[a] [b]");
    EXPECT_EQ(Replacement(Search(pair), u"%3"_s).Fault(), u"El patrón no tiene la captura %3"_s);
    EXPECT_EQ(Replacement(Search(pair), u"%2%1"_s).One("a=1 b=2", {4, 7}), "2b");
    EXPECT_EQ(Replacement(Search(pair), u"%2%1"_s).One("a=1 b=2", {5, 7}), std::nullopt);
}

TEST(ReplacementTest, TheCaretStaysInItsWords) {
    const Replacement longer(Search({u"ab"_s}), u"xyz"_s);
    const Replacement none(Search({u"ab"_s}), QString());
    const std::pair<qsizetype, qsizetype> carets[] = {{0, 0}, {1, 1}, {2, 3},
                                                      {3, 4}, {4, 5}, {5, 7}};
    for (const auto& [before, after] : carets)
        EXPECT_EQ(longer.All("ab ab", before).caret, after) << before;
    EXPECT_EQ(none.All("ab ab", 4).caret, 1);
    EXPECT_EQ(none.All("ab ab", 5).caret, 1);
    const Replacement huge(Search({u"a"_s}), QString(1 << 20, u'x'));
    EXPECT_EQ(huge.All(QByteArray(2000, 'a'), 0).fault, u"El texto sería demasiado grande"_s);
}

TEST(LinePlaceTest, ReadsLinesAndColumnsAndRefusesTheRest) {
    constexpr qsizetype kCurrent = 10;
    constexpr qsizetype kLines = 20;
    struct Row {
        QString text;
        qsizetype line;
        qsizetype column;
    };
    const Row rows[] = {
        {u" 12 "_s, 11, 0},   {u"+5"_s, 15, 0}, {u"- 5"_s, 5, 0},
        {u"+50"_s, 19, 0},    {u"-50"_s, 0, 0}, {u"0"_s, 0, 0},
        {u"12 : 8"_s, 11, 7}, {u"1:0"_s, 0, 0}, {u"99999999999999999999"_s, 19, 0},
    };
    for (const Row& row : rows) {
        const LinePlace place = ReadLinePlace(row.text, kCurrent, kLines).place;
        EXPECT_EQ(place.line, row.line) << row.text.toStdString();
        EXPECT_EQ(place.column, row.column) << row.text.toStdString();
    }
    for (const QString& text : {QString(), u"x"_s, u"1:"_s, u"1.5"_s, u"--1"_s, u"1\n"_s + u"x"_s})
        EXPECT_FALSE(ReadLinePlace(text, kCurrent, kLines).fault.isEmpty()) << text.toStdString();
}
