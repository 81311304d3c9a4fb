// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QPrinter;

namespace platform {

/// The printer, paper and margins that were chosen last in a dialog; they hold for every print of
/// this run. Nothing happens before the first choice.
void ApplyPrinterSetup(QPrinter& printer);
void KeepPrinterSetup(const QPrinter& printer);

/// The PDF file that the print dialog chose last in a printer's place, for what is printed without
/// a dialog; empty for none.
QString PrinterFile();
void KeepPrinterFile(const QString& native);

} // namespace platform
