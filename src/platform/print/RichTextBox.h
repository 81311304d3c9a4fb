// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/print/DocumentFormatter.h"
#include "platform/print/RichText.h"

#include <QTextEdit>
#include <QTextOption>

namespace platform {

/// A field for text with fonts, sizes and colours.
class RichTextBox : public QTextEdit, public RichText {
    Q_OBJECT

public:
    explicit RichTextBox(QWidget* parent = nullptr);

    /// Shows a file of the Rich Text Format, else of plain text, by program path. On a failure the
    /// old text stays, but of a damaged file what could be read is shown.
    void LoadFile(const QString& path);

    QString Text() const override;
    void SetTargetDevice(QPaintDevice& device, int lineWidth) override;
    qsizetype Format(const FormatRange& range) override;
    void ReleaseFormat() override;

private:
    void LoadPlainText(const QByteArray& utf8);

    QTextOption m_plainOption; ///< RTF brings its own distance of tabs
    DocumentFormatter m_formatter;
};

} // namespace platform
