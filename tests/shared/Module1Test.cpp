// SPDX-License-Identifier: GPL-3.0-or-later
#include "shared/Module1.h"
#include "support/TestHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
namespace {

QString Leer() {
    return Module1::LeerIni(Module1::RutaConfig(), u"general"_s, u"nuevo"_s, u"def"_s);
}
void Escribir(const QString& valor) {
    Module1::EscribirIni(Module1::RutaConfig(), u"general"_s, u"nuevo"_s, valor);
}

} // namespace

TEST(Module1Test, ReadsTrimmedValuesAndFallsBackToTheDefault) {
    const support::TestHome home;
    EXPECT_EQ(Leer(), u"def"_s);
    const std::pair<QByteArray, QString> lines[] = {
        {"nuevo=  Si ", u"Si"_s},
        {"nuevo=", u"def"_s},
        {"nuevo=\"  x  \"", u"x"_s},
        {"nuevo=\"   \"", QString()},
        {"nuevo=" + QByteArray(300, 'z'), QString(255, u'z')},
        {"nuevo=a\xF1o", u"año"_s},
        {QByteArray("nuevo=ab\0", 9), u"ab"_s},
        {QByteArray("nuevo=ab \0", 10), u"ab"_s},
        {"otra=x", u"def"_s},
    };
    for (const auto& [line, value] : lines) {
        home.Put("programa/config.ini", "[general]\r\n" + line + "\r\n");
        EXPECT_EQ(Leer(), value) << line.toStdString();
    }
}

TEST(Module1Test, WritesOneKeyAndIsSilentAboutFailures) {
    const support::TestHome home;
    Escribir(u"no"_s);
    EXPECT_EQ(home.Get("programa/config.ini"), "[general]\r\nnuevo=no\r\n");
    Escribir(u"ñúmero\n[s]"_s); // of one line alone
    EXPECT_EQ(home.Get("programa/config.ini"), "[general]\r\nnuevo=\xF1\xFAmero\r\n");
    Escribir(QString());
    EXPECT_EQ(Leer(), u"def"_s);
    std::filesystem::remove_all(home.Root() / "programa");
    home.Put("programa", "no es una carpeta");
    Escribir(u"si"_s);
    EXPECT_EQ(Leer(), u"def"_s);
}
