// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Documentos.h"

#include "assist/Plantillas.h"
#include "platform/base/Failure.h"
#include "platform/base/Silently.h"
#include "platform/files/ProgramFolder.h"
#include "platform/forms/Dialogs.h"
#include "platform/forms/Form.h"
#include "shared/Temporal.h"
#include "shell/Class1.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace shell {
namespace {

using documents::frmDocumento;
using platform::RunSilently;

void Avisar(const QString& texto) {
    platform::MsgBox(texto, platform::Buttons::Ok, platform::Icon::Information);
}

bool EsDocumento(const platform::Form* ventana) {
    return dynamic_cast<const frmDocumento*>(ventana) != nullptr;
}

void ALaVista(frmDocumento& documento) {
    if (documento.State() == platform::WindowState::Minimised)
        documento.State(platform::WindowState::Normal);
}

} // namespace

Documentos::Documentos(platform::MDIFrame& marco, documents::MarcoDocumentos& principal,
                       shared::ValoresCompartidos& compartido, std::function<void()> explorador)
    : m_marco(marco),
      m_principal(principal),
      m_compartido(compartido),
      m_explorador(std::move(explorador)) {}

frmDocumento* Documentos::Abrir(const Apertura& apertura) {
    const qint16 cuenta = m_compartido.numero_documentos;
    const QString nombre = m_compartido.nombre_script;
    Contar(apertura, Apertura::Cuenta::AntesDeHacerlo);
    const QPointer<frmDocumento> documento = new frmDocumento(m_principal, m_compartido);
    m_marco.Adopt(documento);
    try {
        Llenar(*documento, apertura);
    } catch (...) {
        Descartar(*documento);
        m_compartido.numero_documentos = cuenta;
        m_compartido.nombre_script = nombre;
        throw;
    }
    documento->Show();
    if (!apertura.tamano.isEmpty())
        documento->Move(0, 0, apertura.tamano.width(), apertura.tamano.height());
    Contar(apertura, Apertura::Cuenta::AlFinal);
    if (apertura.conExplorador)
        m_explorador();
    return documento;
}

void Documentos::Llenar(frmDocumento& documento, const Apertura& apertura) {
    documento.Load();
    Referir(documento, apertura.referencia);
    Contar(apertura, Apertura::Cuenta::AntesDeMostrarlo);
    documento.Caption(Rotulo(apertura));
    if (apertura.ruta)
        Leer(documento, apertura);
}

void Documentos::Leer(frmDocumento& documento, const Apertura& apertura) {
    const auto leer = [&] { documento.Abrir(*apertura.ruta); };
    if (!apertura.vacioSiFalla) {
        leer();
    } else if (!RunSilently(leer)) {
        documento.txtFile().Text(QString());
        documento.flagGuardar = false;
    }
}

void Documentos::Contar(const Apertura& apertura, Apertura::Cuenta ahora) {
    if (apertura.cuenta == ahora)
        ++m_compartido.numero_documentos;
}

void Documentos::Referir(frmDocumento& documento, Apertura::Referencia referencia) {
    if (referencia == Apertura::Referencia::DocumentoExplorador)
        m_compartido.documento_explorador = &documento;
    if (referencia != Apertura::Referencia::FrmDoc)
        return;
    FrmDoc = &documento; // before the explorer handles events, in which another can be made
    QObject::connect(&documento, &platform::Form::Unloaded, &m_marco, [this, &documento] {
        if (FrmDoc == &documento)
            FrmDoc.clear();
    });
}

QString Documentos::Rotulo(const Apertura& apertura) const {
    if (apertura.rotulo)
        return *apertura.rotulo;
    if (apertura.ruta)
        return Class1::NombreArchivo(*apertura.ruta);
    return QStringLiteral("Nuevo script %1").arg(m_compartido.numero_documentos);
}

// Also deletes the temp file that it wrote in Form_Load, unless other documents may be using it.
void Documentos::Descartar(frmDocumento& documento) {
    documento.Discard();
    const std::vector<platform::Form*> ventanas = m_marco.Forms();
    if (std::none_of(ventanas.begin(), ventanas.end(), EsDocumento))
        RunSilently([&] { m_compartido.fso->DeleteFile(shared::RutaTemporal(), true); });
}

