// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/RichTextBox.h"

#include "platform/TextEncoding.h"

namespace platform {

RichTextBox::RichTextBox(QWidget* parent) : QTextEdit(parent) {
    setAcceptRichText(true);
    setTabChangesFocus(true);
}

void RichTextBox::LoadFile(const QString& path) {
    setPlainText(FromUtf8(ReadTextFile(path).utf8));
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
