// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/Class2.h"

#include "core/Rounding.h"
#include "platform/base/Failure.h"

#include <QPainter>
#include <QScopeGuard>
#include <algorithm>
#include <limits>

namespace print {
namespace {

constexpr double kTamanoLetra = 11;
constexpr int kUltimaPagina = std::numeric_limits<qint16>::max();

int Entero(double twips) {
    return static_cast<int>(core::RoundHalfEven(twips));
}

// The line width within the range of SetTargetDevice's int.
int EnRango(qint64 twips) {
    return static_cast<int>(std::clamp<qint64>(twips, std::numeric_limits<qint32>::min(),
                                               std::numeric_limits<qint32>::max()));
}

platform::Failure Fallo(platform::FailureCode codigo, const QString& texto, int pagina) {
    return {codigo, QStringLiteral("Class2"), texto.arg(pagina)};
}

void Escribir(platform::Printer& Printer, const QString& texto, double x, double y) {
    Printer.CurrentX(static_cast<float>(x));
    Printer.CurrentY(static_cast<float>(y));
    Printer.Print(texto);
}

} // namespace

void Class2::Imprimir(platform::RichText& UnRichText) {
    const std::unique_ptr<platform::Printer> Printer = platform::CurrentPrinter();
    const auto soltar = qScopeGuard([&] {
        UnRichText.ReleaseFormat();
        hDCImpresora.reset();
    });
    prepararImpresora(UnRichText, *Printer);
    Printer->Print(QString()); // opens the job
    ImprimirPaginas(UnRichText, *Printer);
}

void Class2::prepararImpresora(platform::RichText& UnRichText, const platform::Printer& Printer) {
    const int leftOffset = Entero(Printer.ScaleX(Printer.PhysicalOffsetX()));
    const qint64 izquierda = qint64{m_marginLeft} - leftOffset;
    const qint64 derecha = qint64{Printer.Width()} - m_marginRight - leftOffset;
    anchoLinea = EnRango(derecha - izquierda);
    hDCImpresora = Printer.CreateDC();
    UnRichText.SetTargetDevice(*hDCImpresora, anchoLinea);
}

platform::FormatRange Class2::Peticion(platform::Printer& Printer) const {
    const int leftOffset = Entero(Printer.ScaleX(Printer.PhysicalOffsetX()));
    const int topOffset = Entero(Printer.ScaleY(Printer.PhysicalOffsetY()));
    const double ancho = Printer.ScaleWidth();
    const double alto = Printer.ScaleHeight();
    platform::FormatRange peticion;
    peticion.hdc = Printer.hDC();
    peticion.hdcTarget = peticion.hdc->device();
    peticion.rc.setCoords(double(m_marginLeft) - leftOffset, double(m_marginTop) - topOffset,
                          ancho - m_marginRight + leftOffset, alto - m_marginBottom + topOffset);
    peticion.rcPage = QRectF(0, 0, ancho, alto);
    return peticion;
}

void Class2::ImprimirPaginas(platform::RichText& UnRichText, platform::Printer& Printer) {
    platform::FormatRange peticion = Peticion(Printer);
    const qsizetype largo = UnRichText.Text().size();
    Printer.Font(QStringLiteral("Courier New"), kTamanoLetra);
    for (int pagina = 1;; ++pagina) {
        const qsizetype siguiente = UnRichText.Format(peticion);
        ImprimirRotulos(peticion, pagina, Printer);
        const bool acabado = siguiente >= largo;
        const bool atascado = siguiente <= peticion.cpMin;
        if (acabado || atascado || pagina == kUltimaPagina)
            Printer.EndDoc();
        if (acabado)
            return;
        if (atascado)
            throw Fallo(platform::FailureCode::InvalidArgument,
                        QStringLiteral("Los márgenes no dejan sitio para el texto: la impresión "
                                       "termina en la página %1."),
                        pagina);
        if (pagina == kUltimaPagina)
            throw Fallo(platform::FailureCode::Overflow,
                        QStringLiteral("No se pueden imprimir más de %1 páginas."), pagina);
        peticion.cpMin = siguiente;
        Printer.NewPage();
        Printer.Print(QString());
        peticion.hdc = Printer.hDC();
        peticion.hdcTarget = peticion.hdc->device();
    }
}

// The header stands in the middle of the band above the text, the footer in that of the one below.
void Class2::ImprimirRotulos(const platform::FormatRange& peticion, int pagina,
                             platform::Printer& Printer) const {
    const double ancho = Printer.ScaleWidth();
    const double altoLetra = Printer.TextHeight(QStringLiteral("x"));
    const double abajo = peticion.rc.bottom();
    const double pie = abajo + (Printer.ScaleHeight() - abajo - altoLetra) / 2;
    const QString numero = QStringLiteral("Página %1").arg(pagina);
    Escribir(Printer, m_header, (ancho - Printer.TextWidth(m_header)) / 2,
             (peticion.rc.top() - altoLetra) / 2);
    Escribir(Printer, m_footer, (ancho - Printer.TextWidth(m_footer)) / 2, pie);
    Escribir(Printer, numero, ancho - Printer.TextWidth(numero), pie);
}

} // namespace print
