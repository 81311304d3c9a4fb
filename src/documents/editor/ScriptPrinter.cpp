// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/ScriptPrinter.h"

#include "documents/editor/engine/ScriptEditor.h"
#include "platform/base/Failure.h"
#include "platform/forms/Dialogs.h"
#include "platform/print/PrinterSetup.h"

#include <QPainter>
#include <Qsci/qsciprinter.h>
#include <utility>

namespace documents {
namespace {

using platform::CurrentDialogs;

constexpr int kHeaderPoints = 9;

class ScriptPrinter : public QsciPrinter {
public:
    explicit ScriptPrinter(QString title = {}) : m_title(std::move(title)) {
        setWrapMode(QsciScintilla::WrapWord);
        setDocName(m_title);
        platform::ApplyPrinterSetup(*this);
    }

    void formatPage(QPainter& painter, bool drawing, QRect& area, int page) override {
        painter.save();
        painter.setFont(QFont(QStringLiteral("Courier New"), kHeaderPoints));
        painter.setPen(Qt::black);
        const QFontMetrics metrics(painter.font(), this);
        const QRect line(area.left(), area.top(), area.width(), metrics.height());
        const QString number = QStringLiteral("Página %1").arg(page);
        const int room =
            area.width() - metrics.horizontalAdvance(number) - metrics.averageCharWidth();
        if (drawing) {
            painter.drawText(line, Qt::AlignLeft,
                             metrics.elidedText(m_title, Qt::ElideMiddle, room));
            painter.drawText(line, Qt::AlignRight, number);
            painter.drawLine(line.bottomLeft(), line.bottomRight());
        }
        area.setTop(area.top() + metrics.height() * 3 / 2);
        painter.restore();
    }

private:
    QString m_title;
};

} // namespace

void SetUpScriptPage(QWidget* owner) {
    ScriptPrinter printer;
    if (CurrentDialogs().SetUpPage(printer, owner))
        platform::KeepPrinterSetup(printer);
}

void PrintScript(ScriptEditor& editor, const QString& title) {
    ScriptPrinter printer(title);
    if (!CurrentDialogs().SetUpPrint(printer, editor.window()))
        return;
    platform::KeepPrinterSetup(printer);
    platform::KeepPrinterFile(printer.outputFileName());
    QPainter painter;
    const bool begun = painter.begin(&printer);
    if (begun && editor.length() > 0)
        printer.printRange(&editor, painter);
    if (!begun || !painter.end() || printer.printerState() == QPrinter::Error)
        throw platform::Failure(platform::FailureCode::PathFileAccess, QStringLiteral("CodeMax"),
                                QStringLiteral("No se puede imprimir \"%1\".").arg(title));
}

} // namespace documents
