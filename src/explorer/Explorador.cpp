// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/Explorador.h"

#include "explorer/DibujosBarra.h"
#include "platform/base/Silently.h"
#include "platform/controls/ListView.h"
#include "platform/controls/LoadPicture.h"
#include "platform/files/FileSystemObject.h"
#include "platform/files/ProgramFolder.h"
#include "platform/forms/Handler.h"
#include "platform/forms/WindowHandles.h"
#include "shared/Medidas.h"
#include "shared/Module1.h"
#include "ui_Explorador.h"

#include <QPointer>
#include <utility>

namespace explorer {
namespace {

constexpr int kJuntoAlTexto = 6; // pixels, around the text of a button
constexpr int kSubir = 1;
constexpr int kCambiar = 3;
constexpr int kVolver = 5;

} // namespace

Explorador::Explorador(MarcoExplorador& marco, const platform::FileSystemObject& fso)
    : m_ui(std::make_unique<Ui::Explorador>()), m_marco(marco), m_fso(fso) {
    m_ui->setupUi(this);
    Caption(windowTitle());
    setFocusProxy(m_ui->ListView1);
    LlenarDibujos(ImageListNormal, imagelistup);
    PrepararBoton(*m_ui->Boton1, kSubir, kDibujoSubir);
    PrepararBoton(*m_ui->Boton3, kCambiar, kDibujoCambiar);
    PrepararBoton(*m_ui->Boton5, kVolver, kDibujoVolver);
    FixedSize(size().expandedTo(minimumSizeHint())); // larger fonts need more
}

Explorador::~Explorador() = default;

void Explorador::PrepararBoton(QToolButton& boton, int Index, const char16_t* dibujo) {
    const QString clave = QString::fromUtf16(dibujo);
    boton.setIcon(DibujoDeBoton(ImageListNormal.Image(clave), imagelistup.Image(clave)));
    boton.setIconSize({kLadoDibujo, kLadoDibujo});
    boton.setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    boton.setMinimumWidth(boton.fontMetrics().horizontalAdvance(boton.text()) + kJuntoAlTexto);
    boton.setAutoRaise(true); // shows the QIcon::Active picture under the mouse
    connect(&boton, &QToolButton::clicked, this, [this, Index] {
        platform::RunHandler([this, Index] { Toolbar1_ButtonClick(Index); });
    });
}

void Explorador::Form_Load() {
    const QPointer<Explorador> ventana(this);
    const QString skin = platform::InProgramFolder(u"Skin.bmp");
    archivoConfig = Module1::RutaConfig();
    cSkin = std::make_unique<cSubclassListView>();
    cFile(std::make_unique<clsListFile>(m_marco, m_fso));
    m_cFile->SetControls(*m_ui->ListView1, ImageList1[0], ImageList1[1]);
    m_cFile->Listar(QStringLiteral("c:\\"));
    if (!ventana || !cSkin) // gone or closed meanwhile
        return;
    cSkin->SubClassListView(platform::HandleOf(m_ui->ListView1));
    setColumnHeader(skin, 0, 0, true, false);
    m_ui->ListView1->View(platform::ListDisplay::List);
    Move(shared::kAnchoDocumento, 0, Width(), Height());
}

void Explorador::Form_Unload() {
    cSkin.reset();
    m_cFile.reset();
}

void Explorador::cFile(std::unique_ptr<clsListFile> vData) {
    m_cFile = std::move(vData);
    m_cFile->changePath = [this](QString& Ruta) { cFile_changePath(Ruta); };
}

void Explorador::setColumnHeader(const QString& SpathSkin, qint32 lColorNormal, qint32 lColorUp,
                                 bool bIconAlingmentRight, bool bTextBold) {
    platform::RunSilently(
        [&] { cSkin->SkinPicture(QPixmap::fromImage(platform::LoadPicture(SpathSkin))); });
    cSkin->TextNormalColor(lColorNormal);
    cSkin->TextResalteColor(lColorUp);
    cSkin->IconAlingmentRight(bIconAlingmentRight);
    cSkin->HedersFontBlod(bTextBold);
}

void Explorador::cFile_changePath(QString& Ruta) {
    m_ui->Frame1->Caption(Ruta);
}

void Explorador::Toolbar1_ButtonClick(int Index) {
    if (Index == kSubir)
        m_cFile->subirNivel();
    else if (Index == kCambiar)
        ListarPathAlternativo();
    else if (Index == kVolver)
        m_cFile->Listar(QStringLiteral("C:\\"));
}

void Explorador::ListarPathAlternativo() {
    const QPointer<Explorador> ventana(this);
    pathAlternativo =
        Module1::LeerIni(archivoConfig, Module1::kExplorador, Module1::kPath, QString());
    m_cFile->Listar(pathAlternativo + QStringLiteral(":\\"));
    if (ventana && ventana->m_cFile) // neither gone nor closed meanwhile
        ventana->m_cFile->subirNivel();
}

} // namespace explorer
