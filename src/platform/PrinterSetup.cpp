// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/PrinterSetup.h"

#include <QPageLayout>
#include <QPrinter>
#include <optional>

namespace platform {
namespace {

struct Setup {
    QString printer; ///< empty: the desktop's own choice
    QString file;    ///< of PDF, that is written instead; may be empty
    QPageLayout layout;
};

std::optional<Setup>& Chosen() {
    static std::optional<Setup> setup;
    return setup;
}

} // namespace

void ApplyPrinterSetup(QPrinter& printer) {
    if (!Chosen())
        return;
    if (!Chosen()->printer.isEmpty())
        printer.setPrinterName(Chosen()->printer);
    if (PrintsToFile()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(Chosen()->file);
    }
    printer.setPageLayout(Chosen()->layout);
}

void KeepPrinterSetup(const QPrinter& printer) {
    const QString file = printer.outputFileName();
    Chosen() =
        Setup{file.isEmpty() ? printer.printerName() : QString(), file, printer.pageLayout()};
}

bool PrintsToFile() {
    return Chosen() && !Chosen()->file.isEmpty();
}

} // namespace platform
