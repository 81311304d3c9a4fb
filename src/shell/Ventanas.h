// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms/MDIFrame.h"
#include "shared/ValoresCompartidos.h"

#include <QPointer>
#include <QString>
#include <functional>
#include <map>

namespace platform {
class PictureBox;
}

namespace shell {

class Documentos;

enum class Ventana { Form1, Form2, Form4, Form5, Form6, transfer_form, Explorador, Imprimir };

/// The tool windows of the main window. Each exists once: it is made at its first use, and anew
/// after it was closed.
class Ventanas {
public:
    /// `marco` holds the windows.
    Ventanas(platform::MDIFrame& marco, Documentos& documentos,
             shared::ValoresCompartidos& compartido);
    Ventanas(const Ventanas&) = delete;
    Ventanas& operator=(const Ventanas&) = delete;

    /// Shows the window and brings it to the front.
    void Mostrar(Ventana cual) { Unica(cual).Show(); }
    /// Shows the print window, with the file loaded unless the path is empty.
    void MostrarImprimir(const QString& archivo);

private:
    platform::Form& Unica(Ventana cual);
    /// The screen area of Form5, which is loaded if need be, but not shown.
    platform::PictureBox& Pantalla();

    platform::MDIFrame& m_marco;
    std::map<Ventana, std::function<platform::Form*()>> m_hacer;
    std::map<Ventana, QPointer<platform::Form>> m_hechas;
};

} // namespace shell
