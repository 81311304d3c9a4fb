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

/// The window of one script. Its caption is the document's name; Ruta is the path it is saved to.
class frmDocumento : public platform::Form {
    Q_OBJECT

public:
    frmDocumento(MarcoDocumentos& marco, shared::ValoresCompartidos& compartido);
    ~frmDocumento() override;

    /// Loads the fonts and QsciScintilla, so that the first document opens faster.
    static void Preparar();

    /// Set by the first change of the text, and never cleared again.
    bool flagGuardar = false;
    platform::FileSystemObject fso;
    platform::CommonDialog CommonDialog1;

    CodeMax& txtFile() { return *m_txtFile; }

    /// True while the caption is still that of a script without a file.
    bool SinGuardar() const;
    /// The program path of its file; empty before the first saving.
    const QString& Ruta() const { return m_ruta; }
    /// Loads the file into the editor; fails as OpenFile does. The caller sets the caption.
    void Abrir(const QString& ruta);
    /// Writes the text to the path, which becomes Ruta; fails as SaveFile does.
    void GuardarEn(const QString& ruta);
    /// Writes the text to Ruta; fails as SaveFile does.
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
