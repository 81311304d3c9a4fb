// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <optional>

namespace documents {

struct Call;
class ScriptEditor;

/// The box over the text that tells how a call is written and what it does. An editor has one box,
/// which also closes by itself.
class CallTip {
public:
    explicit CallTip(ScriptEditor& editor) : m_editor(editor) {}

    /// At a place of the text, one parameter set off. An open list closes.
    void Show(qsizetype place, const Call& call, bool asMethod, std::optional<size_t> parameter);
    void Hide();
    bool IsShown() const;

private:
    void UseColors();

    ScriptEditor& m_editor;
};

} // namespace documents
