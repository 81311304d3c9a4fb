// SPDX-License-Identifier: GPL-3.0-or-later
#include "assist/Form5.h"

#include "platform/base/Failure.h"
#include "platform/base/Twips.h"
#include "platform/controls/LoadPicture.h"
#include "platform/files/ProgramFolder.h"
#include "platform/forms/Handler.h"
#include "ui_Form5.h"

#include <QString>
#include <array>
#include <charconv>
#include <utility>

namespace assist {
namespace {

// The screen area in its frame, in twips.
constexpr int kAncho = 7215;
constexpr int kAlto = 4095;
constexpr int kIzquierda = 120;
constexpr int kArriba = 240;
// Twips per pixel of the console, whatever the desktop's resolution is.
constexpr float kTwipsPorPixel = 15;

QImage PantallaPropia() {
    return QImage(QStringLiteral(":/pspantalla/pantalla.jpg"));
}

// The picture beside the program, or the built-in one if there is none.
QImage Pantalla() {
    try {
        return platform::LoadPicture(platform::InProgramFolder(u"pspantalla\\pantalla.jpg"));
    } catch (const platform::Failure& fallo) {
        if (fallo.Code() == platform::FailureCode::FileNotFound)
            return PantallaPropia();
        throw;
    }
}

// The number in pixels, in the fewest digits that read back as the same 32-bit float.
QString EnPixeles(float twips) {
    std::array<char, 64> texto{};
    const auto fin = std::to_chars(texto.data(), texto.data() + texto.size(),
                                   twips / kTwipsPorPixel, std::chars_format::fixed);
    return QString::fromLatin1(texto.data(), fin.ptr - texto.data());
}

} // namespace

Form5::Form5(std::function<void()> elegirPng)
    : m_ui(std::make_unique<Ui::Form5>()), m_elegirPng(std::move(elegirPng)), CommonDialog1(this) {
    m_ui->setupUi(this);
    Caption(windowTitle());
    CancelButton(m_ui->KewlButtons2);
    setFocusProxy(m_ui->Picture1);
    // A fixed size, so that moving the mouse causes no new layout.
    const QFontMetrics letra = fontMetrics();
    for (QLabel* rotulo : {m_ui->labelx, m_ui->labely})
        rotulo->setFixedSize(letra.horizontalAdvance(QStringLiteral("-0000.000")), letra.height());
    m_ui->pp->setMinimumWidth(letra.horizontalAdvance(QStringLiteral("(0000.00,0000.00)")));
    m_ui->Picture1->Picture(PantallaPropia());
    m_ui->Picture1->PointAt(m_ui->Line2->X1(), m_ui->Line3->Y1());
    connect(m_ui->Picture1, &platform::PictureBox::MouseMove, this, [this](float X, float Y) {
        platform::RunHandler([=, this] { Picture1_MouseMove(X, Y); });
    });
    platform::OnEvent(m_ui->Picture1, &platform::PictureBox::Click, this, &Form5::Picture1_Click);
    platform::OnEvent(m_ui->KewlButtons2, &QPushButton::clicked, this, &Form5::KewlButtons2_Click);
    platform::OnEvent(m_ui->KewlButtons4, &QPushButton::clicked, this, &Form5::KewlButtons4_Click);
    platform::OnEvent(m_ui->KewlButtons5, &QPushButton::clicked, this, &Form5::KewlButtons5_Click);
    platform::OnEvent(m_ui->KewlButtons6, &QPushButton::clicked, this, &Form5::KewlButtons6_Click);
}

Form5::~Form5() = default;

platform::PictureBox& Form5::Picture1() {
    return *m_ui->Picture1;
}

void Form5::Form_Load() {
    Center();
}

void Form5::Picture1_MouseMove(float X, float Y) {
    m_ui->labelx->setText(EnPixeles(X));
    m_ui->labely->setText(EnPixeles(Y));
    m_ui->Line2->X1(X);
    m_ui->Line2->X2(X);
    m_ui->Line3->Y1(Y);
    m_ui->Line3->Y2(Y);
}

void Form5::Picture1_Click() {
    m_ui->pp->setText(u'(' + m_ui->labelx->text() + u',' + m_ui->labely->text() + u')');
}

void Form5::KewlButtons5_Click() {
    CommonDialog1.Filter(QStringLiteral("Archivos .jpg|*.jpg"));
    CommonDialog1.ShowOpen();
    m_ui->Picture1->Picture(platform::LoadPicture(CommonDialog1.FileName()));
}

void Form5::KewlButtons6_Click() {
    m_elegirPng();
}

// A PNG may have changed the size of the area.
void Form5::KewlButtons4_Click() {
    m_ui->Picture1->Width(kAncho);
    m_ui->Picture1->Height(kAlto);
    m_ui->Picture1->move(platform::ToPixels(kIzquierda), platform::ToPixels(kArriba));
    m_ui->Picture1->Picture(Pantalla());
}

void Form5::KewlButtons2_Click() {
    Unload();
}

} // namespace assist
