// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MDIForm1.h"

#include "assist/Form1.h"
#include "assist/Form4.h"
#include "assist/Form5.h"
#include "assist/Form6.h"
#include "assist/Plantillas.h"
#include "deploy/GenerarLua.h"
#include "deploy/PruebaLua.h"
#include "deploy/transfer_form.h"
#include "documents/editor/CodeMaxConstants.h"
#include "explorer/Explorador.h"
#include "platform/base/Failure.h"
#include "platform/base/Silently.h"
#include "platform/desktop/ShellExecute.h"
#include "platform/files/Program.h"
#include "platform/forms/Dialogs.h"
#include "platform/forms/Handler.h"
#include "print/Imprimir.h"
#include "shared/Medidas.h"
#include "shared/Temporal.h"
#include "shell/Form2.h"
#include "shell/Form3.h"
#include "shell/MenuPrincipal.h"
#include "update/Form7.h"

#include <QMenuBar>
#include <algorithm>
#include <array>
#include <utility>

namespace shell {
namespace {

using documents::CodeMax;
using documents::frmDocumento;
using platform::Answer;
using platform::Buttons;
using platform::Icon;
using platform::MsgBox;
using platform::RunSilently;

constexpr int kIntervalo = 500; // milliseconds
constexpr quint8 kRecientes = 6;
// The height of a document opened from the command line or the explorer, in twips.
constexpr int kAltoAbierto = 10350;

const QString kProductoVersion = QStringLiteral("Quillmark v3.0.0");

void Avisar(const QString& texto) {
    MsgBox(texto, Buttons::Ok, Icon::Information);
}

} // namespace

MDIForm1::MDIForm1(shared::ValoresCompartidos& compartido, QString lineaDeComandos)
    : Timer1(this, &MDIForm1::Timer1_Timer),
      m_compartido(compartido),
      m_lineaDeComandos(std::move(lineaDeComandos)),
      CommonDialog1(this) {
    Caption(kProductoVersion);
    HacerMenu();
    Prepare();
    frmDocumento::Preparar();
}

MDIForm1::~MDIForm1() {
    DeleteChildren();
}

void MDIForm1::HacerMenu() {
    std::array<QMenu*, 3> menus{};
    const std::span<const EntradaMenu> tabla = MenuPrincipal();
    for (size_t i = 0; i < tabla.size(); ++i) {
        const EntradaMenu& entrada = tabla[i];
        const auto nivel = static_cast<size_t>(entrada.nivel);
        const QString texto = QString::fromUtf16(entrada.texto);
        const bool conHijos = i + 1 < tabla.size() && tabla[i + 1].nivel > entrada.nivel;
        QAction* accion = nullptr;
        if (conHijos) {
            QMenu* menu =
                nivel == 0 ? menuBar()->addMenu(texto) : menus.at(nivel - 1)->addMenu(texto);
            menus.at(nivel) = menu;
            accion = menu->menuAction();
        } else {
            accion = texto == u"-" ? menus.at(nivel - 1)->addSeparator()
                                   : menus.at(nivel - 1)->addAction(texto);
        }
        accion->setObjectName(QString::fromLatin1(entrada.nombre));
        accion->setShortcut(QKeySequence(QString::fromLatin1(entrada.tecla)));
        accion->setVisible(entrada.visible);
        accion->setAutoRepeat(entrada.seRepite);
        if (entrada.accion)
            platform::OnEvent(accion, &QAction::triggered, this, entrada.accion);
        m_entradas.insert(accion->objectName(), accion);
    }
    QAction* reciente = Entrada(QStringLiteral("mnuReciente"));
    mnuReciente =
        std::make_unique<platform::MenuArray>(Entrada(QStringLiteral("Pr"))->menu(), reciente,
                                              [this](int indice) { mnuReciente_Click(indice); });
}

void MDIForm1::MDIForm_Initialize() {
    m_compartido.fso = std::make_unique<platform::FileSystemObject>();
}

void MDIForm1::MDIForm_Load() {
    Timer1.Interval(kIntervalo);
    Timer1.Enabled(true);
    Timer1_Timer();
    const QString carpeta = platform::ProgramFolder();
    RunSilently([&] { platform::ChangeDirectory(carpeta); });
    ruta_programa = carpeta.size() > 3 ? carpeta + u'\\' : carpeta;
    if (!m_lineaDeComandos.isEmpty())
        platform::RunHandler([this] { AbrirLineaDeComandos(); });
    m_recientes = std::make_unique<Class1>();
    m_recientes->Count(kRecientes);
    m_recientes->Init(*mnuReciente, *Entrada(QStringLiteral("mnuSeparador")));
}

void MDIForm1::AbrirLineaDeComandos() {
    frmDocumento* documento = DocumentoDeArchivo(m_lineaDeComandos);
    documento->Show();
    documento->Move(0, 0, shared::kAnchoDocumento, kAltoAbierto);
    ++m_compartido.numero_documentos;
    mnuherramientasExplorador_Click();
}

bool MDIForm1::ConfirmarSalida() {
    return MsgBox(QStringLiteral("¿Salir del programa?"), Buttons::YesNo, Icon::Question) ==
           Answer::Yes;
}

void MDIForm1::MDIForm_QueryUnload(bool& cancel) {
    cancel = !ConfirmarSalida();
}

void MDIForm1::Timer1_Timer() {
    for (const EntradaMenu& entrada : MenuPrincipal()) {
        if (entrada.conDocumento)
            Entrada(QString::fromLatin1(entrada.nombre))
                ->setEnabled(m_compartido.numero_documentos != 0);
    }
}

frmDocumento* MDIForm1::DocumentoActivo() const {
    return dynamic_cast<frmDocumento*>(ActiveForm());
}

void MDIForm1::ConUltimoDocumento(const std::function<void(frmDocumento&)>& operacion) {
    for (platform::Form* form : FormsByActivity()) {
        if (auto* documento = dynamic_cast<frmDocumento*>(form))
            return operacion(*documento);
    }
    Avisar(
        QStringLiteral("No hay ningún script abierto. Haz uno con Archivo, Nuevo, o abre uno con "
                       "Archivo, Abrir, y vuelve a intentarlo."));
}

void MDIForm1::ConDocumento(const std::function<void(CodeMax&)>& operacion) {
    if (frmDocumento* documento = DocumentoActivo())
        RunSilently([&] { operacion(documento->txtFile()); });
}

frmDocumento* MDIForm1::CrearDocumento() {
    auto* documento = new frmDocumento(*this, m_compartido);
    Adopt(documento);
    try {
        documento->Load();
    } catch (...) {
        Descartar(*documento);
        throw;
    }
    return documento;
}

// It has written the temp file while it loaded. A run of another document may use that one.
void MDIForm1::Descartar(frmDocumento& documento) {
    documento.Discard();
    const std::vector<platform::Form*> ventanas = Forms();
    const bool hayOtro = std::any_of(ventanas.begin(), ventanas.end(), [](platform::Form* form) {
        return dynamic_cast<frmDocumento*>(form) != nullptr;
    });
    if (!hayOtro)
        RunSilently([&] { m_compartido.fso->DeleteFile(shared::RutaTemporal(), true); });
}

// A file that can't be opened leaves nothing behind.
frmDocumento* MDIForm1::DocumentoDeArchivo(const QString& ruta) {
    const QString nombre = m_compartido.nombre_script;
    frmDocumento* documento = CrearDocumento();
    try {
        documento->Abrir(ruta);
    } catch (...) {
        Descartar(*documento);
        m_compartido.nombre_script = nombre;
        throw;
    }
    documento->Caption(Class1::NombreArchivo(ruta));
    return documento;
}

void MDIForm1::crear_temporal_click() {
    deploy::EscribirTemporal(m_compartido.texto_temporal);
}

frmDocumento* MDIForm1::NuevoScript() {
    const QPointer<frmDocumento> documento = CrearDocumento();
    NumerarYMostrar(*documento);
    return documento;
}

void MDIForm1::NumerarYMostrar(frmDocumento& documento) {
    ++m_compartido.numero_documentos;
    documento.Caption(QStringLiteral("Nuevo script %1").arg(m_compartido.numero_documentos));
    documento.Show();
    mnuherramientasExplorador_Click();
}

void MDIForm1::mnuarchivonuevo_Click() {
    frmDocumento* documento = CrearDocumento();
    FrmDoc = documento; // another can be made while the explorer still reads its folder
    connect(documento, &platform::Form::Unloaded, this, [this, documento] {
        if (FrmDoc == documento)
            FrmDoc.clear();
    });
    NumerarYMostrar(*documento);
}

void MDIForm1::mnuarchivoabrir_Click() {
    const QString ruta = m_recientes->CommonDialog_Abrir(this);
    if (ruta.isEmpty())
        return;
    m_recientes->NuevoElemento(ruta);
    AbrirRuta(ruta);
}

void MDIForm1::FileDropped(const QString& path) {
    AbrirRuta(path);
}

void MDIForm1::AbrirRuta(const QString& ruta) {
    frmDocumento* documento = DocumentoDeArchivo(ruta);
    documento->Show();
    ++m_compartido.numero_documentos;
}

void MDIForm1::mnuReciente_Click(int Index) {
    const QString ruta = m_recientes->ObtenerPath(Index);
    if (ruta.isEmpty())
        return;
    ++m_compartido.numero_documentos;
    try {
        DocumentoDeArchivo(ruta)->Show();
    } catch (...) {
        --m_compartido.numero_documentos;
        throw;
    }
}

bool MDIForm1::HayVentanas() {
    if (Forms().empty())
        Avisar(QStringLiteral("No hay documentos para guardar"));
    return !Forms().empty();
}

void MDIForm1::mnuarchivoguardar_Click() {
    if (!HayVentanas())
        return;
    RunSilently([this] {
        frmDocumento* documento = DocumentoActivo();
        if (documento && documento->SinGuardar())
            GuardarConNombre();
        else if (documento)
            documento->Guardar();
    });
}

void MDIForm1::mnuarchivocomo_Click() {
    if (HayVentanas())
        RunSilently([this] { GuardarConNombre(); });
}

void MDIForm1::GuardarConNombre() {
    if (!ActiveForm())
        return;
    CommonDialog1.Filter(documents::kFiltroGuardar);
    CommonDialog1.ShowSave();
    frmDocumento* documento = DocumentoActivo();
    if (CommonDialog1.FileName().isEmpty() || !documento)
        return;
    documento->GuardarEn(CommonDialog1.FileName());
    documento->Caption(CommonDialog1.FileTitle());
}

void MDIForm1::mnuarchivoconfig_Click() {
    ConUltimoDocumento([](frmDocumento& documento) {
        documento.txtFile().PrintDoc(0, documents::kPageSetupFlags);
    });
}

void MDIForm1::mnuarchivoimprimir_Click() {
    ConUltimoDocumento(
        [](frmDocumento& documento) { documento.txtFile().PrintDoc(0, documents::kPrintFlags); });
}

void MDIForm1::mnuarchivosalir_Click() {
    if (!ConfirmarSalida())
        return;
    FrmDoc = nullptr;
    platform::EndProcess();
}

void MDIForm1::mnuediciondeshacer_Click() {
    ConDocumento(&CodeMax::Undo);
}
void MDIForm1::mnuedicionrehacer_Click() {
    ConDocumento(&CodeMax::Redo);
}
void MDIForm1::mnuedicioncopiar_Click() {
    ConDocumento(&CodeMax::Copy);
}
void MDIForm1::mnuedicioncortar_Click() {
    ConDocumento(&CodeMax::Cut);
}
void MDIForm1::mnuedicionpegar_Click() {
    ConDocumento(&CodeMax::Paste);
}

void MDIForm1::mnuedicionseleccionar_Click() {
    ConDocumento([](CodeMax& editor) { editor.ExecuteCmd(documents::kSelectAllCommand); });
}

void MDIForm1::AbrirProyecto(const QString& ruta, const QString& rotulo) {
    frmDocumento* documento = CrearDocumento();
    m_compartido.documento_explorador = documento;
    documento->Caption(rotulo);
    if (!RunSilently([&] { documento->Abrir(ruta); })) {
        documento->txtFile().Text(QString());
        documento->flagGuardar = false;
    }
    documento->Show();
    documento->Move(0, 0, shared::kAnchoDocumento, kAltoAbierto);
    ++m_compartido.numero_documentos;
}

void MDIForm1::mnuherramientasExplorador_Click() {
    explorer::MarcoExplorador& marco = *this;
    Mostrar<explorer::Explorador>(m_explorador, marco, *m_compartido.fso);
}

void MDIForm1::AnadirPlantilla(const QString& archivo) {
    if (!FrmDoc) {
        Avisar(QStringLiteral("El ejemplo se añade al último script hecho con Nuevo, y no hay "
                              "ninguno. Elige Archivo, Nuevo y vuelve a intentarlo."));
        return;
    }
    QString plantilla;
    try {
        plantilla =
            assist::LeerPlantilla(platform::ProgramFolder() + QStringLiteral("\\Code\\") + archivo);
    } catch (const platform::Failure& failure) {
        const bool falta = failure.Code() == platform::FailureCode::FileNotFound;
        Avisar(failure.Text() + QStringLiteral("\n\n") +
               (falta ? QString() : QStringLiteral("Borra lo que hay con ese nombre. ")) +
               QStringLiteral("Quillmark repone los ejemplos que faltan cuando arranca: ciérralo y "
                              "vuelve a abrirlo."));
        return;
    }
    documents::CodeMax& editor = FrmDoc->txtFile();
    if (!plantilla.isEmpty())
        editor.Text(editor.Text() + plantilla);
}

void MDIForm1::InsertarCodigo(const QString& codigo) {
    if (!FrmDoc)
        return;
    RunSilently([&] { FrmDoc->txtFile().SelText(codigo); });
    RunSilently([&] {
        if (FrmDoc->State() == platform::WindowState::Minimised)
            FrmDoc->State(platform::WindowState::Normal); // one sees what one types
        FrmDoc->txtFile().SetFocus();
    });
}

void MDIForm1::mnucodigoshola_Click() {
    AnadirPlantilla(QStringLiteral("codehm"));
}
void MDIForm1::mnucodigosmenu_Click() {
    AnadirPlantilla(QStringLiteral("codems"));
}
void MDIForm1::mnucodigosanimacion_Click() {
    AnadirPlantilla(QStringLiteral("codea"));
}

void MDIForm1::ejecutar_lua_Click() {
    ConUltimoDocumento([this](frmDocumento& documento) {
        m_compartido.texto_temporal = documento.txtFile().Text();
        crear_temporal_click();
        platform::ShellExecuteA(
            ruta_programa + QStringLiteral("temp.lua"),
            deploy::EntornoDePrueba(documento.Ruta(), documento.Caption(), *m_compartido.fso));
    });
}

void MDIForm1::transfer_Click() {
    Mostrar<deploy::transfer_form>(m_transferForm, m_compartido);
}

void MDIForm1::mnugenerarlua_Click() {
    ConUltimoDocumento([this](frmDocumento& documento) {
        deploy::GenerarLua([&](const QString& ruta) { documento.txtFile().SaveCopy(ruta); },
                           CommonDialog1, *m_compartido.fso);
    });
}

template<class Ventana, class... Argumentos>
Ventana& MDIForm1::Unica(QPointer<platform::Form>& ventana, Argumentos&... argumentos) {
    if (!ventana) {
        ventana = new Ventana(argumentos...);
        Adopt(ventana);
        connect(ventana, &platform::Form::Unloaded, this, [&ventana] { ventana.clear(); });
    }
    return static_cast<Ventana&>(*ventana);
}

template<class Ventana, class... Argumentos>
void MDIForm1::Mostrar(QPointer<platform::Form>& ventana, Argumentos&... argumentos) {
    Unica<Ventana>(ventana, argumentos...).Show();
}

void MDIForm1::mnuherramientasventana_Click() {
    const assist::Form4::Insertar insertar = [this](const QString& codigo) {
        InsertarCodigo(codigo);
    };
    Mostrar<assist::Form4>(m_form4, insertar);
}
void MDIForm1::mnuherramientascolores_Click() {
    Mostrar<assist::Form1>(m_form1);
}

assist::Form5& MDIForm1::Form5Cargado() {
    assist::MarcoCoordenadas& coordenadas = *this;
    auto& form5 = Unica<assist::Form5>(m_form5, coordenadas);
    form5.Load();
    return form5;
}

void MDIForm1::MostrarForm6() {
    assist::MarcoCoordenadas& coordenadas = *this;
    Mostrar<assist::Form6>(m_form6, coordenadas);
}

void MDIForm1::pspscreen_Click() {
    Form5Cargado().Show();
}

void MDIForm1::MostrarImprimir(const QString& archivo) {
    auto& ventana = Unica<print::Imprimir>(m_imprimir);
    ventana.Show();
    if (!archivo.isEmpty())
        ventana.Abrir(archivo);
}

void MDIForm1::mnuopcionesconfiguracion_Click() {
    Mostrar<Form2>(m_form2);
}

void MDIForm1::mnuventanacascada_Click() {
    Arrange(platform::Arrangement::Cascade);
}
void MDIForm1::mnuventanamosaicov_Click() {
    Arrange(platform::Arrangement::TileVertical);
}
void MDIForm1::mnuventanamosaicoh_Click() {
    Arrange(platform::Arrangement::TileHorizontal);
}
void MDIForm1::mnuventanaorganizar_Click() {
    Arrange(platform::Arrangement::Icons);
}

void MDIForm1::TodasAlEstado(platform::WindowState estado) {
    std::vector<platform::Form*> visibles = Forms();
    std::erase_if(visibles, [](platform::Form* form) { return form->Shell()->isHidden(); });
    // The place of a maximised one that goes is taken by the next.
    for (platform::Form* form : visibles) {
        if (form->State() == platform::WindowState::Maximised)
            form->State(platform::WindowState::Normal);
    }
    for (platform::Form* form : visibles)
        form->State(estado);
}

void MDIForm1::mnuventanaminimizar_Click() {
    TodasAlEstado(platform::WindowState::Minimised);
}
void MDIForm1::mnuventanarestaurar_Click() {
    TodasAlEstado(platform::WindowState::Normal);
}

void MDIForm1::mnuventanacerrar_Click() {
    for (platform::Form* form : Forms())
        form->Unload(); // a cancel keeps that one
}

void MDIForm1::actualizacion_online_Click() {
    MsgBox(QStringLiteral("Actualizacion OnLine aun no disponible"), Buttons::Ok, Icon::Information,
           kProductoVersion);
    platform::CurrentDialogs().RunModal(*new update::Form7(this, m_compartido));
}

void MDIForm1::mnuayudaacerca_Click() {
    platform::CurrentDialogs().RunModal(*new Form3(this));
}

} // namespace shell
