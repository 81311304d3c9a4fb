// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/Imprimir.h"

#include "core/Rounding.h"
#include "platform/base/Failure.h"
#include "platform/forms/Dialogs.h"
#include "platform/forms/Handler.h"
#include "print/Class2.h"
#include "ui_Imprimir.h"

#include <limits>

namespace print {
namespace {

// A typed margin, in twips, with a decimal comma or point, rounded half to even. Fails, naming the
// field, if it is no number or one beyond 32 bits.
int Margen(const QLineEdit& campo, const QLabel& nombre) {
    using Limites = std::numeric_limits<int>;
    bool numero = false;
    const QString texto = campo.text().trimmed().replace(u',', u'.');
    const double twips = core::RoundHalfEven(texto.toDouble(&numero));
    if (!numero || !(twips >= Limites::min() && twips <= Limites::max()))
        throw platform::Failure(platform::FailureCode::TypeMismatch, QStringLiteral("Imprimir"),
                                QStringLiteral("El margen \"%1\" no es un número válido: \"%2\".")
                                    .arg(nombre.text(), campo.text()));
    return static_cast<int>(twips);
}

} // namespace

Imprimir::Imprimir() : m_ui(std::make_unique<Ui::Imprimir>()), CommonDialog1(this) {
    m_ui->setupUi(this);
    setFocusProxy(m_ui->Command1);
    MinButton(false);
    FixedSize(size().expandedTo(minimumSizeHint())); // larger fonts need more
    platform::OnEvent(m_ui->Command1, &QPushButton::clicked, this, &Imprimir::Command1_Click);
    platform::OnEvent(m_ui->Command2, &QPushButton::clicked, this, &Imprimir::Command2_Click);
}

Imprimir::~Imprimir() = default;

void Imprimir::Form_Load() {
    impresor = std::make_unique<Class2>();
    m_ui->Command1->setText(QStringLiteral(" Abrir archivo "));
    m_ui->Command2->setText(QStringLiteral("Imprimir RichTextbox "));
    Caption(QStringLiteral(" Ejemplo de impresión de un RichTextBox "));
}

void Imprimir::Form_Unload() {
    impresor.reset();
}

void Imprimir::Abrir(const QString& ruta) {
    m_ui->RichTextBox1->LoadFile(ruta);
}

void Imprimir::Command1_Click() {
    CommonDialog1.Filter(
        QStringLiteral("Archivos RTF|*.RTF|Archivos de texto|*.Txt|Todos los Archivos|*.*"));
    CommonDialog1.ShowOpen();
    if (!CommonDialog1.FileName().isEmpty())
        Abrir(CommonDialog1.FileName());
}

void Imprimir::Command2_Click() {
    impresor->Header(m_ui->Text1->text());
    impresor->Footer(m_ui->Text2->text());
    impresor->MarginTop(Margen(*m_ui->Text3, *m_ui->Label3));
    impresor->MarginLeft(Margen(*m_ui->Text4, *m_ui->Label4));
    impresor->MarginRight(Margen(*m_ui->Text5, *m_ui->Label5));
    impresor->MarginBottom(Margen(*m_ui->Text6, *m_ui->Label6));
    impresor->Imprimir(*m_ui->RichTextBox1);
}

} // namespace print
