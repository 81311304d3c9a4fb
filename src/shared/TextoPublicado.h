// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

namespace shared {

/// A text that is published at every key press but seldom read, so it is fetched from its source
/// only when it is read. A source must call Soltar before its text changes and before it dies.
class TextoPublicado {
public:
    using Fuente = std::function<QString()>;

    /// `dueno` identifies the source for Soltar; the last one to publish counts.
    void Publicar(const void* dueno, Fuente fuente);
    /// Fetches the text now and forgets the source, if it is this one.
    void Soltar(const void* dueno);
    const QString& Leer() const;

private:
    const void* m_dueno = nullptr;
    mutable Fuente m_fuente;
    mutable QString m_texto;
};

} // namespace shared
