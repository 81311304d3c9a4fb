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

/// How a document is made or opened.
struct Apertura {
    /// When numero_documentos counts it.
    enum class Cuenta { AntesDeHacerlo, AntesDeMostrarlo, AlFinal };
    /// The pointer that refers to it while it is open.
    enum class Referencia { Ninguna, FrmDoc, DocumentoExplorador };

    std::optional<QString> ruta{};   ///< of its file; nullopt: the skeleton of a script
    std::optional<QString> rotulo{}; ///< nullopt: the file's name, or "Nuevo script " and the count
    QSize tamano{};                  ///< twips, in the frame's corner; empty: as it was loaded
    Cuenta cuenta = Cuenta::AlFinal;
    Referencia referencia = Referencia::Ninguna;
    bool vacioSiFalla = false;  ///< a file that can't be opened gives an empty document
    bool conExplorador = false; ///< shows the explorer in front of it
};

/// The documents of the main window: how they are opened and saved, and which of them a command
/// means.
class Documentos : public explorer::MarcoExplorador {
public:
    using Operacion = std::function<void(documents::frmDocumento& documento)>;

    /// `marco` holds the documents, which get `principal`; `explorador` shows the explorer.
    Documentos(platform::MDIFrame& marco, documents::MarcoDocumentos& principal,
               shared::ValoresCompartidos& compartido, std::function<void()> explorador);
    Documentos(const Documentos&) = delete;
    Documentos& operator=(const Documentos&) = delete;

    /// The document made last with Referencia::FrmDoc; null once it is closed.
    QPointer<documents::frmDocumento> FrmDoc;

    /// Makes a document and shows it; null if it was closed while the explorer was shown. Fails as
    /// Load or OpenFile does; no document is left then.
    documents::frmDocumento* Abrir(const Apertura& apertura);
    /// Shows the line, from 1, of the document with that path, which is opened if it isn't yet.
    void AbrirEn(const QString& ruta, int linea);
    void AbrirProyecto(const QString& ruta, const QString& rotulo) override;

    /// Saves the active document; asks for a name if it has no file. A failure goes to the log.
    void Guardar(platform::CommonDialog& dialogo);
    /// Asks for a name and saves the active document. A failure goes to the log.
    void GuardarComo(platform::CommonDialog& dialogo);

    /// Runs the operation on the active document, if there is one. A failure goes to the log.
    void ConActivo(const Operacion& operacion);
    /// Runs the operation on the document that was active last, even if another window is now in
    /// front. Without an open document a notice says what to do.
    void ConUltimo(const Operacion& operacion);

    /// Inserts a text into FrmDoc, if there is one, and gives it the focus.
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
    documents::frmDocumento* Abierto(const QString& ruta) const;
    bool HayVentanas() const;
    void GuardarConNombre(platform::CommonDialog& dialogo);

    platform::MDIFrame& m_marco;
    documents::MarcoDocumentos& m_principal;
    shared::ValoresCompartidos& m_compartido;
    std::function<void()> m_explorador;
};

} // namespace shell
