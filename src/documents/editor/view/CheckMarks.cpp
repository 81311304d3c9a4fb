// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/CheckMarks.h"

#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/ScriptEditor.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <chrono>
#include <string>
#include <utility>

namespace documents {
namespace {

constexpr std::chrono::milliseconds kDelay(400);
constexpr QPoint kNear(40, 20); // the mouse may move so far without hiding what is told

bool IsTooLarge(const ScriptEditor& editor) {
    return static_cast<std::size_t>(editor.Length()) > kLargestChecked;
}

std::optional<Fault> FaultOf(const ScriptEditor& editor) {
    if (IsTooLarge(editor))
        return {};
    const QByteArrayView text = editor.View();
    return Check({text.data(), static_cast<std::size_t>(text.size())});
}

QStringList Sentences(const Fault& fault) {
    QStringList sentences;
    for (const std::string& text : {fault.message, fault.hint}) {
        if (!text.empty())
            sentences.append(QString::fromStdString(text) + u'.');
    }
    return sentences;
}

QString InOneLine(const std::optional<Fault>& fault) {
    return fault ? QStringLiteral("línea %1: ").arg(fault->line) + Sentences(*fault).join(u' ')
                 : QString();
}

} // namespace

CheckMarks::CheckMarks(ScriptEditor& editor, CommandSet& commands, QObject* parent)
    : QObject(parent), m_editor(editor), m_marks(editor) {
    m_timer.setSingleShot(true);
    m_timer.setInterval(kDelay);
    connect(&m_timer, &QTimer::timeout, this, &CheckMarks::CheckIfIdle);
    connect(&editor, &ScriptEditor::Edited, &m_timer, qOverload<>(&QTimer::start));
    connect(&editor, &ScriptEditor::Loaded, this, [this] {
        Show({});
        m_timer.start();
    });
    connect(&editor, &QsciScintillaBase::SCN_UPDATEUI, this, [this](int changes) {
        if (m_waiting && (changes & QsciScintilla::SC_UPDATE_SELECTION) != 0)
            m_timer.start();
    });
    editor.viewport()->installEventFilter(this);
    commands.Add(Menu::Go, {QStringLiteral("&Error siguiente"), {QKeySequence(Qt::Key_F8)}, [this] {
                                CheckNow();
                                GoTo(m_marks.LineBelow());
                            }});
    commands.Add(
        Menu::Go,
        {QStringLiteral("Error &anterior"), {QKeySequence(Qt::SHIFT | Qt::Key_F8)}, [this] {
             CheckNow();
             GoTo(m_marks.LineAbove());
         }});
}

void CheckMarks::GoToFault() {
    CheckNow();
    if (m_fault)
        GoTo(m_editor.LineOf(static_cast<qsizetype>(m_fault->begin)));
}

void CheckMarks::CheckNow() {
    m_timer.stop();
    m_waiting = false;
    Show(FaultOf(m_editor));
}

void CheckMarks::CheckIfIdle() {
    if (m_editor.isListActive()) // what is being chosen there belongs to the script too
        return m_timer.start();
    std::optional<Fault> fault = FaultOf(m_editor);
    m_waiting = fault && IsBeingTyped(*fault);
    if (!m_waiting)
        Show(std::move(fault));
}

// Whether the fault is the first word of its line, with the caret at its end.
bool CheckMarks::IsBeingTyped(const Fault& fault) const {
    const auto begin = static_cast<qsizetype>(fault.begin);
    const qsizetype start = m_editor.LineStart(m_editor.LineOf(begin));
    return m_editor.Caret() == static_cast<qsizetype>(fault.end) &&
           m_editor.Range(start, begin).trimmed().isEmpty();
}

void CheckMarks::Show(std::optional<Fault> fault) {
    if (!fault && !m_fault)
        return;
    const QString before = InOneLine(m_fault);
    m_fault = std::move(fault);
    m_marks.Clear();
    if (m_fault)
        m_marks.Set(*m_fault);
    if (InOneLine(m_fault) != before)
        Q_EMIT FaultChanged(InOneLine(m_fault));
}

void CheckMarks::GoTo(qsizetype line) {
    if (line >= 0)
        m_editor.GoTo(m_marks.PlaceIn(line));
    const qsizetype caret = m_editor.Caret();
    const long below = m_editor.Send(QsciScintilla::SCI_TEXTHEIGHT);
    const long x = m_editor.Send(QsciScintilla::SCI_POINTXFROMPOSITION, 0, caret);
    const long y = m_editor.Send(QsciScintilla::SCI_POINTYFROMPOSITION, 0, caret);
    TellAt({static_cast<int>(x), static_cast<int>(y + below)});
}

void CheckMarks::TellAt(const QPoint& place) {
    const QString noFault =
        IsTooLarge(m_editor) ? QStringLiteral("El script es demasiado largo para mirarlo entero.")
                             : QStringLiteral("Lua entiende el script: no tiene errores.");
    const QString text = m_fault ? Sentences(*m_fault).join(u'\n').toHtmlEscaped() : noFault;
    QToolTip::showText(m_editor.viewport()->mapToGlobal(place),
                       QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text),
                       m_editor.viewport(), QRect(place - kNear, place + kNear));
}

bool CheckMarks::eventFilter(QObject* watched, QEvent* event) {
    if (!m_fault)
        return false;
    if (event->type() == QEvent::ToolTip) {
        const QPoint place = static_cast<QHelpEvent*>(event)->pos();
        if (m_marks.IsAt(place) || m_marks.IsBeside(place)) {
            TellAt(place);
            return true;
        }
    } else if (event->type() == QEvent::MouseButtonPress) {
        const auto* press = static_cast<QMouseEvent*>(event);
        if (press->button() == Qt::LeftButton && m_marks.IsBeside(press->position().toPoint())) {
            GoToFault();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace documents
