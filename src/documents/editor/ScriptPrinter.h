// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWidget;

namespace documents {

class ScriptEditor;

/// Shows the page set-up; the paper and margins chosen there hold for every print of this run.
void SetUpScriptPage(QWidget* owner);

/// Shows the print dialog, whose choice holds as well, and, if the user goes on, prints the whole
/// text in its colours, with the lines wrapped, the title at the head of each page and the page
/// number beside it. Fails if the printer can't be started.
void PrintScript(ScriptEditor& editor, const QString& title);

} // namespace documents
