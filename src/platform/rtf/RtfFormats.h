// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QTextFormat>
#include <compare>
#include <map>
#include <optional>
#include <vector>

namespace platform {

/// The look of characters, in RTF's terms.
struct RtfCharacters {
    int font = -1; ///< number in the font table
    int halfPoints = 24;
    int color = 0; ///< index in the colour table, whose first entry is usually automatic
    int background = 0;
    int underline = 0; ///< a QTextCharFormat::UnderlineStyle
    int vertical = 0;  ///< a QTextCharFormat::VerticalAlignment
    int capitals = 0;  ///< a QFont::Capitalization
    bool bold = false;
    bool italic = false;
    bool strike = false;
    bool hidden = false;

    auto operator<=>(const RtfCharacters&) const = default; // NOLINT(modernize-use-nullptr)
};

struct RtfTab {
    int twips = 0;
    int type = 0; ///< a QTextOption::TabType

    auto operator<=>(const RtfTab&) const = default; // NOLINT(modernize-use-nullptr)
};

/// The look of a paragraph, in RTF's terms. Lengths in twips.
struct RtfParagraph {
    int alignment = Qt::AlignLeft;
    int left = 0;
    int right = 0;
    int firstLine = 0;
    int before = 0;
    int after = 0;
    int lineSpacing = 0;       ///< 0 is single, less than 0 is exact
    bool proportional = false; ///< lineSpacing is in 240ths of single
    bool pageBreakBefore = false;
    std::vector<RtfTab> tabs = {};

    auto operator<=>(const RtfParagraph&) const = default; // NOLINT(modernize-use-nullptr)
};

/// The font and colour tables of a file, and the toolkit's formats made by them. A format is made
/// once for all equal states; what goes beyond kMost different ones gets a plain format, since the
/// toolkit's search among formats takes time in proportion to them.
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