void Documentos::AbrirProyecto(const QString& ruta, const QString& rotulo) {
    Abrir({.ruta = ruta,
           .rotulo = rotulo,
           .tamano = kTamanoAbierto,
           .referencia = Apertura::Referencia::DocumentoExplorador,
           .vacioSiFalla = true});
}

frmDocumento* Documentos::Abierto(const QString& ruta) const {
    for (platform::Form* ventana : m_marco.FormsByActivity()) {
        auto* documento = dynamic_cast<frmDocumento*>(ventana);
        if (documento && documento->Ruta().compare(ruta, Qt::CaseInsensitive) == 0)
            return documento;
    }
    return nullptr;
}

void Documentos::AbrirEn(const QString& ruta, int linea) {
    frmDocumento* documento = Abierto(ruta);
    if (!documento)
        documento = Abrir({.ruta = ruta});
    ALaVista(*documento);
    documento->Show();
    documento->txtFile().ShowLine(linea);
}

frmDocumento* Documentos::Activo() const {
    return dynamic_cast<frmDocumento*>(m_marco.ActiveForm());
}

void Documentos::ConActivo(const Operacion& operacion) {
    if (frmDocumento* documento = Activo())
        RunSilently([&] { operacion(*documento); });
}

void Documentos::ConUltimo(const Operacion& operacion) {
    const std::vector<platform::Form*> ventanas = m_marco.FormsByActivity();
    const auto ultimo = std::find_if(ventanas.begin(), ventanas.end(), EsDocumento);
    if (ultimo != ventanas.end())
        return operacion(dynamic_cast<frmDocumento&>(**ultimo));
    Avisar(
        QStringLiteral("No hay ningún script abierto. Haz uno con Archivo, Nuevo, o abre uno con "
                       "Archivo, Abrir, y vuelve a intentarlo."));
}

bool Documentos::HayVentanas() const {
    const bool vacio = m_marco.Forms().empty();
    if (vacio)
        Avisar(QStringLiteral("No hay documentos para guardar"));
    return !vacio;
}

void Documentos::Guardar(platform::CommonDialog& dialogo) {
    if (!HayVentanas())
        return;
    ConActivo([&](frmDocumento& documento) {
        if (documento.SinGuardar())
            GuardarConNombre(dialogo);
        else
            documento.Guardar();
    });
}

void Documentos::GuardarComo(platform::CommonDialog& dialogo) {
    if (HayVentanas())
        RunSilently([&] { GuardarConNombre(dialogo); });
}

void Documentos::GuardarConNombre(platform::CommonDialog& dialogo) {
    if (!m_marco.ActiveForm())
        return;
    dialogo.Filter(documents::kFiltroGuardar);
    dialogo.ShowSave();
    frmDocumento* documento = Activo();
    if (dialogo.FileName().isEmpty() || !documento)
        return;
    documento->GuardarEn(dialogo.FileName());
    documento->Caption(dialogo.FileTitle());
}

void Documentos::Insertar(const QString& texto) {
    if (!FrmDoc)
        return;
    RunSilently([&] { FrmDoc->txtFile().SelText(texto); });
    RunSilently([&] {
        ALaVista(*FrmDoc); // to show what is typed
        FrmDoc->txtFile().SetFocus();
    });
}

void Documentos::AnadirPlantilla(const QString& archivo) {
    if (!FrmDoc) {
        Avisar(QStringLiteral("El ejemplo se añade al último script hecho con Nuevo, y no hay "
                              "ninguno. Elige Archivo, Nuevo y vuelve a intentarlo."));
        return;
    }
    QString plantilla;
    try {
        plantilla = assist::LeerPlantilla(platform::InProgramFolder(u"Code\\") + archivo);
    } catch (const platform::Failure& fallo) {
        const bool falta = fallo.Code() == platform::FailureCode::FileNotFound;
        Avisar(fallo.Text() + QStringLiteral("\n\n") +
               (falta ? QString() : QStringLiteral("Borra lo que hay con ese nombre. ")) +
               QStringLiteral("Quillmark repone los ejemplos que faltan cuando arranca: ciérralo y "
                              "vuelve a abrirlo."));
        return;
    }
    documents::CodeMax& editor = FrmDoc->txtFile();
    if (!plantilla.isEmpty())
        editor.Text(editor.Text() + plantilla);
}

} // namespace shell
