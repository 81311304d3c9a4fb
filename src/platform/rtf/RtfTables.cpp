// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/rtf/RtfTables.h"

#include <QChar>
#include <algorithm>
#include <utility>

namespace platform {
namespace {

constexpr qsizetype kLongestName = 64; // of a font

} // namespace

void RtfTables::StartFont(int number, int codePage) {
    EndFont();
    m_font = {number, codePage};
}

void RtfTables::FontText(const QString& text) {
    for (const QChar c : text) {
        if (c == u';')
            EndFont();
        else if (m_font.name.size() < kLongestName)
            m_font.name.append(c);
    }
}

void RtfTables::EndFont() {
    const QString name = std::exchange(m_font.name, {}).trimmed();
    if (name.isEmpty() || m_codePages.size() == RtfFormats::kMost)
        return;
    m_formats.AddFont(m_font.number, name);
    m_codePages.try_emplace(m_font.number, m_font.codePage);
}

void RtfTables::ColorPart(int shift, int value) {
    const QRgb part = static_cast<QRgb>(std::clamp(value, 0, 255));
    m_color = (m_color.value_or(qRgb(0, 0, 0)) & ~(0xFFU << shift)) | part << shift;
}

void RtfTables::ColorText(const QString& text) {
    for (qsizetype i = text.count(u';'); i > 0; --i)
        m_formats.AddColor(std::exchange(m_color, std::nullopt));
}

int RtfTables::CodePageOf(int font, int fallback) const {
    const auto page = m_codePages.find(font);
    return page == m_codePages.end() ? fallback : page->second;
}

} // namespace platform
