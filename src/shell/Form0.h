// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/Timer.h"

#include <QPointer>
#include <QString>
#include <memory>

namespace Ui {
class Form0;
}

namespace documents {
class frmDocumento;
}

namespace shell {

class MDIForm1;

/// The splash window. It fades in and out and hands over to the main window.
class Form0 : public platform::Form {
    Q_OBJECT

public:
    Form0();
    ~Form0() override;

    /// Sets the main window, which can be made while the splash is shown: the fade waits for this.
    void EntregarA(MDIForm1& principal) { m_principal = &principal; }

    /// `alphaAmount`: 0 (transparent) to 255 (opaque).
    static void MakeWindowTransparent(QWidget* hwnd, quint8 alphaAmount);

protected:
    void Form_Load() override;
    void Form_QueryUnload(bool& cancelar) override;

private:
    void Timer1_Timer();
    void Fundido();
    void Entregar();

    std::unique_ptr<Ui::Form0> m_ui;
    MDIForm1* m_principal = nullptr;
    platform::Timer Timer1;
    QString ArchivoConfig;
    QString m_ejecuciones;
    QString m_nuevo;
    QPointer<documents::frmDocumento> m_documento; // the blank document of the start
};

} // namespace shell
