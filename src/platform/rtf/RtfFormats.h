// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/rtf/RtfLook.h"

#include <QColor>
#include <QRgb>
#include <QString>
#include <QTextFormat>
#include <map>
#include <optional>
#include <vector>

namespace platform {

/// The font and colour tables of a file, and the QTextFormats made by them. A format is made once
/// for all equal states; what goes beyond kMost different ones gets a plain format, since
/// QTextDocument's search among its formats takes time in proportion to them.
class RtfFormats {
public:
    static constexpr size_t kMost = 1024;

    /// In the unit of a document's lengths.
    static double PixelsOf(int twips);

    /// The first font of a number counts.
    void AddFont(int number, const QString& family);
    void AddColor(std::optional<QRgb> color);

    const QTextCharFormat& Of(const RtfCharacters& characters);
    const QTextBlockFormat& Of(const RtfParagraph& paragraph);

private:
    QTextCharFormat Make(const RtfCharacters& characters) const;
    std::optional<QColor> Color(int index) const;

    std::map<int, QString> m_fonts;
    std::vector<std::optional<QRgb>> m_colors;
    std::map<RtfCharacters, QTextCharFormat> m_characters;
    std::map<RtfParagraph, QTextBlockFormat> m_paragraphs;
};

} // namespace platform
