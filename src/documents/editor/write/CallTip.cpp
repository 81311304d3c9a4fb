// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/write/CallTip.h"

#include "documents/editor/engine/LuaStyles.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/lua/Calls.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace documents {
namespace {

using Engine = QsciScintillaBase;

constexpr size_t kColumns = 72;
constexpr int kTipStyle = Engine::STYLE_CALLTIP;

// In lines of at most kColumns bytes, as far as the words allow.
std::string Wrapped(std::string_view text) {
    std::string lines;
    while (text.size() > kColumns) {
        const size_t cut = text.rfind(' ', kColumns);
        if (cut == std::string_view::npos)
            break;
        lines.append("\n").append(text.substr(0, cut));
        text.remove_prefix(cut + 1);
    }
    return lines.append("\n").append(text);
}

} // namespace

void CallTip::UseColors() {
    const auto color = [this](unsigned int message, int style) {
        return m_editor.Send(message, style);
    };
    const long paper = color(Engine::SCI_STYLEGETBACK, Engine::STYLE_DEFAULT);
    const long ink = color(Engine::SCI_STYLEGETFORE, Engine::STYLE_DEFAULT);
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
    m_editor.SendScintilla(Engine::SCI_CALLTIPSHOW, static_cast<unsigned long>(place),
                           (signature.text + Wrapped(call.sentence)).c_str());
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
