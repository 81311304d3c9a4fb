// SPDX-License-Identifier: GPL-3.0-or-later
#include "assist/Form1.h"

#include "core/Rounding.h"
#include "platform/forms/Dialogs.h"
#include "platform/forms/Handler.h"
#include "shared/Medidas.h"
#include "ui_Form1.h"

#include <QRegularExpression>
#include <QString>
#include <optional>

namespace assist {
namespace {

constexpr int kArriba = 5010; // twips: under the catalogue
constexpr int kMaximo = 255;

// Only digits, with a comma or a point among them, are a number.
std::optional<double> Numero(QString texto) {
    static const QRegularExpression forma(
        QRegularExpression::anchoredPattern(QStringLiteral("[0-9]+([.,][0-9]*)?")));
    if (!forma.match(texto).hasMatch())
        return std::nullopt;
    return texto.replace(u',', u'.').toDouble();
}

void Pintar(QWidget* muestra, const QString& nombre, const QColor& color) {
    QPalette paleta;
    paleta.setColor(QPalette::Window, color);
    muestra->setPalette(paleta);
    muestra->setAccessibleName(QStringLiteral("%1: rojo %2, verde %3, azul %4")
                                   .arg(nombre)
                                   .arg(color.red())
                                   .arg(color.green())
                                   .arg(color.blue()));
}

} // namespace

Form1::Form1() : m_ui(std::make_unique<Ui::Form1>()) {
    m_ui->setupUi(this);
    m_canales = {{{m_ui->red, m_ui->Text1}, {m_ui->green, m_ui->Text2}, {m_ui->blue, m_ui->Text3}}};
    Caption(windowTitle());
    CancelButton(m_ui->KewlButtons2);
    setFocusProxy(m_ui->red);
    for (const Canal& canal : m_canales)
        Unir(canal);
    platform::OnEvent(m_ui->KewlButtons2, &QPushButton::clicked, this, &Form1::KewlButtons2_Click);
    colorchange();
}

Form1::~Form1() = default;

void Form1::Unir(const Canal& canal) {
    const QFontMetrics letra = canal.texto->fontMetrics();
    canal.texto->setFixedWidth(letra.horizontalAdvance(QStringLiteral("000000")));
    connect(canal.deslizador, &QSlider::valueChanged, this,
            [this, &canal] { platform::RunHandler([&] { Deslizador_Change(canal); }); });
    connect(canal.texto, &QLineEdit::textChanged, this,
            [this, &canal] { platform::RunHandler([&] { Texto_Change(canal); }); });
}

void Form1::Form_Load() {
    Place(shared::kAnchoDocumento, kArriba);
    Caption(QStringLiteral("Editor de color RGB"));
}

void Form1::colorchange() {
    const int rojo = m_ui->red->value();
    const int verde = m_ui->green->value();
    const int azul = m_ui->blue->value();
    Pintar(m_ui->BlueSpot, QStringLiteral("Azul"), QColor(0, 0, azul));
    Pintar(m_ui->greenSpot, QStringLiteral("Verde"), QColor(0, verde, 0));
    Pintar(m_ui->Redspot, QStringLiteral("Rojo"), QColor(rojo, 0, 0));
    Pintar(m_ui->colour, QStringLiteral("Color"), QColor(rojo, verde, azul));
    m_ui->rgbcode->setText(QStringLiteral("Color.new(%1,%2,%3)").arg(rojo).arg(verde).arg(azul));
}

void Form1::Deslizador_Change(const Canal& canal) {
    const int valor = canal.deslizador->value();
    if (canal.texto->text() != QString::number(valor)) // the caret would jump
        canal.texto->setText(QString::number(valor));
    if (m_ui->chkGrey->isChecked()) {
        for (const Canal& otro : m_canales)
            otro.deslizador->setValue(valor);
    }
    colorchange();
}

void Form1::Texto_Change(const Canal& canal) {
    if (canal.texto->text().isEmpty()) {
        canal.texto->setText(QStringLiteral("0"));
        return;
    }
    const auto numero = Numero(canal.texto->text());
    if (numero && *numero <= kMaximo) {
        canal.deslizador->setValue(static_cast<int>(core::RoundHalfEven(*numero)));
        return;
    }
    platform::MsgBox(QStringLiteral("Valor no valido. El valor debe estar entre 0 y 255"),
                     platform::Buttons::Ok, platform::Icon::None,
                     QStringLiteral("Informacion de Quillmark"));
    canal.texto->setText(QString::number(numero ? kMaximo : canal.deslizador->value()));
}

void Form1::KewlButtons2_Click() {
    Unload();
}

} // namespace assist
