// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Form3.h"

#include "platform/forms/Handler.h"
#include "shell/Dibujos.h"
#include "ui_Form3.h"

namespace shell {

Form3::Form3(QWidget* dueno) : Form(dueno), m_ui(std::make_unique<Ui::Form3>()) {
    m_ui->setupUi(this);
    setWindowFlags(Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
    setFixedSize(size());
    Caption(windowTitle());
    m_ui->Image1->Dibujo(PintarPortada);
    m_ui->Image2->Dibujo(PintarPluma);
    m_ui->Image3->Dibujo(PintarConsola);
    DefaultButton(m_ui->cmdOK);
    CancelButton(m_ui->cmdOK);
    setFocusProxy(m_ui->cmdOK);
    platform::OnEvent(m_ui->cmdOK, &QPushButton::clicked, this, &Form3::cmdOK_Click);
}

Form3::~Form3() = default;

void Form3::cmdOK_Click() {
    Unload();
}

} // namespace shell
