// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/rtf/RtfFormats.h"

#include "platform/base/Twips.h"
#include "platform/rtf/TargetDevice.h"

#include <QFont>
#include <QList>
#include <QTextOption>
#include <algorithm>
#include <cstdlib>

namespace platform {
namespace {

constexpr double kSingle = 240; // a proportional line spacing of 1

void SetLineSpacing(QTextBlockFormat& format, const RtfParagraph& paragraph) {
    const int spacing = paragraph.lineSpacing;
    if (spacing == 0)
        return;
    if (paragraph.proportional)
        format.setLineHeight(std::abs(spacing) * 100 / kSingle,
                             QTextBlockFormat::ProportionalHeight);
    else
        format.setLineHeight(RtfFormats::PixelsOf(std::abs(spacing)),
                             spacing < 0 ? QTextBlockFormat::FixedHeight
                                         : QTextBlockFormat::MinimumHeight);
}

// RTF counts tabs from the left margin, QTextBlockFormat from the start of the line. The indent of
// a hanging first line is a tab of its own.
QList<QTextOption::Tab> TabsOf(const RtfParagraph& paragraph) {
    std::vector<RtfTab> tabs = paragraph.tabs;
    if (paragraph.firstLine < 0)
        tabs.push_back({paragraph.left, QTextOption::LeftTab});
    std::sort(tabs.begin(), tabs.end());
    QList<QTextOption::Tab> list;
    for (const RtfTab& tab : tabs) {
        const int position = tab.twips - paragraph.left - paragraph.firstLine;
        if (position > 0)
            list.append(
                {RtfFormats::PixelsOf(position), static_cast<QTextOption::TabType>(tab.type)});
    }
    return list;
}

QTextBlockFormat Make(const RtfParagraph& paragraph) {
    QTextBlockFormat format;
    format.setAlignment(static_cast<Qt::AlignmentFlag>(paragraph.alignment));
    format.setLeftMargin(RtfFormats::PixelsOf(paragraph.left));
    format.setRightMargin(RtfFormats::PixelsOf(paragraph.right));
    format.setTextIndent(RtfFormats::PixelsOf(paragraph.firstLine));
    format.setTopMargin(RtfFormats::PixelsOf(paragraph.before));
    format.setBottomMargin(RtfFormats::PixelsOf(paragraph.after));
    SetLineSpacing(format, paragraph);
    if (const auto tabs = TabsOf(paragraph); !tabs.isEmpty())
        format.setTabPositions(tabs);
    if (paragraph.pageBreakBefore)
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    return format;
}

// The format of a state, made at the first call; the plain one if kMost others are made already.
template<class State, class Format, class Maker>
const Format& Find(std::map<State, Format>& made, const State& wanted, Maker make) {
    const auto found = made.find(wanted);
    if (found != made.end())
        return found->second;
    const State key = made.size() < RtfFormats::kMost ? wanted : State{};
    return made.try_emplace(key, make(key)).first->second;
}

} // namespace

double RtfFormats::PixelsOf(int twips) {
    return twips * DocumentDotsPerInch() / kTwipsPerInch;
}

void RtfFormats::AddFont(int number, const QString& family) {
    if (m_fonts.size() < kMost && !family.isEmpty())
        m_fonts.try_emplace(number, family);
}

void RtfFormats::AddColor(std::optional<QRgb> color) {
    if (m_colors.size() < kMost)
        m_colors.push_back(color);
}

std::optional<QColor> RtfFormats::Color(int index) const {
    const auto place = static_cast<size_t>(index);
    if (place >= m_colors.size() || !m_colors[place])
        return std::nullopt;
    return QColor(*m_colors[place]);
}

QTextCharFormat RtfFormats::Make(const RtfCharacters& characters) const {
    QTextCharFormat format;
    if (const auto font = m_fonts.find(characters.font); font != m_fonts.end())
        format.setFontFamilies({font->second});
    format.setFontPointSize(characters.halfPoints / 2.0);
    if (characters.bold)
        format.setFontWeight(QFont::Bold);
    if (characters.italic)
        format.setFontItalic(true);
    if (characters.strike)
        format.setFontStrikeOut(true);
    if (characters.underline)
        format.setUnderlineStyle(
            static_cast<QTextCharFormat::UnderlineStyle>(characters.underline));
    if (characters.vertical)
        format.setVerticalAlignment(
            static_cast<QTextCharFormat::VerticalAlignment>(characters.vertical));
    if (characters.capitals)
        format.setFontCapitalization(static_cast<QFont::Capitalization>(characters.capitals));
    if (const auto color = Color(characters.color))
        format.setForeground(*color);
    if (const auto color = Color(characters.background); color && characters.background)
        format.setBackground(*color);
    return format;
}

const QTextCharFormat& RtfFormats::Of(const RtfCharacters& characters) {
    return Find(m_characters, characters, [this](const auto& state) { return Make(state); });
}

const QTextBlockFormat& RtfFormats::Of(const RtfParagraph& paragraph) {
    return Find(m_paragraphs, paragraph, [](const auto& state) { return platform::Make(state); });
}

} // namespace platform
