// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QPrinter;

namespace platform {

/// The printer, paper and margins that were chosen last in a dialog; they hold for every print of
/// this run. Nothing happens before the first choice.
void ApplyPrinterSetup(QPrinter& printer);
void KeepPrinterSetup(const QPrinter& printer);

} // namespace platform
