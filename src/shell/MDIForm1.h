// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "assist/MarcoCoordenadas.h"
#include "documents/MarcoDocumentos.h"
#include "documents/frmDocumento.h"
#include "explorer/MarcoExplorador.h"
#include "platform/forms/CommonDialog.h"
#include "platform/forms/MDIFrame.h"
#include "platform/forms/MenuArray.h"
#include "platform/forms/Timer.h"
#include "shared/ValoresCompartidos.h"
#include "shell/Class1.h"

#include <QHash>
#include <QPointer>
#include <functional>
#include <memory>

namespace shell {

/// The frame of the program: documents and tool windows are its children, and every command enters
/// through its menu.
class MDIForm1 : public platform::MDIFrame,
                 public documents::MarcoDocumentos,
                 public assist::MarcoCoordenadas,
                 public explorer::MarcoExplorador {
    Q_OBJECT

public:
    /// `lineaDeComandos` is the path of a file to open at the start, or empty.
    MDIForm1(shared::ValoresCompartidos& compartido, QString lineaDeComandos);
    ~MDIForm1() override;

    /// The document made last by mnuarchivonuevo; none once that is closed.
    QPointer<documents::frmDocumento> FrmDoc;
    platform::Timer Timer1;

    /// A blank document with the next number, on show. The explorer follows; none if the document
    /// was closed meanwhile.
    documents::frmDocumento* NuevoScript();
    /// The menu entry of that name, null if there is none.
    QAction* Entrada(const QString& nombre) const { return m_entradas.value(nombre); }

    void crear_temporal_click() override;
    void Rotulo(const QString& texto) override { Caption(texto); }
    int Alto() const override { return Height(); }
    assist::Form5& Form5Cargado() override;
    void MostrarForm6() override;
    /// The print window, with a file in it unless the path is empty.
    void MostrarImprimir(const QString& archivo);
    void AbrirProyecto(const QString& ruta, const QString& rotulo) override;

    void mnuarchivonuevo_Click();
    void mnuarchivoabrir_Click();
    void mnuarchivoguardar_Click();
    void mnuarchivocomo_Click();
    void mnuarchivoconfig_Click();
    void mnuarchivoimprimir_Click();
    void mnuReciente_Click(int Index);
    void mnuarchivosalir_Click();
    void mnuediciondeshacer_Click();
    void mnuedicionrehacer_Click();
    void mnuedicioncopiar_Click();
    void mnuedicioncortar_Click();
    void mnuedicionpegar_Click();
    void mnuedicionseleccionar_Click();
    void mnuherramientasventana_Click();
    void mnuherramientascolores_Click();
    void pspscreen_Click();
    void mnuherramientasExplorador_Click();
    void mnucodigoshola_Click();
    void mnucodigosmenu_Click();
    void mnucodigosanimacion_Click();
    void ejecutar_lua_Click();
    void mnugenerarlua_Click();
    void transfer_Click();
    void mnuopcionesconfiguracion_Click();
    void mnuventanacascada_Click();
    void mnuventanamosaicov_Click();
    void mnuventanamosaicoh_Click();
    void mnuventanaorganizar_Click();
    void mnuventanaminimizar_Click();
    void mnuventanarestaurar_Click();
    void mnuventanacerrar_Click();
    void actualizacion_online_Click();
    void mnuayudaacerca_Click();
    void Timer1_Timer();

protected:
    void MDIForm_Initialize() override;
    void MDIForm_Load() override;
    void MDIForm_QueryUnload(bool& cancel) override;
    void FileDropped(const QString& path) override;

private:
    void HacerMenu();
    bool ConfirmarSalida();
    /// Null while a tool window or nothing is active.
    documents::frmDocumento* DocumentoActivo() const;
    /// For what needs no document in front: the one that was active last. A notice says what to do
    /// if none is open.
    void ConUltimoDocumento(const std::function<void(documents::frmDocumento&)>& operacion);
    /// Nothing happens without an active one; a failure is ignored.
    void ConDocumento(const std::function<void(documents::CodeMax&)>& operacion);
    documents::frmDocumento* CrearDocumento();
    void Descartar(documents::frmDocumento& documento);
    void NumerarYMostrar(documents::frmDocumento& documento);
    documents::frmDocumento* DocumentoDeArchivo(const QString& ruta);
    void AbrirLineaDeComandos();
    void AbrirRuta(const QString& ruta);
    bool HayVentanas();
    void GuardarConNombre();
    void InsertarCodigo(const QString& codigo);
    void AnadirPlantilla(const QString& archivo);
    /// A window of which there is only one, made at its first use.
    template<class Ventana, class... Argumentos>
    Ventana& Unica(QPointer<platform::Form>& ventana, Argumentos&... argumentos);
    template<class Ventana, class... Argumentos>
    void Mostrar(QPointer<platform::Form>& ventana, Argumentos&... argumentos);
    void TodasAlEstado(platform::WindowState estado);

    shared::ValoresCompartidos& m_compartido;
    QString m_lineaDeComandos;
    QString ruta_programa;
    QHash<QString, QAction*> m_entradas;
    std::unique_ptr<platform::MenuArray> mnuReciente;
    std::unique_ptr<Class1> m_recientes;
    platform::CommonDialog CommonDialog1;
    QPointer<platform::Form> m_form1;
    QPointer<platform::Form> m_form2;
    QPointer<platform::Form> m_form4;
    QPointer<platform::Form> m_form5;
    QPointer<platform::Form> m_form6;
    QPointer<platform::Form> m_transferForm;
    QPointer<platform::Form> m_explorador;
    QPointer<platform::Form> m_imprimir;
};

} // namespace shell
