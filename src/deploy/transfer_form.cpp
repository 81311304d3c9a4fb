// SPDX-License-Identifier: GPL-3.0-or-later
#include "deploy/transfer_form.h"

#include "deploy/Module2.h"
#include "deploy/ScriptLua.h"
#include "platform/base/Clock.h"
#include "platform/base/Silently.h"
#include "platform/files/CopyFile.h"
#include "platform/files/ProgramFolder.h"
#include "platform/forms/Dialogs.h"
#include "platform/forms/Handler.h"
#include "ui_transfer_form.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopeGuard>

namespace deploy {

using platform::Buttons;
using platform::Icon;
using platform::MsgBox;

transfer_form::transfer_form(shared::ValoresCompartidos& compartido)
    : m_ui(std::make_unique<Ui::transfer_form>()), m_compartido(compartido) {
    m_ui->setupUi(this);
    Caption(windowTitle());
    CancelButton(m_ui->KewlButtons2);
    setFocusProxy(m_ui->Drive1);
    connect(m_ui->Combo1, &QComboBox::currentIndexChanged, this,
            [this] { platform::RunHandler([this] { Combo1_Click(); }); });
    for (QPushButton* boton : {m_ui->KewlButtons1, m_ui->parar})
        connect(boton, &QPushButton::pressed, this,
                [this] { m_dobleClic = platform::Now() < m_finDobleClic; });
    platform::OnEvent(m_ui->KewlButtons1, &QPushButton::clicked, this,
                      &transfer_form::KewlButtons1_Click);
    platform::OnEvent(m_ui->KewlButtons2, &QPushButton::clicked, this,
                      &transfer_form::KewlButtons2_Click);
    platform::OnEvent(m_ui->parar, &QPushButton::clicked, this, &transfer_form::parar_Click);
}

transfer_form::~transfer_form() = default;

void transfer_form::Form_Load() {
    Center();
    m_ui->KewlButtons1->setEnabled(false);
    MostrarCopia(false);
    for (const Firmware& firmware : Firmwares())
        m_ui->Combo1->addItem(QString::fromUtf16(firmware.nombre));
    for (const Eboot& eboot : Eboots())
        m_ui->Combo2->addItem(QString::fromUtf16(eboot.nombre));
    m_ui->Combo1->setCurrentIndex(-1);
    m_ui->Combo2->setCurrentIndex(-1);
}

void transfer_form::Combo1_Click() {
    m_ui->KewlButtons1->setEnabled(m_ui->Combo1->currentIndex() != -1);
}

void transfer_form::KewlButtons1_Click() {
    if (m_dobleClic)
        return;
    const auto firmware = static_cast<size_t>(m_ui->Combo1->currentIndex());
    m_compartido.carpeta_firmware = QString::fromUtf16(Firmwares()[firmware].carpeta);
    const Destino destino{m_ui->Drive1->Drive(), m_compartido.carpeta_firmware,
                          m_compartido.nombre_script};
    const QString texto = m_compartido.texto_script.Leer();
    if (texto.isEmpty()) {
        MsgBox(QStringLiteral("Error en la transmision del Script: ") + destino.nombre, Buttons::Ok,
               Icon::None);
        return;
    }
    if (const auto defecto = DefectoDeDestino(destino)) {
        MsgBox(*defecto, Buttons::Ok, Icon::Information);
        return;
    }
    CrearProyecto(destino, texto);
    m_cancelar = 0;
    MostrarCopia(true);
    const auto ociosa = qScopeGuard([this] { MostrarCopia(false); });
    CopiarTodo(destino);
}

// The project folder is made anew, so nothing of an earlier transfer stays.
void transfer_form::CrearProyecto(const Destino& destino, const QString& texto) {
    if (m_fso.FolderExists(destino.Proyecto()))
        m_fso.DeleteFolder(destino.Proyecto(), true);
    m_fso.CreateFolder(destino.Proyecto());
    EscribirScript(destino.Script(), texto);
}

// "&Detener" takes the place of "&Transferir" during the copy. A double click must not press both,
// so its second press is ignored.
void transfer_form::MostrarCopia(bool copiando) {
    if (m_copiando != copiando)
        m_finDobleClic = platform::Now() + QApplication::doubleClickInterval();
    m_copiando = copiando;
    QPushButton* viene = copiando ? m_ui->parar : m_ui->KewlButtons1;
    QPushButton* seVa = copiando ? m_ui->KewlButtons1 : m_ui->parar;
    // The focus moves only between the buttons, not away from a script.
    const bool conFoco = seVa->hasFocus();
    m_ui->KewlButtons2->setEnabled(!copiando);
    m_ui->aviso->clear();
    viene->show();
    if (conFoco)
        viene->setFocus();
    seVa->hide();
}

void transfer_form::CopiarTodo(const Destino& destino) {
    bool conDriver = false;
    if (const int eleccion = m_ui->Combo2->currentIndex(); eleccion != -1) {
        const deploy::Eboot& eboot = Eboots()[static_cast<size_t>(eleccion)];
        m_compartido.origen_eboot = platform::ProgramFolder() + QString::fromUtf16(eboot.origen);
        conDriver = eboot.conDriver;
    }
    Copiar(m_compartido.origen_eboot, destino.Eboot());
    if (!conDriver)
        return;
    m_fso.CreateFolder(destino.Drivers());
    for (const char16_t* nombre : kDrivers)
        Copiar(platform::InProgramFolder(u"data") + QString::fromUtf16(nombre),
               destino.Drivers() + QString::fromUtf16(nombre));
}

// A failure goes to the log only, and the next file is copied.
void transfer_form::Copiar(const QString& origen, const QString& destino) {
    platform::RunSilently([&] {
        platform::CopyFileExA(
            origen.trimmed(), destino.trimmed(),
            [this](qint64 total, qint64 copiado) {
                Module2::CopyProgress(total, copiado, *m_ui->cProg1);
            },
            m_cancelar);
    });
}

void transfer_form::parar_Click() {
    if (!m_dobleClic)
        m_cancelar = 1;
}

// Ignores key repeats with Alt: they would press the button again as soon as it is back.
bool transfer_form::event(QEvent* evento) {
    const bool atajo = evento->type() == QEvent::ShortcutOverride;
    const auto* tecla = atajo ? static_cast<QKeyEvent*>(evento) : nullptr;
    if (!tecla || !tecla->isAutoRepeat() || !(tecla->modifiers() & Qt::AltModifier))
        return Form::event(evento);
    evento->accept();
    return true;
}

void transfer_form::KewlButtons2_Click() {
    Unload();
}

void transfer_form::Form_QueryUnload(bool& cancelar) {
    if (!m_copiando)
        return;
    cancelar = true;
    // Not a message box, which would hold up the copy.
    m_ui->aviso->setText(
        QStringLiteral("La transferencia está en marcha. Espera a que acabe o pulsa Detener."));
}

} // namespace deploy
