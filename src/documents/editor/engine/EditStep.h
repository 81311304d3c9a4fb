// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/engine/ScriptEditor.h"

namespace documents {

/// All changes of the text while it lives are one undo step and one ScriptEditor::Edited. They
/// nest.
class EditStep {
public:
    explicit EditStep(ScriptEditor& editor) : m_editor(editor) { m_editor.BeginStep(); }
    ~EditStep() { m_editor.EndStep(); }
    EditStep(const EditStep&) = delete;
    EditStep& operator=(const EditStep&) = delete;

private:
    ScriptEditor& m_editor;
};

} // namespace documents
