// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ProfileFile.h"
#include "platform/Failure.h"
#include "support/Copies.h"
#include "support/TestHome.h"

#include <array>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace platform;

TEST(ProfileFile, ReadsAsTheFormatIsKnown) {
    const QByteArray file = "; inicio\r\nsuelta=0\r\n[ Inicio ]\r\n;clave=comentario\r\n"
                            "CLAVE =  uno  \r\nclave=dos\r\nentre=\" con blancos \"\r\nvacia=\r\n"
                            "igual=a=b;c\r\n[otra]\nclave=tres\n[inicio]\nsolo=cuatro\n";
    const struct {
        const char* section;
        const char* key;
        std::optional<QByteArray> value;
    } questions[] = {
        {"inicio", "clave", "uno"},
        {"INICIO", "Entre", " con blancos "},
        {"inicio", "vacia", ""},
        {"inicio", "igual", "a=b;c"},
        {"otra", "clave", "tres"},
        {"inicio", "solo", std::nullopt}, // the first section of a name counts
        {"inicio", ";clave", std::nullopt},
        {"nada", "clave", std::nullopt},
        {"inicio", "suelta", std::nullopt},
    };
    for (const auto& q : questions)
        EXPECT_EQ(ProfileValue(file, q.section, q.key), q.value) << q.section << ' ' << q.key;
    EXPECT_EQ(ProfileValue("\xEF\xBB\xBF[a]\nb=c", "a", "b"), "c");
}

TEST(ProfileFile, WritingLeavesAllOtherLinesAlone) {
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

TEST(ProfileFile, TheCallsWorkOnRealFiles) {
    const support::TestHome home;
    const QString path = u"C:\\config.ini"_s;
    std::array<char, 8> buffer;
    const auto read = [&](const char* key) {
        const int count =
            GetPrivateProfileStringA(u"s"_s, QString::fromLatin1(key), u"defecto"_s, buffer, path);
        return QByteArray(buffer.data(), count);
    };
    EXPECT_FALSE(PathFileExistsA(path));
    EXPECT_EQ(read("a"), "defecto");
    WritePrivateProfileStringA(u"s"_s, u"a"_s, u"ñandú\n[s]"_s, path);
    EXPECT_TRUE(PathFileExistsA(path));
    EXPECT_EQ(home.Get("config.ini"), "[s]\r\na=\xF1"
                                      "and\xFA\r\n");
    EXPECT_EQ(read("a"), "\xF1"
                         "and\xFA");
    EXPECT_EQ(buffer[5], '\0');
    home.Put("config.ini", "[s]\na=12345678901");
    EXPECT_EQ(read("a"), "1234567");
    EXPECT_THROW(WritePrivateProfileStringA(u"s"_s, u"a"_s, QString(), u"C:\\nada\\config.ini"_s),
                 Failure);
}

TEST(ProfileFile, CopiesOfTheProgramLoseNoKeyOfEachOther) {
    const support::TestHome home;
    const QString path = home.Put("config.ini", "[inicio]\r\n");
    EXPECT_TRUE(support::InCopies([&](int number) {
        for (int i = 0; i < 10; ++i)
            WritePrivateProfileStringA(u"inicio"_s, u"%1.%2"_s.arg(number).arg(i), u"si"_s, path);
        return true;
    }));
    EXPECT_EQ(home.Get("config.ini").count("=si\r\n"), 40);
}
