// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/RichText.h"

#include <QTextDocument>
#include <memory>

namespace platform {

/// Lays a copy of a document out for a printer and renders it piece by piece. The time of a piece
/// doesn't depend on what comes before it.
class DocumentFormatter {
public:
    /// Nothing is done if the layout at hand is one of this document for such a device and width.
    void LayOut(const QTextDocument& document, QPaintDevice& device, double lineWidth);
    /// As RichText::Format. The device must be one that the text was laid out for.
    qsizetype Render(const FormatRange& range) const;
    void Release();

private:
    std::unique_ptr<QTextDocument> m_copy;
    int m_revision = 0; ///< of the document when it was copied
    int m_width = 0;    ///< pixels
    QSize m_resolution;
};

} // namespace platform
