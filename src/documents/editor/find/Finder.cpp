// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/find/Finder.h"

#include "documents/editor/engine/Layers.h"
#include "documents/editor/engine/LineMarkers.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/find/Replacement.h"

#include <algorithm>
#include <utility>

namespace documents {
namespace {

constexpr int kMoment = 200;           // milliseconds between an edit and the new search
constexpr ptrdiff_t kMostMarks = 2000; // each costs a microsecond, and more to be painted
const QColor kMarkColor(255, 150, 0);
constexpr int kMarkAlpha = 70;
constexpr int kMarkOutlineAlpha = 160;

bool StartsBefore(const Hit& hit, qsizetype position) {
    return hit.from < position;
}

} // namespace

Finder::Finder(ScriptEditor& editor, QObject* parent)
    : QObject(parent), m_editor(editor), m_search(SearchFor{}) {
    editor.indicatorDefine(QsciScintilla::StraightBoxIndicator, kFoundIndicator);
    editor.setIndicatorDrawUnder(true, kFoundIndicator);
    editor.setIndicatorForegroundColor(kMarkColor, kFoundIndicator);
    editor.Send(QsciScintilla::SCI_INDICSETALPHA, kFoundIndicator, kMarkAlpha);
    editor.Send(QsciScintilla::SCI_INDICSETOUTLINEALPHA, kFoundIndicator, kMarkOutlineAlpha);
    m_stale.setSingleShot(true);
    m_stale.setInterval(kMoment);
    connect(&m_stale, &QTimer::timeout, this, &Finder::Renew);
    connect(&editor, &ScriptEditor::Edited, this, [this] {
        if (!Wanted().what.isEmpty() && m_fault.isEmpty()) // it might be too much work again
            m_stale.start();
    });
    connect(&editor, &ScriptEditor::Loaded, this, [this] {
        if (!Wanted().what.isEmpty())
            m_stale.start();
    });
    connect(&editor, &QsciScintilla::SCN_UPDATEUI, this, [this](int what) {
        if ((what & QsciScintilla::SC_UPDATE_V_SCROLL) != 0 && !m_stale.isActive())
            MarkVisible();
    });
}

void Finder::LookFor(const SearchFor& wanted) {
    m_search = Search(wanted);
    Renew();
}

void Finder::Stop() {
    LookFor({});
}

void Finder::Renew() {
    m_stale.stop();
    Search::Result result = m_search.In(m_editor.View());
    m_hits = std::move(result.hits);
    m_fault = result.fault;
    MarkVisible();
    Q_EMIT Renewed();
}

void Finder::RenewIfStale() {
    if (m_stale.isActive())
        Renew();
}

void Finder::MarkVisible() {
    const auto lineAt = [this](long shown) {
        return m_editor.Send(QsciScintilla::SCI_DOCLINEFROMVISIBLE, std::max(0L, shown));
    };
    const long first = m_editor.Send(QsciScintilla::SCI_GETFIRSTVISIBLELINE);
    const long page = m_editor.Send(QsciScintilla::SCI_LINESONSCREEN);
    const qsizetype from = m_editor.LineStart(lineAt(first - page));
    const qsizetype to = m_editor.LineEnd(lineAt(first + 2 * page));
    m_editor.Send(QsciScintilla::SCI_SETINDICATORCURRENT, kFoundIndicator);
    m_editor.Send(QsciScintilla::SCI_INDICATORCLEARRANGE, 0, m_editor.Length());
    auto hit = std::lower_bound(m_hits.begin(), m_hits.end(), from, StartsBefore);
    for (auto left = kMostMarks; hit != m_hits.end() && hit->from < to && left > 0; ++hit, --left)
        m_editor.Send(QsciScintilla::SCI_INDICATORFILLRANGE, hit->from, hit->to - hit->from);
}

std::optional<size_t> Finder::Selected() const {
    const Hit selection{m_editor.SelectionStart(), m_editor.SelectionEnd()};
    const auto hit = std::lower_bound(m_hits.begin(), m_hits.end(), selection.from, StartsBefore);
    if (m_stale.isActive() || hit == m_hits.end() || *hit != selection)
        return std::nullopt;
    return static_cast<size_t>(hit - m_hits.begin());
}

Finder::Way Finder::SelectFrom(qsizetype position, Direction direction) {
    RenewIfStale();
    if (m_hits.empty())
        return Way::Nothing;
    auto hit = std::lower_bound(m_hits.begin(), m_hits.end(), position, StartsBefore);
    Way way = Way::Straight;
    if (direction == Direction::Back && hit == m_hits.begin())
        hit = m_hits.end(), way = Way::AroundTheStart;
    else if (direction == Direction::On && hit == m_hits.end())
        hit = m_hits.begin(), way = Way::AroundTheEnd;
    if (direction == Direction::Back)
        --hit;
    m_editor.Select(hit->from, hit->to);
    return way;
}

Finder::Way Finder::SelectNext(Direction direction) {
    const bool on = direction == Direction::On;
    return SelectFrom(on ? m_editor.SelectionEnd() : m_editor.SelectionStart(), direction);
}

Finder::Outcome Finder::ReplaceSelected(const QString& text) {
    RenewIfStale();
    const Replacement replacement(m_search, text);
    const auto selected = Selected();
    if (!selected || !replacement.Fault().isEmpty())
        return {0, replacement.Fault()};
    const Hit hit = m_hits[*selected];
    const qsizetype line = m_editor.LineOf(hit.from);
    const qsizetype start = m_editor.LineStart(line);
    const auto fresh = replacement.One(m_editor.Range(start, m_editor.LineEnd(line)),
                                       {hit.from - start, hit.to - start});
    if (!fresh)
        return {};
    if (m_editor.LineEnd(line) - start + fresh->size() > ScriptEditor::kLongestLine)
        return {0, QStringLiteral("Daría una línea de más de 1 MiB")};
    m_editor.Replace(hit.from, hit.to, *fresh);
    m_editor.GoTo(hit.from + fresh->size());
    Renew();
    return {1, {}};
}

Finder::Outcome Finder::ReplaceAll(const QString& text) {
    Renew();
    const Replacement replacement(m_search, text);
    if (m_hits.empty() || !replacement.Fault().isEmpty())
        return {0, replacement.Fault()};
    const Replacement::Result result = replacement.All(m_editor.View(), m_editor.Caret());
    if (!result.fault.isEmpty())
        return {0, result.fault};
    if (ScriptEditor::LongestLine(result.utf8) > ScriptEditor::kLongestLine)
        return {0, QStringLiteral("Daría una línea de más de 1 MiB")};
    if (!m_editor.Reserve(result.utf8.size()))
        return {0, QStringLiteral("El texto sería demasiado grande")};
    PutIn(result.utf8, result.caret);
    Renew();
    return {result.count, {}};
}

// Replaces what lies between the first and the last hit by its counterpart in the new text.
void Finder::PutIn(const QByteArray& utf8, qsizetype caret) {
    const qsizetype from = m_hits.front().from;
    const qsizetype to = m_hits.back().to;
    const qsizetype rest = m_editor.Length() - to;
    const long shown = m_editor.Send(QsciScintilla::SCI_GETFIRSTVISIBLELINE);
    const LineMarkers markers(m_editor, m_editor.LineOf(from), m_editor.LineOf(to));
    m_editor.Replace(from, to, QByteArrayView(utf8).sliced(from, utf8.size() - rest - from));
    markers.PutBack();
    m_editor.Send(QsciScintilla::SCI_SETEMPTYSELECTION, caret);
    m_editor.Send(QsciScintilla::SCI_SETFIRSTVISIBLELINE, shown);
}

} // namespace documents
