// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/BlockPairs.h"

#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/Layers.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/lua/Blocks.h"
#include "documents/editor/lua/Tokens.h"

#include <chrono>
#include <optional>

namespace documents {
namespace {

using Engine = QsciScintilla;

constexpr std::chrono::milliseconds kDelay(150);
constexpr qsizetype kLargestMarked = 1 << 20;
constexpr long kMarkColor = 0xC08030; // 0x00BBGGRR
constexpr long kMarkAlpha = 60;       // of 255
constexpr long kMarkEdge = 120;

std::optional<BlockMatch> MatchAtCaret(const ScriptEditor& editor) {
    const QByteArrayView text = editor.View();
    const Blocks blocks({text.data(), static_cast<std::size_t>(text.size())});
    return blocks.At(static_cast<std::size_t>(editor.Caret()));
}

} // namespace

BlockPairs::BlockPairs(ScriptEditor& editor, CommandSet& commands, QObject* parent)
    : QObject(parent), m_editor(editor) {
    editor.Send(Engine::SCI_INDICSETSTYLE, kPairIndicator, Engine::INDIC_STRAIGHTBOX);
    editor.Send(Engine::SCI_INDICSETFORE, kPairIndicator, kMarkColor);
    editor.Send(Engine::SCI_INDICSETALPHA, kPairIndicator, kMarkAlpha);
    editor.Send(Engine::SCI_INDICSETOUTLINEALPHA, kPairIndicator, kMarkEdge);
    editor.Send(Engine::SCI_INDICSETUNDER, kPairIndicator, 1);
    m_timer.setSingleShot(true);
    m_timer.setInterval(kDelay);
    connect(&m_timer, &QTimer::timeout, this, &BlockPairs::Mark);
    connect(&editor, &ScriptEditor::Edited, &m_timer, qOverload<>(&QTimer::start));
    connect(&editor, &ScriptEditor::Loaded, &m_timer, qOverload<>(&QTimer::start));
    connect(&editor, &QsciScintillaBase::SCN_UPDATEUI, this, &BlockPairs::Follow);
    commands.Add(Menu::Go, {QStringLiteral("&Otro extremo del bloque"),
                            {QKeySequence(Qt::CTRL | Qt::Key_B)},
                            [this] { Jump(); }});
}

void BlockPairs::Jump() {
    if (const std::optional<BlockMatch> match = MatchAtCaret(m_editor))
        m_editor.GoTo(static_cast<qsizetype>(match->other.begin));
}

// The marks themselves count as a change of the content.
void BlockPairs::Follow(int changes) {
    if ((changes & Engine::SC_UPDATE_SELECTION) != 0)
        m_timer.start();
}

// Spares the look at the whole text at all other places.
bool BlockPairs::IsAtKeyword() const {
    const auto edge = [this](unsigned int message) {
        return m_editor.Send(message, m_editor.Caret(), 1);
    };
    const QByteArray word =
        m_editor.Range(edge(Engine::SCI_WORDSTARTPOSITION), edge(Engine::SCI_WORDENDPOSITION));
    return IsKeyword({word.data(), static_cast<std::size_t>(word.size())});
}

void BlockPairs::Mark() {
    Unmark();
    if (m_editor.Length() > kLargestMarked || !IsAtKeyword())
        return;
    const std::optional<BlockMatch> match = MatchAtCaret(m_editor);
    m_marked = match.has_value();
    if (!match)
        return;
    Underlay(match->here);
    Underlay(match->other);
}

void BlockPairs::Underlay(const Span& span) {
    m_editor.Send(Engine::SCI_SETINDICATORCURRENT, kPairIndicator);
    m_editor.Send(Engine::SCI_INDICATORFILLRANGE, static_cast<qsizetype>(span.begin),
                  static_cast<qsizetype>(span.end - span.begin));
}

void BlockPairs::Unmark() {
    if (!m_marked)
        return;
    m_editor.Send(Engine::SCI_SETINDICATORCURRENT, kPairIndicator);
    m_editor.Send(Engine::SCI_INDICATORCLEARRANGE, 0, m_editor.Length());
    m_marked = false;
}

} // namespace documents
