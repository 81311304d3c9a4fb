// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MDIForm1.h"

#include "deploy/GenerarLua.h"
#include "deploy/PruebaLua.h"
#include "deploy/ScriptLua.h"
#include "documents/editor/engine/CodeMaxConstants.h"
#include "platform/base/Process.h"
#include "platform/base/Silently.h"
#include "platform/files/FileSystemObject.h"
#include "platform/files/Paths.h"
#include "platform/files/ProgramFolder.h"
#include "platform/forms/Dialogs.h"
#include "platform/forms/Form.h"
#include "platform/forms/Handler.h"
#include "shared/Temporal.h"
#include "shell/Form3.h"
#include "shell/MenuPrincipal.h"
#include "update/Form7.h"

#include <QMenuBar>
#include <array>
#include <span>
#include <utility>
#include <vector>

namespace shell {
namespace {

using documents::frmDocumento;
using platform::Answer;
using platform::Buttons;
using platform::Icon;
using platform::MsgBox;
using platform::RunSilently;

constexpr int kIntervalo = 500; // milliseconds
constexpr quint8 kRecientes = 6;

const QString kProductoVersion = QStringLiteral("Quillmark v3.0.0");

} // namespace

MDIForm1::MDIForm1(shared::ValoresCompartidos& compartido, QString lineaDeComandos)
    : m_compartido(compartido),
      m_documentos(*this, *this, compartido, [this] { mnuherramientasExplorador_Click(); }),
      m_ventanas(*this, m_documentos, compartido),
      FrmDoc(m_documentos.FrmDoc),
      Timer1(this, &MDIForm1::Timer1_Timer),
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
        platform::RunHandler([this] {
            m_documentos.Abrir(
                {.ruta = m_lineaDeComandos, .tamano = kTamanoAbierto, .conExplorador = true});
        });
    m_recientes = std::make_unique<Class1>();
    m_recientes->Count(kRecientes);
    m_recientes->Init(*mnuReciente, *Entrada(QStringLiteral("mnuSeparador")));
}

bool MDIForm1::ConfirmarSalida() {
    return MsgBox(QStringLiteral("¿Salir del programa?"), Buttons::YesNo, Icon::Question) ==
           Answer::Yes;
}

void MDIForm1::MDIForm_QueryUnload(bool& cancelar) {
    cancelar = !ConfirmarSalida();
}

void MDIForm1::Timer1_Timer() {
    for (const EntradaMenu& entrada : MenuPrincipal()) {
        if (entrada.conDocumento)
            Entrada(QString::fromLatin1(entrada.nombre))
                ->setEnabled(m_compartido.numero_documentos != 0);
    }
}

void MDIForm1::crear_temporal_click() {
    deploy::EscribirScript(shared::RutaTemporal(), m_compartido.texto_temporal);
}

QPointer<frmDocumento> MDIForm1::NuevoScript() {
    return m_documentos.Abrir(
        {.cuenta = Apertura::Cuenta::AntesDeMostrarlo, .conExplorador = true});
}

void MDIForm1::mnuarchivonuevo_Click() {
    m_documentos.Abrir({.cuenta = Apertura::Cuenta::AntesDeMostrarlo,
                        .referencia = Apertura::Referencia::FrmDoc,
                        .conExplorador = true});
}

void MDIForm1::AbrirEn(const QString& ruta, int linea) {
    m_documentos.AbrirEn(ruta, linea);
}

void MDIForm1::mnuarchivoabrir_Click() {
    const QString ruta = m_recientes->CommonDialog_Abrir(this);
    if (ruta.isEmpty())
        return;
    m_recientes->NuevoElemento(ruta);
    m_documentos.Abrir({.ruta = ruta});
}

void MDIForm1::FileDropped(const QString& ruta) {
    m_documentos.Abrir({.ruta = ruta});
}

void MDIForm1::mnuReciente_Click(int Index) {
    const QString ruta = m_recientes->ObtenerPath(Index);
    if (!ruta.isEmpty())
        m_documentos.Abrir({.ruta = ruta, .cuenta = Apertura::Cuenta::AntesDeHacerlo});
}

void MDIForm1::mnuarchivoguardar_Click() {
    m_documentos.Guardar(CommonDialog1);
}

void MDIForm1::mnuarchivocomo_Click() {
    m_documentos.GuardarComo(CommonDialog1);
}

