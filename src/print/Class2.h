// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/print/Printer.h"
#include "platform/print/RichText.h"

#include <QPaintDevice>
#include <QString>
#include <memory>

namespace print {

/// Prints a rich text control page by page on the current printer, with a header, a footer and the
/// number of the page. Margins are in twips (1/1440 inch), from the edge of the paper.
class Class2 {
public:
    /// Prints the whole text. Fails if there is no printer or it refuses something; also, after the
    /// pages that it could print, if the margins leave no room for a line.
    void Imprimir(platform::RichText& UnRichText);

    int MarginTop() const { return m_marginTop; }
    void MarginTop(int vNewValue) { m_marginTop = vNewValue; }
    int MarginLeft() const { return m_marginLeft; }
    void MarginLeft(int vNewValue) { m_marginLeft = vNewValue; }
    int MarginRight() const { return m_marginRight; }
    void MarginRight(int vNewValue) { m_marginRight = vNewValue; }
    int MarginBottom() const { return m_marginBottom; }
    void MarginBottom(int vNewValue) { m_marginBottom = vNewValue; }
    const QString& Header() const { return m_header; }
    void Header(const QString& vNewValue) { m_header = vNewValue; }
    const QString& Footer() const { return m_footer; }
    void Footer(const QString& vNewValue) { m_footer = vNewValue; }

private:
    void prepararImpresora(platform::RichText& UnRichText, const platform::Printer& Printer);
    platform::FormatRange Peticion(platform::Printer& Printer) const;
    void ImprimirPaginas(platform::RichText& UnRichText, platform::Printer& Printer);
    void ImprimirRotulos(const platform::FormatRange& peticion, int pagina,
                         platform::Printer& Printer) const;

    std::unique_ptr<QPaintDevice> hDCImpresora;
    int m_marginTop = 0;
    int m_marginLeft = 0;
    int m_marginRight = 0;
    int m_marginBottom = 0;
    QString m_header;
    QString m_footer;
    int anchoLinea = 0;
};

} // namespace print
