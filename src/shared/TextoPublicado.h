// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

namespace shared {

/// A text that is published at every key press but seldom read: it is fetched from its source at
/// the first reading. A source must release it before the text that it gives becomes another one,
/// or before it dies.
class TextoPublicado {
public:
    using Fuente = std::function<QString()>;

    /// `dueno` names the source in Soltar; only the last one to publish counts.
    void Publicar(const void* dueno, Fuente fuente);
    /// Fetches the text for good if it is this owner's.
    void Soltar(const void* dueno);
    const QString& Leer() const;

private:
    const void* m_dueno = nullptr;
    mutable Fuente m_fuente;
    mutable QString m_texto;
};

} // namespace shared
