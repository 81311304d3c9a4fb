// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/rtf/RtfCodePages.h"
#include "platform/rtf/RtfFormats.h"

#include <QRgb>
#include <QString>
#include <map>
#include <optional>

namespace platform {

/// Reads the font and colour tables of a file. The fonts' names and the colours go to the formats.
class RtfTables {
public:
    explicit RtfTables(RtfFormats& formats) : m_formats(formats) {}

    /// Ends the font being read and starts one with that number.
    void StartFont(int number, int codePage);
    /// The code page of the font being read.
    void FontCodePage(int codePage) { m_font.codePage = codePage; }
    int FontCodePage() const { return m_font.codePage; }
    /// Text of the font table: names, a ; behind each.
    void FontText(const QString& text);
    void EndFont();
    /// `shift` is the part's lowest bit in a QRgb; values beyond 0 to 255 count as the nearest.
    void ColorPart(int shift, int value);
    /// Text of the colour table: a ; behind each colour.
    void ColorText(const QString& text);

    /// The code page of a font of the table; `fallback` if the table hasn't got it.
    int CodePageOf(int font, int fallback) const;

private:
    struct FontEntry {
        int number = -1;
        int codePage = kRtfWestern;
        QString name = {};
    };

    RtfFormats& m_formats;
    std::map<int, int> m_codePages; ///< by the font's number
    FontEntry m_font;               ///< being read
    std::optional<QRgb> m_color;    ///< being read; nothing is automatic
};

} // namespace platform
