// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/TextEncoding.h"
#include "platform/CodePage.h"
#include "platform/Failure.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

QByteArray Utf16(const QString& text, bool bigEndian) {
    QByteArray bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const QChar c : text) {
        const char low = static_cast<char>(c.unicode() & 0xFF);
        const char high = static_cast<char>(c.unicode() >> 8);
        bytes.append(bigEndian ? high : low).append(bigEndian ? low : high);
    }
    return bytes;
}

QByteArray AllCodePageBytes() {
    QByteArray bytes;
    for (int byte = 1; byte < 256; ++byte)
        bytes.append(static_cast<char>(byte));
    return bytes;
}

} // namespace

TEST(TextEncoding, UnchangedTextIsTheSameBytes) {
    const QString spanish = u"-- ¡año, señor! € 😀\r\nx = 1\n\ry = 2\r"_s;
    const struct {
        QByteArray bytes;
        TextEncoding encoding;
    } files[] = {
        {"", TextEncoding::CodePage},
        {"print(1)\r\nend\rx\n", TextEncoding::CodePage},
        {AllCodePageBytes(), TextEncoding::CodePage},
        {"a\xF1o", TextEncoding::CodePage},
        {"\xEF\xBB\xBF\xF1", TextEncoding::CodePage}, // a mark, but no UTF-8 behind it
        {spanish.toUtf8(), TextEncoding::Utf8},
        {"\xEF\xBB\xBF" + spanish.toUtf8(), TextEncoding::Utf8WithMark},
        {"\xEF\xBB\xBF", TextEncoding::Utf8WithMark},
        {Utf16(spanish, false), TextEncoding::Utf16LEWithMark},
        {Utf16(spanish, true), TextEncoding::Utf16BEWithMark},
        {Utf16(u"\uFEFFx"_s, true), TextEncoding::Utf16BEWithMark}, // two marks
        {"\xEF\xBB\xBF\xEF\xBB\xBFx", TextEncoding::Utf8WithMark},
    };
    for (const auto& file : files) {
        const DecodedText decoded = DecodeText(file.bytes);
        EXPECT_EQ(decoded.encoding, file.encoding) << file.bytes.toHex().toStdString();
        const EncodedText encoded = EncodeText(decoded.utf8, decoded.encoding);
        EXPECT_EQ(encoded.bytes, file.bytes) << file.bytes.toHex().toStdString();
        EXPECT_EQ(encoded.encoding, file.encoding);
    }
    EXPECT_EQ(DecodeText(Utf16(spanish, true)).utf8, spanish.toUtf8());
}

TEST(TextEncoding, UndefinedBytesTravelAsControls) {
    EXPECT_EQ(FromCodePage("\x81\x8D\x8F\x90\x9D\x80"), u"\u0081\u008D\u008F\u0090\u009D\u20AC"_s);
    EXPECT_EQ(ToCodePage(u"\u0081\u20AC\u00FF"), QByteArray("\x81\x80\xFF"));
    EXPECT_EQ(ToCodePage(u"\u0080"), std::nullopt);
    EXPECT_EQ(ToCodePageLossy(u"a\u2192\U0001F600ñ"), QByteArray("a??\xF1"));
}

TEST(TextEncoding, NothingIsLostThatDoesNotFitTheCodePage) {
    const QByteArray arrow = u"ñ → x"_s.toUtf8();
    EXPECT_EQ(EncodeText(arrow, TextEncoding::CodePage).bytes, arrow);
    EXPECT_EQ(EncodeText(arrow, TextEncoding::CodePage).encoding, TextEncoding::Utf8);
    const QByteArray mark = u"\uFEFFabc"_s.toUtf8();
    EXPECT_EQ(EncodeText(mark, TextEncoding::CodePage).bytes, mark);
    // Its bytes in the code page would read back as another text.
    const QByteArray tricky = u"Ã±"_s.toUtf8();
    const EncodedText encoded = EncodeText(tricky, TextEncoding::CodePage);
    EXPECT_EQ(DecodeText(encoded.bytes).utf8, tricky);
    EXPECT_EQ(EncodeForPlayer(u"Ã± Â© 2024"_s), "\xC3\xB1 \xC2\xA9 2024"); // which reads none back
    EXPECT_EQ(EncodeForPlayer(u"ñ → x"_s), arrow);
}

TEST(TextEncoding, RefusesWhatNoEditorCanHold) {
    const QByteArray nul("a\0b", 3);
    const QByteArray files[] = {nul, QByteArray("\xFF\xFE") + nul, "\xFF\xFE\x3D\xD8",
                                QByteArray("\xFF\xFE\0\0a\0\0\0", 8)};
    for (const QByteArray& bytes : files)
        EXPECT_THROW(DecodeText(bytes), Failure) << bytes.toHex().toStdString();
}