void MDIForm1::mnuarchivoconfig_Click() {
    m_documentos.ConUltimo([](frmDocumento& documento) {
        documento.txtFile().PrintDoc(0, documents::kPageSetupFlags);
    });
}

void MDIForm1::mnuarchivoimprimir_Click() {
    m_documentos.ConUltimo(
        [](frmDocumento& documento) { documento.txtFile().PrintDoc(0, documents::kPrintFlags); });
}

void MDIForm1::mnuarchivosalir_Click() {
    if (!ConfirmarSalida())
        return;
    m_documentos.FrmDoc.clear();
    platform::EndProcess();
}

void MDIForm1::mnuediciondeshacer_Click() {
    m_documentos.ConActivo([](frmDocumento& documento) { documento.txtFile().Undo(); });
}
void MDIForm1::mnuedicionrehacer_Click() {
    m_documentos.ConActivo([](frmDocumento& documento) { documento.txtFile().Redo(); });
}
void MDIForm1::mnuedicioncopiar_Click() {
    m_documentos.ConActivo([](frmDocumento& documento) { documento.txtFile().Copy(); });
}
void MDIForm1::mnuedicioncortar_Click() {
    m_documentos.ConActivo([](frmDocumento& documento) { documento.txtFile().Cut(); });
}
void MDIForm1::mnuedicionpegar_Click() {
    m_documentos.ConActivo([](frmDocumento& documento) { documento.txtFile().Paste(); });
}

void MDIForm1::mnuedicionseleccionar_Click() {
    m_documentos.ConActivo([](frmDocumento& documento) {
        documento.txtFile().ExecuteCmd(documents::kSelectAllCommand);
    });
}

void MDIForm1::mnuherramientasExplorador_Click() {
    m_ventanas.Mostrar(Ventana::Explorador);
}

void MDIForm1::mnucodigoshola_Click() {
    m_documentos.AnadirPlantilla(QStringLiteral("codehm"));
}
void MDIForm1::mnucodigosmenu_Click() {
    m_documentos.AnadirPlantilla(QStringLiteral("codems"));
}
void MDIForm1::mnucodigosanimacion_Click() {
    m_documentos.AnadirPlantilla(QStringLiteral("codea"));
}

void MDIForm1::ejecutar_lua_Click() {
    m_documentos.ConUltimo([this](frmDocumento& documento) {
        m_compartido.texto_temporal = documento.txtFile().Text();
        crear_temporal_click();
        deploy::AbrirScript(ruta_programa + shared::kTemporal.toString(), documento.Ruta(),
                            documento.Caption());
    });
}

void MDIForm1::transfer_Click() {
    m_ventanas.Mostrar(Ventana::transfer_form);
}

void MDIForm1::mnugenerarlua_Click() {
    m_documentos.ConUltimo([this](frmDocumento& documento) {
        deploy::GenerarLua([&](const QString& ruta) { documento.txtFile().SaveCopy(ruta); },
                           CommonDialog1, *m_compartido.fso);
    });
}

void MDIForm1::mnuherramientasventana_Click() {
    m_ventanas.Mostrar(Ventana::Form4);
}
void MDIForm1::mnuherramientascolores_Click() {
    m_ventanas.Mostrar(Ventana::Form1);
}
void MDIForm1::pspscreen_Click() {
    m_ventanas.Mostrar(Ventana::Form5);
}
void MDIForm1::mnuopcionesconfiguracion_Click() {
    m_ventanas.Mostrar(Ventana::Form2);
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
    std::erase_if(visibles, [](platform::Form* ventana) { return ventana->Shell()->isHidden(); });
    // First none stays maximised: minimising that one would maximise the next in its place.
    for (platform::Form* ventana : visibles) {
        if (ventana->State() == platform::WindowState::Maximised)
            ventana->State(platform::WindowState::Normal);
    }
    for (platform::Form* ventana : visibles)
        ventana->State(estado);
}

void MDIForm1::mnuventanaminimizar_Click() {
    TodasAlEstado(platform::WindowState::Minimised);
}
void MDIForm1::mnuventanarestaurar_Click() {
    TodasAlEstado(platform::WindowState::Normal);
}

void MDIForm1::mnuventanacerrar_Click() {
    for (platform::Form* ventana : Forms())
        ventana->Unload(); // stays open if its question is cancelled
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
