// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/files/FileSystemObject.h"
#include "platform/forms/Form.h"
#include "shared/TextoPublicado.h"

#include <QPointer>
#include <QString>
#include <memory>

namespace shared {

/// What the windows of the program share. Made once, in main, and handed on by reference.
struct ValoresCompartidos {
    qint16 numero_documentos = 0; ///< open document windows
    QString nombre_script;        ///< name of the script as last published
    TextoPublicado texto_script;  ///< text of the script as last published
    QString texto_temporal;       ///< text of the last test run
    QString carpeta_firmware;     ///< the firmware's folder ("GAME") at the last transfer
    QString origen_eboot;         ///< the loader that was sent last, a program path
    QString version;              ///< the program's, as the update window knows it
    qint16 segundos = 0;          ///< since the last look for an update began
    std::unique_ptr<platform::FileSystemObject> fso;
    QPointer<platform::Form> documento_explorador; ///< the document opened last from the explorer
};

} // namespace shared
