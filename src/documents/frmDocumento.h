// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/MarcoDocumentos.h"
#include "documents/editor/CodeMax.h"
#include "platform/files/FileSystemObject.h"
#include "platform/forms/CommonDialog.h"
#include "platform/forms/Form.h"
#include "shared/ValoresCompartidos.h"

#include <QString>
#include <memory>

namespace Ui {
class frmDocumento;
}

namespace documents {

/// The window of one script. Its caption is the document's name; the full path of its file is kept
/// beside it, for the saving.
class frmDocumento : public platform::Form {
    Q_OBJECT

public:
    frmDocumento(MarcoDocumentos& marco, shared::ValoresCompartidos& compartido);
    ~frmDocumento() override;

    /// Loads the fonts and the engine that the first document needs, while there is time for it.
    static void Preparar();

    /// Set by the first change of the text, and never cleared again.
    bool flagGuardar = false;
    platform::FileSystemObject fso;
    platform::CommonDialog CommonDialog1;

    CodeMax& txtFile() { return *m_txtFile; }

    /// True while the caption still is that of a script without a file.
    bool SinGuardar() const;
    /// The program path of its file; empty before the first saving.
    const QString& Ruta() const { return m_ruta; }
    /// Loads the file into the editor; fails as OpenFile does. The caption is the caller's.
    void Abrir(const QString& ruta);
    /// Writes the text to the path, which becomes the document's; fails as SaveFile does.
    void GuardarEn(const QString& ruta);
    /// Writes the text to the document's own file.
    void Guardar();

protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_MouseMove() override;
    void Form_QueryUnload(bool& cancelar) override;
    void Form_Unload() override;

private:
    void txtFile_Change();
    void PublicarTexto();
    static void PonerAspecto(CodeMax& editor);
    void PreguntarPorCambios(bool& cancelar);
    void GuardarAlCerrar();

    std::unique_ptr<Ui::frmDocumento> m_ui;
    MarcoDocumentos& m_marco;
    shared::ValoresCompartidos& m_compartido;
    CodeMax* m_txtFile;
    QString m_ruta;
};

/// The save dialog's filter for scripts of this program.
inline constexpr QLatin1StringView kFiltroGuardar("Archivos .qmk|*.qmk");

} // namespace documents
