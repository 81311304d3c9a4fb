// SPDX-License-Identifier: GPL-3.0-or-later
// An RTF file of any bytes becomes a document that can be laid out, with little more text than it
// has bytes; what doesn't begin as RTF leaves the document alone.
#include "platform/rtf/RtfReader.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QTextDocument>
#include <cstdlib>

// The library that looks for fonts keeps what it found.
extern "C" const char* __lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier)
    return "leak:libfontconfig";
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = 1;
    static char name[] = "rtf_fuzz";
    static char* arguments[] = {name, nullptr};
    static const QGuiApplication application(count, arguments);
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    QTextDocument document(QStringLiteral("antes"));
    const auto result = platform::ReadRtf(bytes, document);
    const QString text = document.toPlainText();
    if ((result == platform::RtfResult::NotRtf && text != QStringLiteral("antes")) ||
        text.size() > bytes.size() + 8)
        std::abort();
    if (size % 4 == 0) { // slow
        document.setPageSize({500, 700});
        document.documentLayout()->documentSize();
    }
    return 0;
}
