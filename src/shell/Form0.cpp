// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Form0.h"

#include "platform/base/Clock.h"
#include "shared/Module1.h"
#include "shell/Dibujos.h"
#include "shell/MDIForm1.h"
#include "ui_Form0.h"

#include <QCoreApplication>
#include <QScreen>

namespace shell {
namespace {

constexpr int kAlfaMaxima = 250;
constexpr int kPaso = 10; // milliseconds

} // namespace

Form0::Form0() : m_ui(std::make_unique<Ui::Form0>()), Timer1(this, &Form0::Timer1_Timer) {
    m_ui->setupUi(this);
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    m_ui->Image1->Dibujo(PintarPortada);
    m_ui->Image2->Dibujo(PintarPluma);
    move(screen()->availableGeometry().center() - rect().center());
}

Form0::~Form0() = default;

void Form0::MakeWindowTransparent(QWidget* hwnd, quint8 alphaAmount) {
    hwnd->setWindowOpacity(alphaAmount / 255.0);
}

void Form0::Form_Load() {
    ArchivoConfig = Module1::RutaConfig();
    m_ejecuciones =
        Module1::LeerIni(ArchivoConfig, Module1::kInicio, Module1::kEjecuciones, QString());
    m_nuevo = Module1::LeerIni(ArchivoConfig, Module1::kGeneral, Module1::kNuevo, QString());
    MakeWindowTransparent(this, 0);
    Timer1.Interval(kPaso);
    Timer1.Enabled(true);
}

void Form0::Fundido() {
    const auto paso = [this](int alfa) {
        platform::Sleep(kPaso);
        MakeWindowTransparent(this, static_cast<quint8>(alfa));
        QCoreApplication::processEvents();
    };
    for (int alfa = 0; alfa <= kAlfaMaxima; ++alfa)
        paso(alfa);
    for (int alfa = kAlfaMaxima; alfa >= 0; --alfa)
        paso(alfa);
}

void Form0::Timer1_Timer() {
    if (!m_principal)
        return; // the timer can run before EntregarA: Show handles events
    Fundido();
    Timer1.Enabled(false);
    Entregar();
    Unload();
}

void Form0::Entregar() {
    m_principal->Show();
    // A text that is no number counts as 0.
    if (m_ejecuciones.toDouble() == 0) {
        m_principal->mnuopcionesconfiguracion_Click();
        Module1::EscribirIni(ArchivoConfig, Module1::kInicio, Module1::kEjecuciones,
                             QStringLiteral("1"));
    } else if (m_nuevo == Module1::kSi) {
        m_documento = m_principal->NuevoScript();
    }
}

// The splash can't be closed before the hand-over.
void Form0::Form_QueryUnload(bool& cancelar) {
    cancelar = !m_principal || !m_principal->isVisible();
}

} // namespace shell
