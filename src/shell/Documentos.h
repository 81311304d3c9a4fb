// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/MarcoDocumentos.h"
#include "documents/frmDocumento.h"
#include "explorer/MarcoExplorador.h"
#include "platform/forms/CommonDialog.h"
#include "platform/forms/MDIFrame.h"
#include "shared/Medidas.h"
#include "shared/ValoresCompartidos.h"

#include <QPointer>
#include <QSize>
#include <QString>
#include <functional>
#include <optional>

namespace shell {

/// The size of a document that comes from the command line or the explorer, in twips.
inline constexpr QSize kTamanoAbierto(shared::kAnchoDocumento, 10350);

/// How a document comes to be, and what sets the ways to it apart.
struct Apertura {
    /// When it counts as open.
    enum class Cuenta { AntesDeHacerlo, AntesDeMostrarlo, AlFinal };
    /// What names it as long as it is open.
    enum class Referencia { Ninguna, FrmDoc, DocumentoExplorador };

    std::optional<QString> ruta{};   ///< of its file; without one it has the skeleton of a script
    std::optional<QString> rotulo{}; ///< else the file's name, or "Nuevo script " and the count
    QSize tamano{};                  ///< twips, from the frame's corner; else as it has loaded
    Cuenta cuenta = Cuenta::AlFinal;
    Referencia referencia = Referencia::Ninguna;
    bool vacioSiFalla = false;  ///< a file that can't be opened gives an empty document
    bool conExplorador = false; ///< which comes in front of it
};

/// The documents of the main window: how they are opened and saved, and which of them a command
/// means.
class Documentos : public explorer::MarcoExplorador {
public:
    using Operacion = std::function<void(documents::frmDocumento& documento)>;

    /// `marco` holds the documents, which ask `principal`; `explorador` shows the explorer.
    Documentos(platform::MDIFrame& marco, documents::MarcoDocumentos& principal,
               shared::ValoresCompartidos& compartido, std::function<void()> explorador);
    Documentos(const Documentos&) = delete;
    Documentos& operator=(const Documentos&) = delete;

    /// The document made last with that reference; none once it is closed.
    QPointer<documents::frmDocumento> FrmDoc;

    /// Makes a document and shows it; none if it was closed while the explorer came. One that can't
    /// be made, or its file not opened, leaves nothing behind, and this fails as Load or OpenFile.
    QPointer<documents::frmDocumento> Abrir(const Apertura& apertura);
    void AbrirProyecto(const QString& ruta, const QString& rotulo) override;

    /// Saves the active one; one without a file gets the name that is picked in the dialog. A
    /// failure is ignored.
    void Guardar(platform::CommonDialog& dialogo);
    /// Saves the active one under the name that is picked. A failure is ignored.
    void GuardarComo(platform::CommonDialog& dialogo);

    /// For what is done to the active one: nothing happens without one; a failure is ignored.
    void ConActivo(const Operacion& operacion);
    /// For what needs no document in front: the one that was active last. A notice says what to do
    /// if none is open.
    void ConUltimo(const Operacion& operacion);

    /// Puts a text into FrmDoc, if there is one, and goes on typing there.
    void Insertar(const QString& texto);
    /// Adds an example, a file of the folder Code, to FrmDoc. A notice says what is missing.
    void AnadirPlantilla(const QString& archivo);

private:
    void Llenar(documents::frmDocumento& documento, const Apertura& apertura);
    void Leer(documents::frmDocumento& documento, const Apertura& apertura);
    void Contar(const Apertura& apertura, Apertura::Cuenta ahora);
    void Referir(documents::frmDocumento& documento, Apertura::Referencia referencia);
    QString Rotulo(const Apertura& apertura) const;
    void Descartar(documents::frmDocumento& documento);
    documents::frmDocumento* Activo() const;
    bool HayVentanas() const;
    void GuardarConNombre(platform::CommonDialog& dialogo);

    platform::MDIFrame& m_marco;
    documents::MarcoDocumentos& m_principal;
    shared::ValoresCompartidos& m_compartido;
    std::function<void()> m_explorador;
};

} // namespace shell
