// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/RichTextBox.h"

#include "platform/base/Failure.h"
#include "platform/files/Files.h"
#include "platform/files/TextFile.h"
#include "platform/print/RichText.h"
#include "platform/rtf/RtfReader.h"
#include "platform/text/NativeNames.h"
#include "platform/text/TextEncoding.h"

namespace platform {

RichTextBox::RichTextBox(QWidget* parent)
    : QTextEdit(parent), m_plainOption(document()->defaultTextOption()) {
    setTabChangesFocus(true);
    QPalette paper = palette(); // white like paper, also with a dark theme
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, Qt::black);
    setPalette(paper);
}

void RichTextBox::LoadFile(const QString& path) {
    const QByteArray bytes = ReadFile(path);
    const RtfResult result = ReadRtf(bytes, *document());
    if (result == RtfResult::NotRtf)
        LoadPlainText(ReadTextFile(path).utf8);
    moveCursor(QTextCursor::Start);
    if (result == RtfResult::Truncated || result == RtfResult::TooDeep)
        throw Failure(FailureCode::InvalidText, QStringLiteral("RichTextBox"),
                      QStringLiteral("El archivo \"%1\" está dañado o incompleto: se muestra lo "
                                     "que se ha podido leer.")
                          .arg(DisplayText(path)));
}

void RichTextBox::LoadPlainText(const QByteArray& utf8) {
    clear();
    setCurrentCharFormat({});
    document()->setDefaultTextOption(m_plainOption);
    setPlainText(FromUtf8(utf8));
}

QString RichTextBox::Text() const {
    return toPlainText();
}

void RichTextBox::SetTargetDevice(QPaintDevice& device, int lineWidth) {
    m_formatter.LayOut(*document(), device, lineWidth);
}

qsizetype RichTextBox::Format(const FormatRange& range) {
    m_formatter.LayOut(*document(), *range.hdcTarget, range.rc.width());
    return m_formatter.Render(range);
}

void RichTextBox::ReleaseFormat() {
    m_formatter.Release();
}

} // namespace platform
