// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/print/Printer.h"
#include "platform/print/RichText.h"

#include <QPaintDevice>

namespace print {

/// Prints a rich text control page by page on the current printer, with a header, a footer and the
/// number of the page. Margins are in twips (1/1440 inch), from the edge of the paper.
class Class2 {
public:
    /// Prints all of it at once. Fails if there is no printer or it refuses something, and, once
    /// the pages so far are printed, if the margins leave no room for a line.
    void Imprimir(platform::RichText& UnRichText);

    int MarginTop() const { return m_MarginTop; }
    void MarginTop(int vNewValue) { m_MarginTop = vNewValue; }
    int MarginLeft() const { return m_MarginLeft; }
    void MarginLeft(int vNewValue) { m_MarginLeft = vNewValue; }
    int MarginRight() const { return m_MarginRight; }
    void MarginRight(int vNewValue) { m_MarginRight = vNewValue; }
    int MarginBottom() const { return m_MarginBottom; }
    void MarginBottom(int vNewValue) { m_MarginBottom = vNewValue; }
    const QString& Header() const { return m_Header; }
    void Header(const QString& vNewValue) { m_Header = vNewValue; }
    const QString& Footer() const { return m_Footer; }
    void Footer(const QString& vNewValue) { m_Footer = vNewValue; }

private:
    void prepararImpresora(platform::RichText& UnRichText, const platform::Printer& Printer);
    platform::FormatRange Peticion(platform::Printer& Printer) const;
    void ImprimirPaginas(platform::RichText& UnRichText, platform::Printer& Printer);
    void ImprimirRotulos(const platform::FormatRange& peticion, int pagina,
                         platform::Printer& Printer) const;

    std::unique_ptr<QPaintDevice> hDCImpresora;
    int m_MarginTop = 0;
    int m_MarginLeft = 0;
    int m_MarginRight = 0;
    int m_MarginBottom = 0;
    QString m_Header;
    QString m_Footer;
    int anchoLinea = 0;
};

} // namespace print
