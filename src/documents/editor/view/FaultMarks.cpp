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

long Send(const ScriptEditor& editor, unsigned int message, qsizetype first, long second = 0) {
    return editor.SendScintilla(message, static_cast<unsigned long>(first), second);
}

} // namespace

FaultMarks::FaultMarks(ScriptEditor& editor) : m_editor(editor) {
    Send(editor, Engine::SCI_INDICSETSTYLE, kFaultIndicator, Engine::INDIC_SQUIGGLE);
    Send(editor, Engine::SCI_INDICSETFORE, kFaultIndicator, kFaultColor);
    for (const auto& [marker, color] :
         {std::pair(kFaultMarker, kFaultColor), {kOpenerMarker, kOpenerColor}}) {
        Send(editor, Engine::SCI_MARKERDEFINE, marker, Engine::SC_MARK_FULLRECT);
        Send(editor, Engine::SCI_MARKERSETFORE, marker, color);
        Send(editor, Engine::SCI_MARKERSETBACK, marker, color);
        Send(editor, Engine::SCI_MARKERSETALPHA, marker); // without a margin it colours no line
    }
    const long shown = Send(editor, Engine::SCI_GETMARGINMASKN, kLeftMargin);
    Send(editor, Engine::SCI_SETMARGINMASKN, kLeftMargin, shown | kBars);
}

void FaultMarks::Set(const Fault& fault) {
    const auto begin = static_cast<qsizetype>(fault.begin);
    Send(m_editor, Engine::SCI_SETINDICATORCURRENT, kFaultIndicator);
    Send(m_editor, Engine::SCI_INDICATORFILLRANGE, begin,
         static_cast<long>(fault.end - fault.begin));
    Send(m_editor, Engine::SCI_MARKERADD, m_editor.LineOf(begin), kFaultMarker);
    if (fault.otherLine > 0)
        Send(m_editor, Engine::SCI_MARKERADD, static_cast<qsizetype>(fault.otherLine - 1),
             kOpenerMarker);
}

void FaultMarks::Clear() {
    Send(m_editor, Engine::SCI_SETINDICATORCURRENT, kFaultIndicator);
    Send(m_editor, Engine::SCI_INDICATORCLEARRANGE, 0, static_cast<long>(m_editor.Length()));
    Send(m_editor, Engine::SCI_MARKERDELETEALL, kFaultMarker);
    Send(m_editor, Engine::SCI_MARKERDELETEALL, kOpenerMarker);
}

bool FaultMarks::IsUnderlined(qsizetype position) const {
    return Send(m_editor, Engine::SCI_INDICATORVALUEAT, kFaultIndicator,
                static_cast<long>(position)) != 0;
}

qsizetype FaultMarks::PlaceIn(qsizetype line) const {
    const qsizetype start = m_editor.LineStart(line);
    const qsizetype underline =
        IsUnderlined(start)
            ? start
            : Send(m_editor, Engine::SCI_INDICATOREND, kFaultIndicator, static_cast<long>(start));
    return IsUnderlined(underline) && m_editor.LineOf(underline) == line
               ? underline
               : Send(m_editor, Engine::SCI_GETLINEINDENTPOSITION, line);
}

qsizetype FaultMarks::Search(unsigned int message, qsizetype from) const {
    return Send(m_editor, message, from, kBars);
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
        Send(m_editor, Engine::SCI_CHARPOSITIONFROMPOINTCLOSE, place.x(), place.y());
    return position >= 0 && (IsUnderlined(position) || IsUnderlined(position + 1) ||
                             (position > 0 && IsUnderlined(position - 1)));
}

bool FaultMarks::IsBeside(const QPoint& place) const {
    const qsizetype position = Send(m_editor, Engine::SCI_POSITIONFROMPOINT, place.x(), place.y());
    const int width = m_editor.marginWidth(kLineNumberMargin) + m_editor.marginWidth(kLeftMargin);
    return place.x() < width &&
           (Send(m_editor, Engine::SCI_MARKERGET, m_editor.LineOf(position)) & kBars) != 0;
}

} // namespace documents
