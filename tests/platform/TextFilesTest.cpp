// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/Failure.h"
#include "platform/files/ProfileFile.h"
#include "platform/text/CodePage.h"
#include "platform/text/TextEncoding.h"
#include "support/Copies.h"
#include "support/TestHome.h"

#include <QStringEncoder>
#include <gtest/gtest.h>
#include <numeric>

using namespace Qt::StringLiterals;
using namespace platform;

TEST(ProfileFileTest, ReadsAsTheFormatIsKnown) {
    const QByteArray file = "; inicio\r\nsuelta=0\r\n[ Inicio ]\r\n;clave=comentario\r\n"
                            "CLAVE =  uno  \r\nclave=dos\r\nentre=\" con blancos \"\r\nvacia=\r\n"
                            "igual=a=b;c\r\n[otra]\nclave=tres\n[inicio]\nsolo=cuatro\n";
    // Of two sections of a name the first one counts, and so does the first of two keys.
    const std::tuple<const char*, const char*, std::optional<QByteArray>> questions[] = {
        {"inicio", "clave", "uno"},
        {"INICIO", "Entre", " con blancos "},
        {"inicio", "vacia", ""},
        {"inicio", "igual", "a=b;c"},
        {"otra", "clave", "tres"},
        {"inicio", "solo", std::nullopt},
        {"inicio", ";clave", std::nullopt},
        {"nada", "clave", std::nullopt},
        {"inicio", "suelta", std::nullopt}};
    for (const auto& [section, key, value] : questions)
        EXPECT_EQ(ProfileValue(file, section, key), value) << section << ' ' << key;
    EXPECT_EQ(ProfileValue("\xEF\xBB\xBF[a]\nb=c", "a", "b"), "c");
}

TEST(ProfileFileTest, WritingLeavesAllOtherLinesAlone) {
    const QByteArray file = "; cabeza\r\n\r\n[uno]\r\nA = 1 \r\n;b=2\r\n\r\n[dos]\r\nc=3";
    EXPECT_EQ(WithProfileValue(file, "UNO", "a", "9"),
              "; cabeza\r\n\r\n[uno]\r\nA =9\r\n;b=2\r\n\r\n[dos]\r\nc=3");
    EXPECT_EQ(WithProfileValue(file, "uno", "b", "9"),
              "; cabeza\r\n\r\n[uno]\r\nA = 1 \r\n;b=2\r\nb=9\r\n\r\n[dos]\r\nc=3");
    EXPECT_EQ(WithProfileValue(file, "dos", "d", "4"), file + "\r\nd=4");
    EXPECT_EQ(WithProfileValue(file, "tres", "e", "5"), file + "\r\n[tres]\r\ne=5\r\n");
    EXPECT_EQ(WithProfileValue("", "a", "b", ""), "[a]\r\nb=\r\n");
    EXPECT_EQ(WithProfileValue("[a]\nb=1\n", "a", "c", "2"), "[a]\nb=1\nc=2\n");
    EXPECT_EQ(WithProfileValue("[a]", "a", "c", "2"), "[a]\r\nc=2");
}

TEST(ProfileFileTest, CopiesOfTheProgramLoseNoKeyOfEachOther) {
    const support::TestHome home;
    const QString path = home.Put("config.ini", "[inicio]\r\n");
    EXPECT_TRUE(support::InCopies([&](int number) {
        for (int i = 0; i < 10; ++i)
            WritePrivateProfileStringA(u"inicio"_s, u"%1.%2"_s.arg(number).arg(i), u"si"_s, path);
        return true;
    }));
    EXPECT_EQ(home.Get("config.ini").count("=si\r\n"), 40);
}

