// SPDX-License-Identifier: GPL-3.0-or-later
#include "assist/Form6.h"

#include "platform/base/Silently.h"
#include "platform/controls/FileListBox.h"
#include "platform/files/Paths.h"
#include "platform/forms/Dialogs.h"
#include "platform/forms/Handler.h"
#include "png/LoadPNG.h"
#include "ui_Form6.h"

#include <QString>
#include <string>
#include <utility>

namespace assist {
namespace {

// Empty if the drive is gone.
std::string RutaNativa(const QString& ruta) {
    std::string nativa;
    platform::RunSilently([&] { nativa = platform::ToNative(ruta).native(); });
    return nativa;
}

} // namespace

Form6::Form6(Pantalla pantalla)
    : m_ui(std::make_unique<Ui::Form6>()), m_pantalla(std::move(pantalla)) {
    m_ui->setupUi(this);
    Caption(windowTitle());
    CancelButton(m_ui->KewlButtons5);
    setFocusProxy(m_ui->Dir1);
    m_ui->Drive1->Drive(m_ui->Dir1->Path().left(2));
    platform::OnEvent(m_ui->Drive1, &platform::DriveListBox::Change, this, &Form6::Drive1_Change);
    platform::OnEvent(m_ui->Dir1, &platform::DirListBox::Change, this, &Form6::Dir1_Change);
    platform::OnEvent(m_ui->File1, &platform::FileListBox::Click, this, &Form6::File1_Click);
    platform::OnEvent(m_ui->KewlButtons5, &QPushButton::clicked, this, &Form6::KewlButtons5_Click);
}

Form6::~Form6() = default;

void Form6::Form_Load() {
    m_ui->File1->Pattern(QStringLiteral("*.png"));
    Center();
}

void Form6::Drive1_Change() {
    m_ui->Dir1->Path(m_ui->Drive1->Drive());
}

void Form6::Dir1_Change() {
    m_ui->File1->Path(m_ui->Dir1->Path());
}

png::LoadPNG& Form6::Lector() {
    if (!m_lector) {
        m_lector = std::make_unique<png::LoadPNG>();
        m_lector->MessageBox([](const std::string& texto) {
            platform::MsgBox(QString::fromStdString(texto), platform::Buttons::Ok,
                             platform::Icon::None);
        });
    }
    return *m_lector;
}

void Form6::File1_Click() {
    if (m_ui->File1->FileName().isEmpty())
        return;
    platform::PictureBox& Picture1 = m_pantalla();
    Picture1.Picture(QImage());
    png::LoadPNG& lector = Lector();
    lector.PicBox(&Picture1);
    lector.SetToBkgrnd(false, 0, 0);
    lector.BackgroundPicture(&Picture1);
    lector.SetAlpha(true);
    lector.SetTrans(true);
    lector.OpenPNG(RutaNativa(m_ui->File1->Path() + u'\\' + m_ui->File1->FileName()));
}

void Form6::KewlButtons5_Click() {
    Unload();
}

} // namespace assist
