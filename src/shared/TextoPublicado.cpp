// SPDX-License-Identifier: GPL-3.0-or-later
#include "shared/TextoPublicado.h"

#include <utility>

namespace shared {

void TextoPublicado::Publicar(const void* dueno, Fuente fuente) {
    m_dueno = dueno;
    m_fuente = std::move(fuente);
}

void TextoPublicado::Soltar(const void* dueno) {
    if (m_dueno == dueno)
        Leer();
}

const QString& TextoPublicado::Leer() const {
    if (m_fuente)
        m_texto = std::exchange(m_fuente, nullptr)();
    return m_texto;
}

} // namespace shared
