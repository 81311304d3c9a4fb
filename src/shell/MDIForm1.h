// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/MarcoDocumentos.h"
#include "documents/frmDocumento.h"
#include "platform/forms/CommonDialog.h"
#include "platform/forms/Form.h"
#include "platform/forms/MDIFrame.h"
#include "platform/forms/MenuArray.h"
#include "platform/forms/Timer.h"
#include "shared/ValoresCompartidos.h"
#include "shell/Class1.h"
#include "shell/Documentos.h"
#include "shell/Ventanas.h"

#include <QHash>
#include <QPointer>
#include <QString>
#include <memory>

namespace shell {

/// The frame of the program: it holds the documents and the tool windows, and every command enters
/// through its menu.
class MDIForm1 : public platform::MDIFrame, public documents::MarcoDocumentos {
    Q_OBJECT

    shared::ValoresCompartidos& m_compartido;
    Documentos m_documentos; // before FrmDoc, which is one of its members
    Ventanas m_ventanas;

public:
    /// `lineaDeComandos` is the path of a file to open at the start, or empty.
    MDIForm1(shared::ValoresCompartidos& compartido, QString lineaDeComandos);
    ~MDIForm1() override;

    /// The document made last by mnuarchivonuevo; null once it is closed.
    const QPointer<documents::frmDocumento>& FrmDoc;
    platform::Timer Timer1;

    /// Shows a blank document with the next number, then the explorer; null if the document was
    /// closed meanwhile.
    QPointer<documents::frmDocumento> NuevoScript();
    /// Shows the print window, with the file loaded unless the path is empty.
    void MostrarImprimir(const QString& archivo) { m_ventanas.MostrarImprimir(archivo); }
    /// The menu entry of that name, null if there is none.
    QAction* Entrada(const QString& nombre) const { return m_entradas.value(nombre); }

    void crear_temporal_click() override;
    void Rotulo(const QString& texto) override { Caption(texto); }
    void AbrirEn(const QString& ruta, int linea) override;
    int Alto() const override { return Height(); }

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
    void MDIForm_QueryUnload(bool& cancelar) override;
    void FileDropped(const QString& ruta) override;

private:
    void HacerMenu();
    bool ConfirmarSalida();
    void TodasAlEstado(platform::WindowState estado);

    QString m_lineaDeComandos;
    QString ruta_programa;
    QHash<QString, QAction*> m_entradas;
    std::unique_ptr<platform::MenuArray> mnuReciente;
    std::unique_ptr<Class1> m_recientes;
    platform::CommonDialog CommonDialog1;
};

} // namespace shell
