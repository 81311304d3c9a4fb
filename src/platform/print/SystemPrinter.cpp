// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/SystemPrinter.h"

#include "platform/base/Failure.h"
#include "platform/base/Seam.h"
#include "platform/base/Twips.h"
#include "platform/print/PrinterSetup.h"

#include <QFontMetricsF>
#include <QPrinterInfo>
#include <cmath>
#include <memory>
#include <utility>

namespace platform {
namespace {

Failure PrinterFailure(const QString& text) {
    return {FailureCode::Printer, QStringLiteral("Printer"), text};
}

std::unique_ptr<QPrinter> NewDevice() {
    auto device = std::make_unique<QPrinter>(QPrinter::HighResolution);
    device->setDocName(QStringLiteral("Quillmark"));
    ApplyPrinterSetup(*device);
    if (!PrinterFile().isEmpty()) {
        device->setOutputFormat(QPrinter::PdfFormat);
        device->setOutputFileName(PrinterFile());
    }
    return device;
}

std::unique_ptr<Printer> DesktopPrinter() {
    if (PrinterFile().isEmpty() && QPrinterInfo::availablePrinterNames().isEmpty())
        throw PrinterFailure(QStringLiteral("No hay ninguna impresora."));
    return std::make_unique<SystemPrinter>(NewDevice);
}

std::unique_ptr<QPrinter> Prepared(const DeviceFactory& factory) {
    std::unique_ptr<QPrinter> device = factory();
    device->setFullPage(false);
    QPageLayout layout = device->pageLayout();
    layout.setMargins(layout.minimumMargins());
    device->setPageLayout(layout);
    return device;
}

double DeviceToTwips(double pixels, int resolution) {
    return pixels * kTwipsPerInch / resolution;
}

int WholeTwips(int pixels, int resolution) {
    return static_cast<int>(std::lround(DeviceToTwips(pixels, resolution)));
}

} // namespace

Seam<PrinterFactory>& PrinterSeam() {
    static Seam<PrinterFactory> seam(&DesktopPrinter);
    return seam;
}

std::unique_ptr<Printer> CurrentPrinter() {
    return PrinterSeam().Current()();
}

SystemPrinter::SystemPrinter(DeviceFactory factory)
    : m_factory(std::move(factory)), m_device(Prepared(m_factory)) {}

SystemPrinter::~SystemPrinter() {
    if (m_painter.isActive())
        m_device->abort();
}

QRect SystemPrinter::Paper() const {
    return m_device->pageLayout().fullRectPixels(m_device->resolution());
}

QRect SystemPrinter::PrintableArea() const {
    return m_device->pageLayout().paintRectPixels(m_device->resolution());
}

int SystemPrinter::Width() const {
    return WholeTwips(Paper().width(), m_device->resolution());
}

int SystemPrinter::Height() const {
    return WholeTwips(Paper().height(), m_device->resolution());
}

int SystemPrinter::ScaleWidth() const {
    return WholeTwips(PrintableArea().width(), m_device->resolution());
}

int SystemPrinter::ScaleHeight() const {
    return WholeTwips(PrintableArea().height(), m_device->resolution());
}

int SystemPrinter::PhysicalOffsetX() const {
    return PrintableArea().left();
}

int SystemPrinter::PhysicalOffsetY() const {
    return PrintableArea().top();
}

double SystemPrinter::ScaleX(int pixels) const {
    return DeviceToTwips(pixels, m_device->logicalDpiX());
}

double SystemPrinter::ScaleY(int pixels) const {
    return DeviceToTwips(pixels, m_device->logicalDpiY());
}

void SystemPrinter::Font(const QString& name, double points) {
    m_font = QFont(name);
    m_font.setPointSizeF(points);
}

float SystemPrinter::TextWidth(const QString& text) const {
    const QFontMetricsF metrics(m_font, m_device.get());
    return static_cast<float>(
        DeviceToTwips(metrics.horizontalAdvance(text), m_device->logicalDpiX()));
}

float SystemPrinter::TextHeight(const QString&) const {
    const QFontMetricsF metrics(m_font, m_device.get());
    return static_cast<float>(DeviceToTwips(metrics.height(), m_device->logicalDpiY()));
}

void SystemPrinter::Print(const QString& text) {
    if (!m_painter.isActive() && !m_painter.begin(m_device.get()))
        throw PrinterFailure(QStringLiteral("La impresora no acepta el trabajo."));
    m_painter.setFont(m_font);
    m_painter.setPen(Qt::black);
    const QFontMetricsF metrics(m_font, m_device.get());
    const QPointF place(double{m_x} * m_device->logicalDpiX() / kTwipsPerInch,
                        double{m_y} * m_device->logicalDpiY() / kTwipsPerInch + metrics.ascent());
    if (!text.isEmpty())
        m_painter.drawText(place, text);
    m_x = 0;
    m_y += TextHeight(text);
}

void SystemPrinter::NewPage() {
    if (!m_device->newPage())
        throw PrinterFailure(QStringLiteral("La impresora no pasa a la página siguiente."));
    m_x = 0;
    m_y = 0;
}

void SystemPrinter::EndDoc() {
    if (!m_painter.end() || m_device->printerState() == QPrinter::Error)
        throw PrinterFailure(QStringLiteral("La impresora no ha terminado el trabajo."));
}

std::unique_ptr<QPaintDevice> SystemPrinter::CreateDC() const {
    return Prepared(m_factory);
}

} // namespace platform
