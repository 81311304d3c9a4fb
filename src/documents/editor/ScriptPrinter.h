// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWidget;

namespace documents {

class ScriptEditor;

/// Shows the page set-up; the paper and margins chosen there hold for every print of this run.
void SetUpScriptPage(QWidget* owner);

/// Shows the print dialog, whose choice holds too, and prints the whole text unless it is
/// cancelled: in its colours, with wrapped lines and, at the head of each page, the title and the
/// page number. Fails if the printer can't be started.
void PrintScript(ScriptEditor& editor, const QString& title);

} // namespace documents
