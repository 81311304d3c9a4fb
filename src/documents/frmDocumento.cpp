// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/frmDocumento.h"

#include "documents/editor/engine/CodeMaxConstants.h"
#include "platform/base/Failure.h"
#include "platform/base/Log.h"
#include "platform/base/Silently.h"
#include "platform/forms/Dialogs.h"
#include "platform/forms/Handler.h"
#include "shared/Medidas.h"
#include "shared/Temporal.h"
#include "ui_frmDocumento.h"

#include <algorithm>
#include <array>

namespace documents {
namespace {

using platform::Answer;
using platform::Failure;

// The strip above the editor, where the window's own surface shows, in twips.
constexpr int kFranja = 350;
// The window's height less the editor's, in twips.
constexpr int kRestoDeAlto = 850;
constexpr int kMenosQueElMarco = 900;
constexpr int kExtension = 4;

struct ColorDeEditor {
    ColorItem elemento;
    int color; // 0x00BBGGRR, -1: the editor's own
};

constexpr std::array kColores = {
    ColorDeEditor{kBookmarkItem, -1},
    ColorDeEditor{kHorizontalDividerItem, -1},
    ColorDeEditor{kLineNumberTextItem, 0xFFFFFF},
    ColorDeEditor{kLineNumberBackgroundItem, 0x000000},
    ColorDeEditor{kLeftMarginItem, 0x000000},
    ColorDeEditor{kHighlightedLineItem, 0x0000FF},
    ColorDeEditor{kStringItem, 0x800080},
    ColorDeEditor{kVerticalDividerItem, -1},
    ColorDeEditor{kWindowItem, -1},
};

QString Esqueleto() {
    return QStringLiteral("while true do\rscreen:clear()") + QStringLiteral("\r\n").repeated(15) +
           QStringLiteral("screen.waitVblankStart()\r\nscreen.flip()\r\nend");
}

} // namespace

frmDocumento::frmDocumento(MarcoDocumentos& marco, shared::ValoresCompartidos& compartido)
    : CommonDialog1(this),
      m_ui(std::make_unique<Ui::frmDocumento>()),
      m_marco(marco),
      m_compartido(compartido) {
    m_ui->setupUi(this);
    m_txtFile = m_ui->txtFile;
    setFocusProxy(m_txtFile);
    connect(m_txtFile, &CodeMax::Change, this, &frmDocumento::txtFile_Change);
    connect(m_txtFile, &CodeMax::LineWanted, this, [this](const QString& ruta, int linea) {
        platform::RunHandler([&] { m_marco.AbrirEn(ruta, linea); });
    });
}

frmDocumento::~frmDocumento() {
    m_compartido.texto_script.Soltar(this);
}

void frmDocumento::PonerAspecto(CodeMax& editor) {
    for (const Option opcion :
         {kLineNumberOption, kLeftMarginOption, kSyntaxColorOption, kKeepTabsOption})
        editor.SetOption(opcion, true);
    editor.SetOption(kAutoIndentOption, 1);
    editor.FontName(QStringLiteral("Courier New"));
    editor.FontSize(10);
    for (const ColorDeEditor& color : kColores)
        editor.SetColor(color.elemento, color.color);
    editor.SetOption(kBraceMatchOption, true);
}

void frmDocumento::Preparar() {
    CodeMax editor;
    editor.Text(Esqueleto());
    PonerAspecto(editor);
    editor.grab(); // painting loads the fonts
}

void frmDocumento::Form_Load() {
    m_txtFile->Text(Esqueleto());
    platform::RunSilently([this] { m_marco.crear_temporal_click(); });
    m_compartido.nombre_script = Caption();
    Move(0, 0, shared::kAnchoDocumento, m_marco.Alto() - kMenosQueElMarco);
    PonerAspecto(*m_txtFile);
}

void frmDocumento::Form_Resize() {
    QString rotulo = QStringLiteral("Quillmark v2.0.0");
    if (State() == platform::WindowState::Maximised)
        rotulo += QStringLiteral(" - ") + Caption();
    m_marco.Rotulo(rotulo);
    if (State() != platform::WindowState::Minimised)
        m_txtFile->Move(0, kFranja, ScaleWidth(), Height() - kRestoDeAlto);
}

void frmDocumento::Form_MouseMove() {
    m_compartido.nombre_script =
        Caption().chopped(std::min<qsizetype>(kExtension, Caption().size()));
    PublicarTexto();
}

void frmDocumento::txtFile_Change() {
    PublicarTexto();
    flagGuardar = true;
}

void frmDocumento::PublicarTexto() {
    m_compartido.texto_script.Publicar(this, [editor = m_txtFile] { return editor->Text(); });
}

bool frmDocumento::SinGuardar() const {
    return Caption().contains(QStringLiteral("Nuevo script "));
}

void frmDocumento::Abrir(const QString& ruta) {
    m_compartido.texto_script.Soltar(this);
    m_txtFile->OpenFile(ruta);
    m_ruta = ruta;
}

void frmDocumento::GuardarEn(const QString& ruta) {
    m_txtFile->SaveFile(ruta, false);
    m_ruta = ruta;
}

void frmDocumento::Guardar() {
    GuardarEn(m_ruta.isEmpty() ? Caption() : m_ruta);
}

void frmDocumento::GuardarAlCerrar() {
    if (!SinGuardar()) {
        Guardar();
        return;
    }
    CommonDialog1.Filter(kFiltroGuardar);
    CommonDialog1.ShowSave();
    GuardarEn(CommonDialog1.FileName());
}

void frmDocumento::PreguntarPorCambios(bool& cancelar) {
    if (!flagGuardar)
        return;
    const Answer respuesta =
        platform::MsgBox(QStringLiteral("¿Guardar cambios?"), platform::Buttons::YesNoCancel,
                         platform::Icon::Question, Caption());
    cancelar = respuesta == Answer::Cancel;
    if (respuesta == Answer::Yes)
        GuardarAlCerrar();
}

// A save that fails here doesn't stop the closing, so the text is lost.
void frmDocumento::Form_QueryUnload(bool& cancelar) {
    try {
        PreguntarPorCambios(cancelar);
    } catch (const std::exception& excepcion) {
        qCWarning(platform::lcQuillmark) << "not saved while closing:" << excepcion.what();
        const auto* fallo = dynamic_cast<const Failure*>(&excepcion);
        if (!fallo || !fallo->IsFileAccess())
            return;
    }
    m_compartido.documento_explorador = nullptr;
}

void frmDocumento::Form_Unload() {
    const QString temporal = shared::RutaTemporal();
    platform::RunSilently([&] {
        if (fso.FileExists(temporal))
            fso.DeleteFile(temporal, true);
    });
    --m_compartido.numero_documentos;
}

} // namespace documents
