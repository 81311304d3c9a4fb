// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/find/Search.h"

#include "documents/editor/find/LuaPattern.h"
#include "platform/text/TextEncoding.h"

#include <QElapsedTimer>
#include <algorithm>

namespace documents {
namespace {

// The text is looked through in pieces of whole lines of about so many bytes.
constexpr qsizetype kPiece = 1 << 16;
constexpr qsizetype kPatternPiece = 1 << 14;
constexpr qint64 kLongestWork = 2000; // milliseconds, with a pattern

const QString kWordEdge = QStringLiteral("(?!(?<=[\\p{L}0-9_])(?=[\\p{L}0-9_]))");

// The skipping to the next hit stands in the expression itself, so that the engine's limit of steps
// holds for all of it and not for each start anew. What a pattern matches first is its match, be it
// empty; the next one is not looked for at the same place then.
const QString kPatternFrame = QStringLiteral("(*NO_JIT)(*NOTEMPTY)\\G(?s:.*?)\\K(?>%1)");

qsizetype EndOfLine(QByteArrayView utf8, qsizetype at) {
    const auto isEnd = [](char byte) { return byte == '\n' || byte == '\r'; };
    const auto* end = std::find_if(utf8.begin() + std::min(at, utf8.size()), utf8.end(), isEnd);
    if (end != utf8.end() && *end++ == '\r' && end != utf8.end() && *end == '\n')
        ++end;
    return end - utf8.begin();
}

// Tells how many bytes of UTF-8 come before a place in the text; the places must ascend.
class ByteCounter {
public:
    ByteCounter(const QString& text, qsizetype bytes)
        : m_text(text), m_ascii(text.size() == bytes) {}
    qsizetype Before(qsizetype place) {
        if (m_ascii)
            return place;
        for (; m_place < place; ++m_place)
            m_bytes += Length(m_text[m_place]);
        return m_bytes;
    }

private:
    static qsizetype Length(QChar unit) {
        if (unit.unicode() < 0x80)
            return 1;
        return unit.unicode() < 0x800 || unit.isSurrogate() ? 2 : 3;
    }

    const QString& m_text;
    bool m_ascii;
    qsizetype m_place = 0;
    qsizetype m_bytes = 0;
};

bool VisitPiece(const QRegularExpression& expression, QByteArrayView piece, qsizetype start,
                const Search::Visitor& visitor) {
    const QString text = platform::FromUtf8(piece);
    ByteCounter bytes(text, piece.size());
    for (qsizetype at = 0;;) {
        const QRegularExpressionMatch match =
            expression.match(text, at, QRegularExpression::NormalMatch,
                             QRegularExpression::DontCheckSubjectStringMatchOption);
        if (!match.hasMatch())
            return match.isValid();
        at = match.capturedEnd();
        const qsizetype from = start + bytes.Before(match.capturedStart());
        visitor({from, start + bytes.Before(at)}, match);
    }
}

} // namespace

Search::Search(const SearchFor& wanted) : m_wanted(wanted) {
    m_expression.setPattern(Expression());
    if (!wanted.caseSensitive && !wanted.luaPattern)
        m_expression.setPatternOptions(QRegularExpression::CaseInsensitiveOption);
    if (m_fault.isEmpty() && !m_expression.isValid())
        m_fault = QStringLiteral("Es demasiado largo para buscarlo");
    m_expression.optimize();
}

QString Search::TooMuchWork() {
    return QStringLiteral("El patrón pide demasiado trabajo");
}

QString Search::Expression() {
    const QString edge = m_wanted.wholeWord ? kWordEdge : QString();
    if (!m_wanted.luaPattern)
        return edge + QRegularExpression::escape(m_wanted.what) + edge;
    const LuaPattern pattern(m_wanted.what);
    if (!pattern.Fault().isEmpty())
        m_fault = QStringLiteral("El patrón no vale: ") + pattern.Fault();
    m_captures = pattern.Captures();
    return m_fault.isEmpty() ? kPatternFrame.arg(edge + pattern.Expression() + edge) : QString();
}

bool Search::Visit(QByteArrayView utf8, const Visitor& visitor, const std::stop_token& stop) const {
    if (m_wanted.what.isEmpty() || !m_fault.isEmpty())
        return true;
    QElapsedTimer clock;
    clock.start();
    const qsizetype piece = m_wanted.luaPattern ? kPatternPiece : kPiece;
    for (qsizetype start = 0; start < utf8.size();) {
        const qsizetype end = EndOfLine(utf8, start + piece);
        if (!VisitPiece(m_expression, utf8.sliced(start, end - start), start, visitor) ||
            stop.stop_requested() || (m_wanted.luaPattern && clock.hasExpired(kLongestWork)))
            return false;
        start = end;
    }
    return true;
}

Search::Result Search::In(QByteArrayView utf8) const {
    Result result{{}, m_fault};
    if (!Visit(utf8, [&](Hit hit, const QRegularExpressionMatch&) { result.hits.push_back(hit); }))
        result = {{}, TooMuchWork()};
    return result;
}

} // namespace documents
