// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/PrinterSetup.h"

#include <QPageLayout>
#include <QPrinter>
#include <optional>

namespace platform {
namespace {

struct Setup {
    QString printer; ///< empty: the desktop's own choice
    QPageLayout layout;
};

std::optional<Setup>& Chosen() {
    static std::optional<Setup> setup;
    return setup;
}

QString& File() {
    static QString file;
    return file;
}

} // namespace

void ApplyPrinterSetup(QPrinter& printer) {
    if (!Chosen())
        return;
    if (!Chosen()->printer.isEmpty())
        printer.setPrinterName(Chosen()->printer);
    printer.setPageLayout(Chosen()->layout);
}

void KeepPrinterSetup(const QPrinter& printer) {
    const bool file = !printer.outputFileName().isEmpty();
    Chosen() = Setup{file ? QString() : printer.printerName(), printer.pageLayout()};
}

QString PrinterFile() {
    return File();
}

void KeepPrinterFile(const QString& native) {
    File() = native;
}

} // namespace platform
