// SPDX-License-Identifier: GPL-3.0-or-later
#include "shared/TextoPublicado.h"

#include <gtest/gtest.h>

using shared::TextoPublicado;

TEST(TextoPublicado, TheLastToPublishCountsAndOutlivesItsSource) {
    TextoPublicado texto;
    EXPECT_EQ(texto.Leer(), QString());
    QString uno = QStringLiteral("uno");
    QString dos = QStringLiteral("dos");
    texto.Publicar(&uno, [&] { return uno; });
    texto.Publicar(&dos, [&] { return dos; });
    texto.Soltar(&uno); // no longer its text
    dos = QStringLiteral("dos y medio");
    EXPECT_EQ(texto.Leer(), QStringLiteral("dos y medio"));
    texto.Publicar(&uno, [&] { return uno; });
    texto.Soltar(&uno);
    uno = QStringLiteral("otro");
    EXPECT_EQ(texto.Leer(), QStringLiteral("uno"));
}

TEST(TextoPublicado, FetchesOncePerPublication) {
    TextoPublicado texto;
    int veces = 0;
    const auto fuente = [&] { return QString::number(++veces); };
    for (int i = 0; i < 1000; ++i)
        texto.Publicar(&veces, fuente);
    EXPECT_EQ(texto.Leer(), QStringLiteral("1"));
    EXPECT_EQ(texto.Leer(), QStringLiteral("1"));
}
