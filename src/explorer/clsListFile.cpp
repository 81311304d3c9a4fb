// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/clsListFile.h"

#include "platform/base/Silently.h"
#include "platform/base/Twips.h"
#include "platform/controls/ImageList.h"
#include "platform/desktop/FileType.h"
#include "platform/desktop/ShellExecute.h"
#include "platform/files/ProgramFolder.h"

#include <QCoreApplication>
#include <QHash>
#include <QIcon>
#include <QStringView>
#include <algorithm>
#include <array>

namespace explorer {
namespace {

constexpr size_t kEntradas = 32767;
constexpr size_t kFilasPorRefresco = 1000;
constexpr qsizetype kRaiz = 3;      // characters, of "C:\"
constexpr qsizetype kExtension = 4; // characters, of ".qmk"

constexpr QStringView kTipoProyecto = u"Quillmark";

struct Columna {
    const char16_t* titulo;
    int ancho; // pixels
    Qt::AlignmentFlag alineacion;
};
constexpr std::array kColumnas = {
    Columna{u"Nombre", 140, Qt::AlignLeft},   Columna{u"Tamaño", 70, Qt::AlignRight},
    Columna{u"Tipo", 160, Qt::AlignLeft},     Columna{u"Fecha", 120, Qt::AlignLeft},
    Columna{u"Atributo", 60, Qt::AlignRight},
};

// The types in which each file has an icon of its own.
struct TipoPropio {
    const char16_t* clave;
    const char16_t* tipo;
};
constexpr std::array kTiposPropios = {
    TipoPropio{u"zico", u"Symbol"},
    TipoPropio{u"zexe", u"Aplicación"},
    TipoPropio{u"zlnk", u"Verknüpfung"},
    TipoPropio{u"zcur", u"Cursor"},
};

bool AcabaEnSeparador(const QString& ruta) {
    return ruta.endsWith(u'\\') || ruta.endsWith(u'/');
}

QString ConSeparador(const QString& ruta) {
    return AcabaEnSeparador(ruta) ? ruta : ruta + u'\\';
}

platform::ListItem Fila(const EntradaArchivo& entrada) {
    const bool carpeta = entrada.clave == kClaveCarpeta;
    return {entrada.nombre,
            entrada.clave,
            entrada.clave,
            {carpeta ? QString() : TextoTamano(entrada.tamano), entrada.tipo,
             TextoFecha(entrada.fechaEscritura), TextoAtributos(entrada.atributos)}};
}

} // namespace

/// The state of reading one folder.
struct clsListFile::Lectura {
    QString directorio;                 ///< with its separator
    QHash<QString, QString> cacheTipos; ///< by key
    int especiales = 0;                 ///< files with an icon of their own
    bool hayCarpetas = false;
};

clsListFile::clsListFile(MarcoExplorador& marco, const platform::FileSystemObject& fso)
    : m_marco(marco), m_fso(fso) {}

clsListFile::~clsListFile() {
    ++*m_turno;
    if (!mvarListView)
        return;
    mvarListView->OnDblClick({});
    mvarListView->Icons(nullptr);
    mvarListView->SmallIcons(nullptr);
}

void clsListFile::SetControls(platform::ListControl& ListView, platform::ImageList& ImageList1,
                              platform::ImageList& ImageList2) {
    mvarListView = &ListView;
    mvarImagenPequena = &ImageList1;
    mvarImagenGrande = &ImageList2;
    for (platform::ImageList* imagenes : {mvarImagenPequena, mvarImagenGrande}) {
        imagenes->BackColor(ListView.BackColor());
        imagenes->MaskColor(ListView.BackColor());
    }
    ListView.ClearColumnHeaders();
    for (const Columna& columna : kColumnas)
        ListView.AddColumnHeader({QString::fromUtf16(columna.titulo),
                                  columna.ancho * platform::kTwipsPerPixel, columna.alineacion});
    ListView.OnDblClick([this] { DblClick(); });
}

void clsListFile::Listar(const QString& path) {
    ListarHastaElFin(path);
}

// False if another listing began, or the object was destroyed, while events were handled.
bool clsListFile::ListarHastaElFin(const QString& path) {
    const std::shared_ptr<unsigned> turno = m_turno;
    const unsigned este = ++*turno;
    mvarPath = path;
    mvarListView->ClearItems();
    if (!leerDirectorio(path))
        return true;
    QCoreApplication::processEvents();
    if (*turno != este)
        return false;
    mvarListView->Icons(mvarImagenGrande);
    mvarListView->SmallIcons(mvarImagenPequena);
    AnadirFilas();
    return true;
}

void clsListFile::AnadirFilas() {
    for (size_t i = 0; i < mvarFiles.size(); ++i) {
        mvarListView->AddItem(Fila(mvarFiles[i]));
        if (i % kFilasPorRefresco == 0)
            mvarListView->Refresh();
    }
}

bool clsListFile::leerDirectorio(const QString& directorio) {
    Lectura lectura{ConSeparador(directorio), {}};
    mvarFiles.clear();
    mvarListView->Icons(nullptr);
    mvarListView->SmallIcons(nullptr);
    mvarImagenPequena->ClearImages();
    mvarImagenGrande->ClearImages();
    const auto archivos = platform::FindFiles(lectura.directorio, kEntradas);
    if (!archivos)
        return false;
    mvarFiles.reserve(archivos->size());
    for (const platform::FoundFile& archivo : *archivos)
        mvarFiles.push_back(LeerEntrada(archivo, lectura));
    if (lectura.hayCarpetas)
        AnadirIconos(platform::ProgramFolder(), kClaveCarpeta.toString());
    ordenarEntradas(mvarFiles);
    return !mvarFiles.empty();
}

EntradaArchivo clsListFile::LeerEntrada(const platform::FoundFile& archivo, Lectura& lectura) {
    EntradaArchivo entrada{kClaveCarpeta.toString(),
                           archivo.name,
                           kTipoCarpeta.toString(),
                           archivo.attributes,
                           static_cast<qint32>(archivo.sizeLow),
                           archivo.lastWriteTime,
                           {}};
    if (archivo.attributes & platform::FILE_ATTRIBUTE_DIRECTORY) {
        lectura.hayCarpetas = true;
        return entrada;
    }
    entrada.clave = ClaveDeArchivo(archivo.name);
    const auto conocido = lectura.cacheTipos.constFind(entrada.clave);
    if (conocido != lectura.cacheTipos.cend()) {
        entrada.tipo = *conocido;
        return entrada;
    }
    const QString ruta = lectura.directorio + archivo.name;
    const auto* propio =
        std::find_if(kTiposPropios.begin(), kTiposPropios.end(),
                     [&](const TipoPropio& tipo) { return entrada.clave == tipo.clave; });
    if (propio != kTiposPropios.end()) {
        entrada.tipo = QString::fromUtf16(propio->tipo);
        entrada.clave += QString::number(lectura.especiales++);
    } else {
        entrada.tipo = platform::FileTypeName(ruta);
        lectura.cacheTipos.insert(entrada.clave, entrada.tipo);
    }
    AnadirIconos(ruta, entrada.clave);
    return entrada;
}

void clsListFile::AnadirIconos(const QString& ruta, const QString& clave) {
    const QIcon icono = platform::FileIcon(ruta); // in both sizes
    mvarImagenPequena->AddImage(clave, icono);
    mvarImagenGrande->AddImage(clave, icono);
}

void clsListFile::subirNivel() {
    QString ruta = mvarPath;
    if (ruta.size() <= kRaiz)
        return;
    if (ruta.endsWith(u'\\'))
        ruta.chop(1);
    ruta.truncate(ruta.lastIndexOf(u'\\') + 1);
    ListarYAvisar(ruta);
}

void clsListFile::ListarYAvisar(const QString& path) {
    if (ListarHastaElFin(path) && changePath)
        changePath(mvarPath);
}

void clsListFile::DblClick() {
    const int indice = mvarListView->SelectedIndex();
    if (indice == 0)
        return;
    const EntradaArchivo entrada = mvarFiles.at(static_cast<size_t>(indice) - 1);
    platform::RunSilently([&] {
        if (EsTipo(entrada.tipo, kTipoCarpeta)) {
            ListarYAvisar(ConSeparador(mvarPath) + entrada.nombre);
            return;
        }
        const QString ruta = m_fso.BuildPath(mvarPath, entrada.nombre);
        if (EsTipo(entrada.tipo, kTipoProyecto))
            m_marco.AbrirProyecto(
                ruta, entrada.nombre.chopped(std::min(kExtension, entrada.nombre.size())));
        else
            platform::ShellExecuteA(ruta);
    });
}

} // namespace explorer
