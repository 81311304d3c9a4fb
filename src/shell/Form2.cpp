// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Form2.h"

#include "platform/files/ProgramFolder.h"
#include "platform/forms/Handler.h"
#include "shared/Module1.h"
#include "shell/CAssociate.h"
#include "ui_Form2.h"

namespace shell {

using Module1::kExplorador;
using Module1::kGeneral;
using Module1::kNo;
using Module1::kNuevo;
using Module1::kPath;
using Module1::kSi;

Form2::Form2() : m_ui(std::make_unique<Ui::Form2>()) {
    m_ui->setupUi(this);
    setMinimumSize(minimumSizeHint());
    Caption(windowTitle());
    DefaultButton(m_ui->Command2);
    CancelButton(m_ui->KewlButtons3);
    setFocusProxy(m_ui->Check1);
    platform::OnEvent(m_ui->Command1, &QPushButton::clicked, this, &Form2::Command1_Click);
    platform::OnEvent(m_ui->Command2, &QPushButton::clicked, this, &Form2::Command2_Click);
    platform::OnEvent(m_ui->KewlButtons3, &QPushButton::clicked, this, &Form2::KewlButtons3_Click);
    platform::OnEvent(m_ui->KewlButtons4, &QPushButton::clicked, this, &Form2::KewlButtons4_Click);
}

Form2::~Form2() = default;

void Form2::Form_Load() {
    ArchivoConfig = Module1::RutaConfig();
    const QString nuevo = Module1::LeerIni(ArchivoConfig, kGeneral, kNuevo, QString());
    const QString path = Module1::LeerIni(ArchivoConfig, kExplorador, kPath, QString());
    if (nuevo == kNo)
        m_ui->Check1->setChecked(false);
    else if (nuevo == kSi)
        m_ui->Check1->setChecked(true);
    m_ui->Text1->setText(path);
}

void Form2::Command1_Click() {
    Module1::Asociar(QStringLiteral("Quillmark"), platform::InProgramFolder(u"Quillmark.exe"),
                     QStringLiteral(".qmk"), platform::InProgramFolder(u"quillmarkaplication.ico"));
}

void Form2::Command2_Click() {
    ArchivoConfig = Module1::RutaConfig();
    if (m_ui->Check1->checkState() == Qt::Unchecked)
        Module1::EscribirIni(ArchivoConfig, kGeneral, kNuevo, kNo);
    else if (m_ui->Check1->checkState() == Qt::Checked)
        Module1::EscribirIni(ArchivoConfig, kGeneral, kNuevo, kSi);
    Module1::EscribirIni(ArchivoConfig, kExplorador, kPath, m_ui->Text1->text());
    Unload();
}

void Form2::KewlButtons3_Click() {
    Unload();
}

void Form2::KewlButtons4_Click() {
    CAssociate asociacion;
    asociacion.Title = QStringLiteral("Script LUA para PSP");
    asociacion.Class = QStringLiteral("Script .LUA");
    asociacion.Extension = QStringLiteral(".lua");
    asociacion.AppCommand = platform::InProgramFolder(u"QM\\luaplayer.exe");
    asociacion.DefaultIcon = platform::InProgramFolder(u"lua.ico");
    asociacion.Associate();
}

} // namespace shell
