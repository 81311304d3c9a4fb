// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/Form7.h"

#include "core/TextMarks.h"
#include "core/Version.h"
#include "platform/base/Silently.h"
#include "platform/files/Files.h"
#include "platform/files/ProgramFolder.h"
#include "platform/text/CodePage.h"
#include "shared/Module1.h"
#include "ui_Form7.h"

#include <QApplication>
#include <QCoreApplication>
#include <QIcon>
#include <QShortcut>

namespace update {
namespace {

constexpr int kSegundo = 1000; // milliseconds
constexpr qsizetype kElementoMasLargo = 255;
constexpr qint64 kCabeza = 4096; // bytes of a version file that are read

QString Ruta(const char16_t* archivo) {
    return platform::InProgramFolder(u"Update\\") + QString::fromUtf16(archivo);
}

// Empty if the file can't be read.
QString LeerVersion(const char16_t* archivo) {
    QString version;
    platform::RunSilently(
        [&] { version = PrimerElemento(platform::ReadFileHead(Ruta(archivo), kCabeza)); });
    return version;
}

} // namespace

QString PrimerElemento(const QByteArray& bytes) {
    const QString texto = platform::FromCodePage(
        core::WithoutUtf8Mark({bytes.data(), static_cast<size_t>(bytes.size())}));
    qsizetype inicio = 0;
    while (inicio < texto.size() && texto.at(inicio).isSpace())
        ++inicio;
    const bool entreComillas = inicio < texto.size() && texto.at(inicio) == u'"';
    inicio += entreComillas;
    const auto acaba = [&](QChar c) {
        return entreComillas ? c == u'"' : c == u',' || c == u'\r' || c == u'\n';
    };
    qsizetype fin = inicio;
    while (fin < texto.size() && fin - inicio < kElementoMasLargo && !acaba(texto.at(fin)))
        ++fin;
    const QString elemento = texto.sliced(inicio, fin - inicio);
    return entreComillas ? elemento : elemento.trimmed();
}

Form7::Form7(QWidget* dueno, shared::ValoresCompartidos& compartido)
    : Form(dueno),
      m_ui(std::make_unique<Ui::Form7>()),
      m_compartido(compartido),
      m_panel1(new QLabel),
      m_panel2(new QLabel),
      Timer1(this, &Form7::Timer1_Timer),
      Timer2(this, &Form7::Timer2_Timer),
      Timer3(this, &Form7::actualizacion) {
    m_ui->setupUi(this);
    setWindowFlags(Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
    setFixedSize(size());
    Caption(windowTitle());
    m_panel1->setIndent(m_ui->StatusBar1->fontMetrics().averageCharWidth());
    m_ui->StatusBar1->addWidget(m_panel1, 1);
    m_ui->StatusBar1->addWidget(m_panel2, 1);
    m_ui->Image1->setPixmap(QApplication::windowIcon().pixmap(m_ui->Image1->size()));
    auto* escape = new QShortcut(Qt::Key_Escape, this); // instead of a cancel button
    connect(escape, &QShortcut::activated, this, [this] { Unload(); });
    Timer1.Interval(1);
    Timer1.Enabled(true);
}

Form7::~Form7() = default;

void Form7::Form_Load() {
    ArchivoConfig = Module1::RutaConfig();
    m_compartido.version = QString::fromLatin1(core::Version());
    m_estado = QStringLiteral("Idle");
    m_compartido.segundos = 0;
    QCoreApplication::processEvents();
}

void Form7::Timer1_Timer() {
    m_panel1->setText(QStringLiteral("Status: ") + m_estado);
}

void Form7::Timer2_Timer() {
    ++m_compartido.segundos;
    m_panel2->setText(QStringLiteral("Tiempo: %1 segundos").arg(m_compartido.segundos));
}

void Form7::EscribirVersion() {
    const QString linea = u'"' + m_compartido.version + QStringLiteral("\"\r\n");
    platform::RunSilently(
        [&] { platform::WriteFile(Ruta(u"miversion.txt"), platform::ToCodePageLossy(linea)); });
}

void Form7::actualizacion() {
    Timer3.Enabled(false);
    m_compartido.segundos = 0;
    Timer2.Interval(kSegundo);
    Timer2.Enabled(true);
    m_ui->ProgressBar1->Value(10);
    m_estado = QStringLiteral("Comprobando actualizaciones");
    EscribirVersion();
    m_ui->ProgressBar1->Value(15);
    const QString oferta = LeerVersion(u"version.txt");
    m_ui->ProgressBar1->Value(30);
    // If it can't be read back, the program's own version stays.
    if (const QString propia = LeerVersion(u"miversion.txt"); !propia.isEmpty())
        m_compartido.version = propia;
    m_ui->ProgressBar1->Value(60);
    m_estado = QStringLiteral("Comprobacion realizada");
    DarRespuesta(oferta);
    m_ui->ProgressBar1->Value(100);
    Timer2.Enabled(false);
}

// Versions are compared as texts, so 3.0.10 counts as older than 3.0.9.
void Form7::DarRespuesta(const QString& oferta) {
    if (oferta > m_compartido.version) {
        m_ui->Label1->setText(QStringLiteral("Nueva actualizacion disponible: ") + oferta);
        m_estado = QStringLiteral("Descargando actualizacion");
        Module1::EscribirIni(ArchivoConfig, Module1::kUpdate, Module1::kVer, oferta);
    } else {
        m_ui->Label1->setText(QStringLiteral("No hay nueva actualizacion disponible."));
    }
}

} // namespace update
