// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace documents {

class ScriptEditor;

/// Whole lines above a line, as many as a key may look at: a block's opener may stand further up.
QByteArray LinesAbove(const ScriptEditor& editor, qsizetype line);

/// What the lines around this one are indented with, or else what the Tab key writes.
QByteArray IndentUnitAt(const ScriptEditor& editor, qsizetype line);
int Columns(const ScriptEditor& editor, const QByteArray& unit);

/// Selects, in view; the arrow keys go up and down in the caret's new column.
void PlaceCaret(ScriptEditor& editor, qsizetype anchor, qsizetype caret);

} // namespace documents
