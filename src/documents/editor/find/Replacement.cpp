// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/find/Replacement.h"

#include "documents/editor/find/LuaPattern.h"

#include <algorithm>

namespace documents {
namespace {

constexpr int kNoCapture = -1;
constexpr qsizetype kLargestText = 1 << 29; // in bytes

QString Captured(const QRegularExpressionMatch& match, int capture) {
    return capture == 0 ? match.captured() : match.captured(LuaPattern::GroupName(capture));
}

} // namespace

Replacement::Replacement(const Search& search, const QString& text) : m_search(search) {
    m_pieces.push_back({{}, kNoCapture});
    if (search.Wanted().luaPattern)
        Parse(text);
    else
        m_pieces.back().text = text;
}

void Replacement::Parse(const QString& text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool escape = text[i] == u'%' && i + 1 < text.size();
        const QChar next = escape ? text[++i] : text[i];
        if (escape && next >= u'0' && next <= u'9')
            AddCapture(next.unicode() - u'0');
        else
            m_pieces.back().text += next;
    }
}

void Replacement::AddCapture(int number) {
    const bool whole = number == 1 && m_search.Captures() == 0;
    if (number > m_search.Captures() && !whole)
        m_fault = QStringLiteral("El patrón no tiene la captura %%1").arg(number);
    m_pieces.back().capture = whole ? 0 : number;
    m_pieces.push_back({{}, kNoCapture});
}

QByteArray Replacement::Of(const QRegularExpressionMatch& match) const {
    QByteArray utf8;
    for (const Piece& piece : m_pieces) {
        utf8 += piece.text.toUtf8();
        if (piece.capture != kNoCapture)
            utf8 += Captured(match, piece.capture).toUtf8();
    }
    return utf8;
}

Replacement::Result Replacement::All(QByteArrayView utf8, qsizetype caret) const {
    Result result{{}, 0, caret, {}};
    qsizetype copied = 0;
    const bool done = m_search.Visit(utf8, [&](Hit hit, const QRegularExpressionMatch& match) {
        if (result.utf8.size() > kLargestText)
            return;
        const QByteArray fresh = Of(match);
        result.utf8 += utf8.sliced(copied, hit.from - copied);
        result.utf8 += fresh;
        copied = hit.to;
        ++result.count;
        if (hit.to <= caret)
            result.caret += fresh.size() - (hit.to - hit.from);
        else if (hit.from < caret) // inside of the hit: in the new piece too, or at its end
            result.caret -= std::max<qsizetype>(0, caret - hit.from - fresh.size());
    });
    result.utf8 += utf8.sliced(copied);
    if (!done)
        result.fault = Search::TooMuchWork();
    else if (result.utf8.size() > kLargestText)
        result.fault = QStringLiteral("El texto sería demasiado grande");
    return result;
}

std::optional<QByteArray> Replacement::One(QByteArrayView line, Hit hit) const {
    std::optional<QByteArray> fresh;
    m_search.Visit(line, [&](Hit found, const QRegularExpressionMatch& match) {
        if (found == hit)
            fresh = Of(match);
    });
    return fresh;
}

} // namespace documents
