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

    /// Shows an RTF file, else a plain text file, by program path. On a failure the old text stays,
    /// but a damaged file is shown as far as it could be read.
    void LoadFile(const QString& path);

    QString Text() const override;
    void SetTargetDevice(QPaintDevice& device, int lineWidth) override;
    qsizetype Format(const FormatRange& range) override;
    void ReleaseFormat() override;

private:
    void LoadPlainText(const QByteArray& utf8);

    QTextOption m_plainOption; ///< for plain text; RTF has its own tab stops
    DocumentFormatter m_formatter;
};

} // namespace platform