TEST(TextEncodingTest, UnchangedTextIsTheSameBytes) {
    const QString spanish = u"-- ¡año, señor! € 😀\r\nx = 1\n\ry = 2\r"_s;
    const auto mark = QStringConverter::Flag::WriteBom;
    const QByteArray little = QStringEncoder(QStringConverter::Utf16LE, mark)(spanish);
    const QByteArray big = QStringEncoder(QStringConverter::Utf16BE, mark)(spanish);
    QByteArray all(255, '\0');
    std::iota(all.begin(), all.end(), '\1');
    const std::pair<QByteArray, TextEncoding> files[] = {
        {"", TextEncoding::CodePage},
        {"print(1)\r\nend\rx\n", TextEncoding::CodePage},
        {all, TextEncoding::CodePage},
        {"a\xF1o", TextEncoding::CodePage},
        {"\xEF\xBB\xBF\xF1", TextEncoding::CodePage}, // a mark, but no UTF-8 behind it
        {spanish.toUtf8(), TextEncoding::Utf8},
        {"\xEF\xBB\xBF" + spanish.toUtf8(), TextEncoding::Utf8WithMark},
        {"\xEF\xBB\xBF", TextEncoding::Utf8WithMark},
        {little, TextEncoding::Utf16LEWithMark},
        {big, TextEncoding::Utf16BEWithMark},
        {QByteArray("\xFE\xFF\xFE\xFF\0x", 6), TextEncoding::Utf16BEWithMark}, // two marks
        {"\xEF\xBB\xBF\xEF\xBB\xBFx", TextEncoding::Utf8WithMark},
    };
    for (const auto& [bytes, encoding] : files) {
        const DecodedText decoded = DecodeText(bytes);
        EXPECT_EQ(decoded.encoding, encoding) << bytes.toHex().toStdString();
        const EncodedText encoded = EncodeText(decoded.utf8, decoded.encoding);
        EXPECT_EQ(encoded.bytes, bytes) << bytes.toHex().toStdString();
        EXPECT_EQ(encoded.encoding, encoding);
    }
    EXPECT_EQ(DecodeText(big).utf8, spanish.toUtf8());
}

TEST(TextEncodingTest, NothingIsLostInTheCodePageOrForLackOfIt) {
    EXPECT_EQ(FromCodePage("\x81\x8D\x8F\x90\x9D\x80"), u"\u0081\u008D\u008F\u0090\u009D\u20AC"_s);
    EXPECT_EQ(ToCodePage(u"\u0081\u20AC\u00FF"), QByteArray("\x81\x80\xFF"));
    EXPECT_EQ(ToCodePage(u"\u0080"), std::nullopt);
    EXPECT_EQ(ToCodePageLossy(u"a\u2192\U0001F600ñ"), QByteArray("a??\xF1"));
    const QByteArray arrow = u"ñ → x"_s.toUtf8();
    for (const QByteArray& text : {arrow, u"\uFEFFabc"_s.toUtf8()})
        EXPECT_EQ(EncodeText(text, TextEncoding::CodePage).bytes, text);
    EXPECT_EQ(EncodeText(arrow, TextEncoding::CodePage).encoding, TextEncoding::Utf8);
    // Its bytes in the code page would read back as another text.
    const QByteArray tricky = u"Ã±"_s.toUtf8();
    EXPECT_EQ(DecodeText(EncodeText(tricky, TextEncoding::CodePage).bytes).utf8, tricky);
    EXPECT_EQ(EncodeForPlayer(u"Ã± Â© 2024"_s), "\xC3\xB1 \xC2\xA9 2024"); // which reads none back
    EXPECT_EQ(EncodeForPlayer(u"ñ → x"_s), arrow);
}

TEST(TextEncodingTest, RefusesWhatNoEditorCanHold) {
    const QByteArray nul("a\0b", 3);
    const QByteArray files[] = {nul, QByteArray("\xFF\xFE") + nul, "\xFF\xFE\x3D\xD8",
                                QByteArray("\xFF\xFE\0\0a\0\0\0", 8)};
    for (const QByteArray& bytes : files)
        EXPECT_THROW(DecodeText(bytes), Failure) << bytes.toHex().toStdString();
}
