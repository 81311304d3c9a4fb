// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QPrinter;

namespace platform {

/// The printer, or the PDF file in its place, paper and margins that were chosen last in a dialog;
/// they hold for every print of this run. Nothing happens before the first choice.
void ApplyPrinterSetup(QPrinter& printer);
void KeepPrinterSetup(const QPrinter& printer);
/// Whether a PDF file was chosen, which needs no printer.
bool PrintsToFile();

} // namespace platform
