// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Module1.h"
#include "support/TestHome.h"

#include <gtest/gtest.h>

namespace {

class Module1Test : public testing::Test {
protected:
    QString Leer(const char* clave) const {
        return Module1::LeerIni(Module1::RutaConfig(), QStringLiteral("general"),
                                QString::fromUtf8(clave), QStringLiteral("def"));
    }
    void Escribir(const QString& valor) const {
        Module1::EscribirIni(Module1::RutaConfig(), QStringLiteral("general"),
                             QStringLiteral("nuevo"), valor);
    }
    support::TestHome home;
};

} // namespace

TEST_F(Module1Test, ReadsTrimmedValuesAndFallsBackToTheDefault) {
    EXPECT_EQ(Leer("nuevo"), QStringLiteral("def"));
    const char tail[] = "\r\nacento=a\xF1o\r\nnul=ab\0\r\nblanconul=ab \0\r\n";
    home.Put("programa/config.ini", "[general]\r\nnuevo=  Si \r\nvacia=\r\nblancos=\"  x  \"\r\n"
                                    "solo=\"   \"\r\nlarga=" +
                                        QByteArray(300, 'z') + QByteArray(tail, sizeof tail - 1));
    EXPECT_EQ(Leer("nuevo"), QStringLiteral("Si"));
    EXPECT_EQ(Leer("vacia"), QStringLiteral("def"));
    EXPECT_EQ(Leer("blancos"), QStringLiteral("x"));
    EXPECT_EQ(Leer("solo"), QString());
    EXPECT_EQ(Leer("larga"), QString(255, u'z'));
    EXPECT_EQ(Leer("acento"), QStringLiteral("año"));
    EXPECT_EQ(Leer("nul"), QStringLiteral("ab"));
    EXPECT_EQ(Leer("blanconul"), QStringLiteral("ab"));
    EXPECT_EQ(Leer("ninguna"), QStringLiteral("def"));
}

TEST_F(Module1Test, WritesOneKeyAndIsSilentAboutFailures) {
    Escribir(QStringLiteral("no"));
    EXPECT_EQ(home.Get("programa/config.ini"), "[general]\r\nnuevo=no\r\n");
    Escribir(QString());
    EXPECT_EQ(Leer("nuevo"), QStringLiteral("def"));
    std::filesystem::remove_all(home.Root() / "programa");
    home.Put("programa", "no es una carpeta");
    Escribir(QStringLiteral("si"));
    EXPECT_EQ(Leer("nuevo"), QStringLiteral("def"));
}

TEST_F(Module1Test, GarbageReadsAsTheDefault) {
    QByteArray garbage;
    for (int i = 0; i < 5000; ++i)
        garbage.append(static_cast<char>(i * 7919 >> 3));
    home.Put("programa/config.ini", garbage);
    EXPECT_EQ(Leer("nuevo"), QStringLiteral("def"));
    Escribir(QStringLiteral("si"));
    EXPECT_EQ(Leer("nuevo"), QStringLiteral("si"));
    EXPECT_TRUE(home.Get("programa/config.ini").startsWith(garbage));
}
