// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/lua/CallContext.h"

#include <QtGlobal>

namespace documents {

class ScriptEditor;

/// What stands around a place of the editor's text, as far as some 64 KiB before it tell.
/// CallContext::open is a place of the whole text.
CallContext ContextAt(const ScriptEditor& editor, qsizetype place);

/// Of the end of the name that is at the place, which may be anywhere in the name.
CallContext ContextOfName(const ScriptEditor& editor, qsizetype place);

} // namespace documents
