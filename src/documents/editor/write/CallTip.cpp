// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/write/CallTip.h"

#include "documents/editor/engine/LuaStyles.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/lua/Calls.h"

#include <QPoint>
#include <QRect>
#include <QScreen>
#include <algorithm>
#include <limits>
#include <string>
#include <string_view>

namespace documents {
namespace {

using Engine = QsciScintillaBase;

constexpr size_t kMostColumns = 72;
constexpr size_t kLeastColumns = 24;
constexpr int kFramePixels = 12;
constexpr int kTipStyle = Engine::STYLE_CALLTIP;

// In lines of at most so many bytes, as far as the words allow.
std::string Wrapped(std::string_view text, size_t columns) {
    std::string lines;
    while (text.size() > columns) {
        const size_t cut = text.rfind(' ', columns);
        if (cut == std::string_view::npos)
            break;
        lines.append("\n").append(text.substr(0, cut));
        text.remove_prefix(cut + 1);
    }
    return lines.append("\n").append(text);
}

long Width(const ScriptEditor& editor, const std::string& text) {
    return editor.SendScintilla(Engine::SCI_TEXTWIDTH, kTipStyle, text.c_str());
}

// Between a place that is seen and the right edge of the screen.
long Room(const ScriptEditor& editor, qsizetype place) {
    const int x = static_cast<int>(editor.Send(Engine::SCI_POINTXFROMPOSITION, 0, place));
    return editor.screen()->availableGeometry().right() - kFramePixels -
           editor.viewport()->mapToGlobal(QPoint(x, 0)).x();
}

// The place in the line of another that is so far to its left, or the first one seen.
qsizetype PlaceLeftOf(const ScriptEditor& editor, qsizetype place, long pixels) {
    const long x = editor.Send(Engine::SCI_POINTXFROMPOSITION, 0, place) - pixels;
    const long y = editor.Send(Engine::SCI_POINTYFROMPOSITION, 0, place);
    return editor.Send(Engine::SCI_POSITIONFROMPOINT, std::max(0L, x), y);
}

size_t Columns(const ScriptEditor& editor, qsizetype place) {
    const qsizetype first = PlaceLeftOf(editor, place, std::numeric_limits<int>::max());
    const long most = Room(editor, first) / Width(editor, "0");
    return static_cast<size_t>(std::clamp<long>(most, kLeastColumns, kMostColumns));
}

// Where all of the tip is on the screen, if that can be.
qsizetype PlaceWithRoom(const ScriptEditor& editor, qsizetype place, const std::string& tip) {
    long widest = 0;
    for (size_t start = 0, end = 0; end != std::string::npos; start = end + 1) {
        end = tip.find('\n', start);
        widest = std::max(widest, Width(editor, tip.substr(start, end - start)));
    }
    const long lacking = widest - Room(editor, place);
    return lacking > 0 ? PlaceLeftOf(editor, place, lacking) : place;
}

} // namespace

void CallTip::UseColors() {
    const auto color = [this](unsigned int message, int style) {
        return m_editor.Send(message, style);
    };
    const long paper = color(Engine::SCI_STYLEGETBACK, Engine::STYLE_DEFAULT);
    const long ink = color(Engine::SCI_STYLEGETFORE, 0);
    const long parameter = color(Engine::SCI_STYLEGETFORE, kKeyword);
    m_editor.Send(Engine::SCI_CALLTIPUSESTYLE);
    m_editor.Send(Engine::SCI_STYLESETBACK, kTipStyle, paper);
    m_editor.Send(Engine::SCI_STYLESETFORE, kTipStyle, ink);
    m_editor.Send(Engine::SCI_CALLTIPSETFOREHLT, parameter);
    m_editor.Send(Engine::SCI_CALLTIPSETPOSITION, 1); // above the line
}

void CallTip::Show(qsizetype place, const Call& call, bool asMethod,
                   std::optional<size_t> parameter) {
    const Signature signature = SignatureOf(call, asMethod);
    UseColors();
    const std::string tip = signature.text + Wrapped(call.sentence, Columns(m_editor, place));
    m_editor.SendScintilla(Engine::SCI_CALLTIPSHOW,
                           static_cast<unsigned long>(PlaceWithRoom(m_editor, place, tip)),
                           tip.c_str());
    if (!parameter || signature.parameters.empty())
        return;
    // The last one may stand for many.
    const auto& [from, to] =
        signature.parameters[std::min(*parameter, signature.parameters.size() - 1)];
    m_editor.Send(Engine::SCI_CALLTIPSETHLT, static_cast<qsizetype>(from),
                  static_cast<qsizetype>(to));
}

void CallTip::Hide() {
    m_editor.Send(Engine::SCI_CALLTIPCANCEL);
}

bool CallTip::IsShown() const {
    return m_editor.Send(Engine::SCI_CALLTIPACTIVE) != 0;
}

} // namespace documents
