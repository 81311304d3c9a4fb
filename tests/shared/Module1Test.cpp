// SPDX-License-Identifier: GPL-3.0-or-later
#include "shared/Module1.h"
#include "support/TestHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
namespace {

class Module1Test : public testing::Test {
protected:
    QString Leer(const char* clave) const {
        return Module1::LeerIni(Module1::RutaConfig(), u"general"_s, QString::fromUtf8(clave),
                                u"def"_s);
    }
    void Escribir(const QString& valor) const {
        Module1::EscribirIni(Module1::RutaConfig(), u"general"_s, u"nuevo"_s, valor);
    }
    support::TestHome home;
};

} // namespace

TEST_F(Module1Test, ReadsTrimmedValuesAndFallsBackToTheDefault) {
    EXPECT_EQ(Leer("nuevo"), u"def"_s);
    const char tail[] = "\r\nacento=a\xF1o\r\nnul=ab\0\r\nblanconul=ab \0\r\n";
    home.Put("programa/config.ini", "[general]\r\nnuevo=  Si \r\nvacia=\r\nblancos=\"  x  \"\r\n"
                                    "solo=\"   \"\r\nlarga=" +
                                        QByteArray(300, 'z') + QByteArray(tail, sizeof tail - 1));
    EXPECT_EQ(Leer("nuevo"), u"Si"_s);
    EXPECT_EQ(Leer("vacia"), u"def"_s);
    EXPECT_EQ(Leer("blancos"), u"x"_s);
    EXPECT_EQ(Leer("solo"), QString());
    EXPECT_EQ(Leer("larga"), QString(255, u'z'));
    EXPECT_EQ(Leer("acento"), u"año"_s);
    EXPECT_EQ(Leer("nul"), u"ab"_s);
    EXPECT_EQ(Leer("blanconul"), u"ab"_s);
    EXPECT_EQ(Leer("ninguna"), u"def"_s);
}

TEST_F(Module1Test, WritesOneKeyAndIsSilentAboutFailures) {
    Escribir(u"no"_s);
    EXPECT_EQ(home.Get("programa/config.ini"), "[general]\r\nnuevo=no\r\n");
    Escribir(QString());
    EXPECT_EQ(Leer("nuevo"), u"def"_s);
    std::filesystem::remove_all(home.Root() / "programa");
    home.Put("programa", "no es una carpeta");
    Escribir(u"si"_s);
    EXPECT_EQ(Leer("nuevo"), u"def"_s);
}
