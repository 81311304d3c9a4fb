// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace documents {

/// What a document asks of the main window.
class MarcoDocumentos {
public:
    virtual ~MarcoDocumentos() = default;

    /// Writes the temp file of the test run; fails if it can't be written.
    virtual void crear_temporal_click() = 0;
    /// Sets the caption of the main window.
    virtual void Rotulo(const QString& texto) = 0;
    /// Brings the document of that program path to the front, opens it if it isn't open, and shows
    /// the line, from 1. Fails as opening does.
    virtual void AbrirEn(const QString& ruta, int linea) = 0;
    /// The height of the main window, in twips.
    virtual int Alto() const = 0;
};

} // namespace documents
