// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace explorer {

/// What the explorer asks of the main window.
class MarcoExplorador {
public:
    virtual ~MarcoExplorador() = default;

    /// Opens a project file, by program path, in a new document with that caption. The document is
    /// empty if the file can't be read.
    virtual void AbrirProyecto(const QString& ruta, const QString& rotulo) = 0;
};

} // namespace explorer
