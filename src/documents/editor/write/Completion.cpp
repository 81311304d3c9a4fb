// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/write/Completion.h"

#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/EditStep.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/lua/Offers.h"
#include "documents/editor/write/ContextAt.h"
#include "documents/editor/write/Suggestions.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace documents {
namespace {

using Engine = QsciScintillaBase;

constexpr size_t kFirstLetters = 2; // before a list comes by itself
constexpr qsizetype kNamesAround = 256 << 10;
constexpr int kRows = 8;
constexpr char kBetween = '\n';

bool IsLetter(int character) {
    const char byte = static_cast<char>(character);
    return character > 0 && character < 0x80 && NameAtEnd({&byte, 1}) == 1;
}

// A call that is known, or anything after a colon; a field may have any name.
bool IsLinked(const CallContext& context) {
    return context.link == ':' || (context.link == '.' && !context.library.empty());
}

std::string Joined(const std::vector<std::string>& offers) {
    std::string list;
    for (const std::string& offer : offers)
        list.append(list.empty() ? 0 : 1, kBetween).append(offer);
    return list;
}

} // namespace

Completion::Completion(ScriptEditor& editor, CommandSet& commands, QObject* parent)
    : QObject(parent), m_editor(editor) {
    SetUp();
    FollowSuggestions(*this, m_byItself);
    editor.installEventFilter(this);
    connect(&editor, &Engine::SCN_CHARADDED, this, &Completion::Typed);
    connect(&editor, &Engine::SCN_AUTOCCHARDELETED, this, &Completion::Deleted);
    commands.Add(
        Menu::Help,
        {QStringLiteral("&Completar la palabra"), {QKeySequence(Qt::CTRL | Qt::Key_Space)}, [this] {
             m_editor.ensureCursorVisible();
             Offer(0, true);
         }});
    commands.Add(Menu::Help, {QStringLiteral("&Sugerencias al escribir"),
                              {},
                              [] { SuggestionsOn(!SuggestionsOn()); },
                              [] { return SuggestionsOn(); }});
}

void Completion::SetUp() {
    struct Row {
        unsigned int message;
        int value;
    };
    constexpr std::array kRowsOfSettings = {
        Row{Engine::SCI_AUTOCSETSEPARATOR, kBetween},
        Row{Engine::SCI_AUTOCSETIGNORECASE, 1},
        Row{Engine::SCI_AUTOCSETORDER, Engine::SC_ORDER_CUSTOM},
        Row{Engine::SCI_AUTOCSETCANCELATSTART, 0},
        Row{Engine::SCI_AUTOCSETCHOOSESINGLE, 0},
        Row{Engine::SCI_AUTOCSETMAXHEIGHT, kRows},
    };
    for (const auto& [message, value] : kRowsOfSettings)
        m_editor.Send(message, value);
}

bool Completion::IsOpen() const {
    return m_editor.Send(Engine::SCI_AUTOCACTIVE) != 0;
}

void Completion::Take() {
    const EditStep step(m_editor);
    m_editor.Send(Engine::SCI_AUTOCCOMPLETE);
}

void Completion::Close() {
    m_editor.Send(Engine::SCI_AUTOCCANCEL);
}

void Completion::Typed(int character) {
    if (IsLetter(character) ? m_byItself || IsOpen()
                            : m_byItself && (character == '.' || character == ':'))
        Offer(IsOpen() ? 1 : kFirstLetters, false);
    else
        Close();
}

void Completion::Deleted() {
    Offer(1, false);
}

// By itself only for so many letters of a word, or after a link that says what follows.
void Completion::Offer(size_t leastLetters, bool asked) {
    if (!asked && IsBeforeName()) // in the midst of a name only if it's asked for
        return Close();
    const CallContext context = ContextAt(m_editor, m_editor.Caret());
    const bool due = asked || IsLinked(context) || context.word.size() >= leastLetters;
    const std::vector<std::string> offers =
        context.isCode && due ? OffersFor(context) : std::vector<std::string>();
    const bool whole = std::find(offers.begin(), offers.end(), context.word) != offers.end();
    m_chosen = false;
    if (offers.empty() || (whole && !asked) || !IsOnScreen(context.word.size()))
        Close();
    else
        m_editor.SendScintilla(Engine::SCI_AUTOCSHOW, context.word.size(), Joined(offers).c_str());
}

// The engine ends the program if the list would begin outside of all screens.
bool Completion::IsOnScreen(size_t letters) const {
    const long start = m_editor.Caret() - static_cast<long>(letters);
    const QPoint place(
        static_cast<int>(m_editor.SendScintilla(Engine::SCI_POINTXFROMPOSITION, 0UL, start)),
        static_cast<int>(m_editor.SendScintilla(Engine::SCI_POINTYFROMPOSITION, 0UL, start)));
    return QGuiApplication::screenAt(m_editor.viewport()->mapToGlobal(place)) != nullptr;
}

std::vector<std::string> Completion::OffersFor(const CallContext& context) const {
    const qsizetype caret = m_editor.Caret();
    const qsizetype from = std::max<qsizetype>(caret - kNamesAround, 0);
    const QByteArray around =
        m_editor.Range(from, std::min(caret + kNamesAround, m_editor.Length()));
    return OffersAt(context, {around.constData(), static_cast<size_t>(around.size())},
                    static_cast<size_t>(caret - from));
}

bool Completion::IsBeforeName() const {
    const qsizetype caret = m_editor.Caret();
    const QByteArray next = m_editor.Range(caret, std::min(caret + 1, m_editor.Length()));
    return NameAtStart({next.constData(), static_cast<size_t>(next.size())}) > 0;
}

bool Completion::eventFilter(QObject* watched, QEvent* event) {
    const bool asks = event->type() == QEvent::ShortcutOverride;
    if ((!asks && event->type() != QEvent::KeyPress) || !IsOpen())
        return QObject::eventFilter(watched, event);
    auto* const key = static_cast<QKeyEvent*>(event);
    constexpr std::array kOwn = {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Enter,  Qt::Key_Escape,
                                 Qt::Key_Up,  Qt::Key_Down,   Qt::Key_PageUp, Qt::Key_PageDown};
    if (std::find(kOwn.begin(), kOwn.end(), key->key()) == kOwn.end() ||
        key->modifiers() != Qt::NoModifier)
        return QObject::eventFilter(watched, event);
    if (!asks)
        return TakesKey(*key);
    event->accept(); // no shortcut then
    return true;
}

bool Completion::TakesKey(const QKeyEvent& key) {
    switch (key.key()) {
    case Qt::Key_Tab:
        Take();
        return true;
    case Qt::Key_Escape:
        Close();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_chosen ? Take() : Close();
        return m_chosen;
    default:
        m_chosen = true;
        return false;
    }
}

} // namespace documents
