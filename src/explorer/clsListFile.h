// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/EntradaArchivo.h"
#include "explorer/MarcoExplorador.h"
#include "platform/controls/ImageList.h"
#include "platform/controls/ListControl.h"
#include "platform/files/FileSystemObject.h"
#include "platform/files/FindFile.h"

#include <QString>
#include <functional>
#include <memory>
#include <vector>

namespace explorer {

/// Lists a folder in a list view. A double click on a row enters a folder, opens a project file in
/// the editor and leaves anything else to the desktop.
class clsListFile {
public:
    clsListFile(MarcoExplorador& marco, const platform::FileSystemObject& fso);
    ~clsListFile();
    clsListFile(const clsListFile&) = delete;
    clsListFile& operator=(const clsListFile&) = delete;

    /// The folder listed last, as it was given.
    const QString& path() const { return mvarPath; }
    void path(const QString& vData) { mvarPath = vData; }

    /// The caller owns the controls, which must outlive this object.
    void SetControls(platform::ListControl& ListView, platform::ImageList& ImageList1,
                     platform::ImageList& ImageList2);

    /// Lists a folder by program path, as empty if it can't be read. Handles events meanwhile; if
    /// one of them lists a folder too, or destroys this object, this call just returns.
    void Listar(const QString& path);
    void subirNivel();

    /// Called after a folder was entered, or left for the one above.
    std::function<void(QString& Ruta)> changePath;

private:
    struct Lectura;

    bool ListarHastaElFin(const QString& path);
    void ListarYAvisar(const QString& path);
    bool leerDirectorio(const QString& directorio);
    EntradaArchivo LeerEntrada(const platform::FoundFile& archivo, Lectura& lectura);
    void AnadirIconos(const QString& ruta, const QString& clave);
    void AnadirFilas();
    void DblClick();

    MarcoExplorador& m_marco;
    const platform::FileSystemObject& m_fso;
    platform::ListControl* mvarListView = nullptr;
    platform::ImageList* mvarImagenPequena = nullptr;
    platform::ImageList* mvarImagenGrande = nullptr;
    std::vector<EntradaArchivo> mvarFiles;
    QString mvarPath;
    /// Counts the listings; shared, since a running listing reads it after the object is destroyed.
    std::shared_ptr<unsigned> m_turno = std::make_shared<unsigned>(0);
};

} // namespace explorer
