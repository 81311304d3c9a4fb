// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "assist/MarcoCoordenadas.h"
#include "platform/forms/MDIFrame.h"
#include "shared/ValoresCompartidos.h"

#include <QPointer>
#include <QString>
#include <functional>
#include <map>

namespace shell {

class Documentos;

enum class Ventana { Form1, Form2, Form4, Form5, Form6, transfer_form, Explorador, Imprimir };

/// The tool windows of the main window. Each exists once: it is made at its first use, and anew
/// after it was closed.
class Ventanas : public assist::MarcoCoordenadas {
public:
    /// `marco` holds the windows.
    Ventanas(platform::MDIFrame& marco, Documentos& documentos,
             shared::ValoresCompartidos& compartido);

    /// Shows the window and brings it to the front.
    void Mostrar(Ventana cual) { Unica(cual).Show(); }
    /// The print window, with a file in it unless the path is empty.
    void MostrarImprimir(const QString& archivo);
    void MostrarForm6() override { Mostrar(Ventana::Form6); }
    assist::Form5& Form5Cargado() override;

private:
    platform::Form& Unica(Ventana cual);

    platform::MDIFrame& m_marco;
    std::map<Ventana, std::function<platform::Form*()>> m_hacer;
    std::map<Ventana, QPointer<platform::Form>> m_hechas;
};

} // namespace shell
