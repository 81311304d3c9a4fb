// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/rtf/TargetDevice.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QPaintDevice>
#include <QScreen>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace platform {

// The same as QTextDocumentLayout's own default, which is private.
double DocumentDotsPerInch() {
    const QScreen* screen = qGuiApp ? QGuiApplication::primaryScreen() : nullptr;
    return screen ? qRound(screen->logicalDotsPerInchY()) : 96;
}

void SetTargetDevice(QTextDocument& document, QPaintDevice& device) {
    const double factor = device.logicalDpiX() / DocumentDotsPerInch();
    document.documentLayout()->setPaintDevice(&device);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        if (format.leftMargin() == 0 && format.rightMargin() == 0 && format.textIndent() == 0)
            continue;
        format.setLeftMargin(format.leftMargin() * factor);
        format.setRightMargin(format.rightMargin() * factor);
        format.setTextIndent(format.textIndent() * factor);
        cursor.setPosition(block.position());
        cursor.setBlockFormat(format);
    }
    cursor.endEditBlock();
}

} // namespace platform
