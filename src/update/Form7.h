// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/Timer.h"
#include "shared/ValoresCompartidos.h"

#include <QString>
#include <memory>

class QLabel;

namespace Ui {
class Form7;
}

namespace update {

/// The window that looks for a newer version. Nothing starts the check yet.
class Form7 : public platform::Form {
    Q_OBJECT

public:
    Form7(QWidget* dueno, shared::ValoresCompartidos& compartido);
    ~Form7() override;

    /// Compares the program's version with that in Update\version.txt of the program's folder.
    void actualizacion();

protected:
    void Form_Load() override;

private:
    void Timer1_Timer();
    void Timer2_Timer();
    void EscribirVersion();
    void DarRespuesta(const QString& oferta);

    std::unique_ptr<Ui::Form7> m_ui;
    shared::ValoresCompartidos& m_compartido;
    QLabel* m_panel1; // of StatusBar1
    QLabel* m_panel2;
    platform::Timer Timer1;
    platform::Timer Timer2;
    platform::Timer Timer3;
    QObject Inet1; // in the place of the network control, which is never used
    QString ArchivoConfig;
    QString m_estado;
};

/// The first item of a text: a string in quotes, or the characters up to a comma or a line end; at
/// most 255. Empty if there is none.
QString PrimerElemento(const QByteArray& bytes);

} // namespace update
