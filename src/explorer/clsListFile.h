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

    /// The controls stay the caller's and must outlive this object.
    void SetControls(platform::ListControl& ListView, platform::ImageList& ImageList1,
                     platform::ImageList& ImageList2);

    /// Lists a folder; one that can't be read is an empty list. Other events are handled meanwhile.
    /// If one of their handlers lists a folder too, or ends this object, this call just ends.
    void Listar(const QString& path);
    void subirNivel();

    /// Hears that a folder was entered, or left for the one above.
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
    /// Counts the listings. It outlives this object for a listing that is still running.
    std::shared_ptr<unsigned> m_turno = std::make_shared<unsigned>(0);
};

} // namespace explorer
