// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Ventanas.h"

#include "assist/Form1.h"
#include "assist/Form4.h"
#include "assist/Form5.h"
#include "assist/Form6.h"
#include "deploy/transfer_form.h"
#include "explorer/Explorador.h"
#include "platform/forms/Form.h"
#include "print/Imprimir.h"
#include "shell/Documentos.h"
#include "shell/Form2.h"

namespace shell {

Ventanas::Ventanas(platform::MDIFrame& marco, Documentos& documentos,
                   shared::ValoresCompartidos& compartido)
    : m_marco(marco),
      m_hacer{
          {Ventana::Form1, [] { return new assist::Form1; }},
          {Ventana::Form2, [] { return new Form2; }},
          {Ventana::Form4,
           [&documentos] {
               return new assist::Form4(
                   [&documentos](const QString& codigo) { documentos.Insertar(codigo); });
           }},
          {Ventana::Form5,
           [this] { return new assist::Form5([this] { Mostrar(Ventana::Form6); }); }},
          {Ventana::Form6,
           [this] {
               return new assist::Form6([this]() -> platform::PictureBox& { return Pantalla(); });
           }},
          {Ventana::transfer_form, [&compartido] { return new deploy::transfer_form(compartido); }},
          {Ventana::Explorador,
           [&documentos, &compartido] {
               return new explorer::Explorador(documentos, *compartido.fso);
           }},
          {Ventana::Imprimir, [] { return new print::Imprimir; }},
      } {}

platform::Form& Ventanas::Unica(Ventana cual) {
    QPointer<platform::Form>& ventana = m_hechas[cual];
    if (!ventana) {
        ventana = m_hacer.at(cual)();
        m_marco.Adopt(ventana);
        QObject::connect(ventana, &platform::Form::Unloaded, &m_marco,
                         [&ventana] { ventana.clear(); });
    }
    return *ventana;
}

platform::PictureBox& Ventanas::Pantalla() {
    auto& form5 = static_cast<assist::Form5&>(Unica(Ventana::Form5));
    form5.Load();
    return form5.Picture1();
}

void Ventanas::MostrarImprimir(const QString& archivo) {
    auto& ventana = static_cast<print::Imprimir&>(Unica(Ventana::Imprimir));
    ventana.Show();
    if (!archivo.isEmpty())
        ventana.Abrir(archivo);
}

} // namespace shell
