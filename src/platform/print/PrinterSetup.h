// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QPrinter;

namespace platform {

/// Gives the printer the name, paper and margins chosen last in a dialog of this run. Does nothing
/// before the first choice.
void ApplyPrinterSetup(QPrinter& printer);
void KeepPrinterSetup(const QPrinter& printer);

/// The PDF file chosen last in the print dialog instead of a printer, for printing without a
/// dialog; empty for none.
QString PrinterFile();
void KeepPrinterFile(const QString& native);

} // namespace platform
