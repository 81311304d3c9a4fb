// SPDX-License-Identifier: GPL-3.0-or-later
#include "shared/TextoPublicado.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using shared::TextoPublicado;

TEST(TextoPublicado, TheLastToPublishCountsAndOutlivesItsSource) {
    TextoPublicado texto;
    EXPECT_EQ(texto.Leer(), QString());
    QString uno = u"uno"_s;
    QString dos = u"dos"_s;
    texto.Publicar(&uno, [&] { return uno; });
    texto.Publicar(&dos, [&] { return dos; });
    texto.Soltar(&uno); // no longer its text
    dos = u"dos y medio"_s;
    EXPECT_EQ(texto.Leer(), u"dos y medio"_s);
    texto.Publicar(&uno, [&] { return uno; });
    texto.Soltar(&uno);
    uno = u"otro"_s;
    EXPECT_EQ(texto.Leer(), u"uno"_s);
}
