// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/FaultMarks.h"

#include "documents/editor/engine/Layers.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/lua/ScriptCheck.h"

#include <QPoint>
#include <utility>

namespace documents {
namespace {

using Engine = QsciScintilla;

// 0x00BBGGRR; seen on light and on dark paper.
constexpr long kFaultColor = 0x3030E8;
constexpr long kOpenerColor = 0x30A0F0;
constexpr long kBars = 1L << kFaultMarker | 1L << kOpenerMarker;

} // namespace

FaultMarks::FaultMarks(ScriptEditor& editor) : m_editor(editor) {
    editor.Send(Engine::SCI_INDICSETSTYLE, kFaultIndicator, Engine::INDIC_SQUIGGLE);
    editor.Send(Engine::SCI_INDICSETFORE, kFaultIndicator, kFaultColor);
    for (const auto& [marker, color] :
         {std::pair(kFaultMarker, kFaultColor), {kOpenerMarker, kOpenerColor}}) {
        editor.Send(Engine::SCI_MARKERDEFINE, marker, Engine::SC_MARK_FULLRECT);
        editor.Send(Engine::SCI_MARKERSETFORE, marker, color);
        editor.Send(Engine::SCI_MARKERSETBACK, marker, color);
        editor.Send(Engine::SCI_MARKERSETALPHA, marker); // without a margin it colours no line
    }
    const long shown = editor.Send(Engine::SCI_GETMARGINMASKN, kLeftMargin);
    editor.Send(Engine::SCI_SETMARGINMASKN, kLeftMargin, shown | kBars);
}

void FaultMarks::Set(const Fault& fault) {
    const auto begin = static_cast<qsizetype>(fault.begin);
    m_editor.Send(Engine::SCI_SETINDICATORCURRENT, kFaultIndicator);
    m_editor.Send(Engine::SCI_INDICATORFILLRANGE, begin,
                  static_cast<qsizetype>(fault.end - fault.begin));
    m_editor.Send(Engine::SCI_MARKERADD, m_editor.LineOf(begin), kFaultMarker);
    if (fault.otherLine > 0)
        m_editor.Send(Engine::SCI_MARKERADD, static_cast<qsizetype>(fault.otherLine - 1),
                      kOpenerMarker);
}

void FaultMarks::Clear() {
    m_editor.Send(Engine::SCI_SETINDICATORCURRENT, kFaultIndicator);
    m_editor.Send(Engine::SCI_INDICATORCLEARRANGE, 0, m_editor.Length());
    m_editor.Send(Engine::SCI_MARKERDELETEALL, kFaultMarker);
    m_editor.Send(Engine::SCI_MARKERDELETEALL, kOpenerMarker);
}

bool FaultMarks::IsUnderlined(qsizetype position) const {
    return m_editor.Send(Engine::SCI_INDICATORVALUEAT, kFaultIndicator, position) != 0;
}

qsizetype FaultMarks::PlaceIn(qsizetype line) const {
    const qsizetype start = m_editor.LineStart(line);
    const qsizetype underline =
        IsUnderlined(start) ? start
                            : m_editor.Send(Engine::SCI_INDICATOREND, kFaultIndicator, start);
    return IsUnderlined(underline) && m_editor.LineOf(underline) == line
               ? underline
               : m_editor.Send(Engine::SCI_GETLINEINDENTPOSITION, line);
}

qsizetype FaultMarks::Search(unsigned int message, qsizetype from) const {
    return m_editor.Send(message, from, kBars);
}

qsizetype FaultMarks::LineBelow() const {
    const qsizetype below = Search(Engine::SCI_MARKERNEXT, m_editor.LineOf(m_editor.Caret()) + 1);
    return below < 0 ? Search(Engine::SCI_MARKERNEXT, 0) : below;
}

qsizetype FaultMarks::LineAbove() const {
    const qsizetype line = m_editor.LineOf(m_editor.Caret());
    const qsizetype above = line == 0 ? -1 : Search(Engine::SCI_MARKERPREVIOUS, line - 1);
    return above < 0 ? Search(Engine::SCI_MARKERPREVIOUS, m_editor.lines() - 1) : above;
}

// A character beside it will do: often it is a single one.
bool FaultMarks::IsAt(const QPoint& place) const {
    const qsizetype position =
        m_editor.Send(Engine::SCI_CHARPOSITIONFROMPOINTCLOSE, place.x(), place.y());
    return position >= 0 && (IsUnderlined(position) || IsUnderlined(position + 1) ||
                             (position > 0 && IsUnderlined(position - 1)));
}

bool FaultMarks::IsBeside(const QPoint& place) const {
    const qsizetype position = m_editor.Send(Engine::SCI_POSITIONFROMPOINT, place.x(), place.y());
    const int width = m_editor.marginWidth(kLineNumberMargin) + m_editor.marginWidth(kLeftMargin);
    return place.x() < width &&
           (m_editor.Send(Engine::SCI_MARKERGET, m_editor.LineOf(position)) & kBars) != 0;
}

} // namespace documents
