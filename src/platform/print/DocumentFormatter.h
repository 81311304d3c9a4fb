// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/print/RichText.h"

#include <QTextDocument>
#include <memory>
#include <optional>
#include <vector>

namespace platform {

/// Lays a document out for a printer and renders it page by page. A copy of some paragraphs at a
/// time is laid out: QTextDocument's layout counts pixels in QFixed, which some thousand pages
/// overflow. The time of a page doesn't depend on what comes before it.
class DocumentFormatter {
public:
    /// Sets what Render uses; document and device must live until Release. Keeps the last layout if
    /// document, resolution and width are the same. `lineWidth` is in twips.
    void LayOut(const QTextDocument& document, QPaintDevice& device, double lineWidth);
    /// As RichText::Format. The device of the range must have the resolution given to LayOut.
    qsizetype Render(const FormatRange& range);
    void Release();

private:
    class Lines;

    void TakePiece(qsizetype first, int blocks);
    std::optional<qsizetype> PageFrom(qsizetype first, qsizetype end, double height,
                                      std::vector<Lines>& page) const;

    const QTextDocument* m_document = nullptr;
    QPaintDevice* m_device = nullptr;
    std::unique_ptr<QTextDocument> m_piece;
    qsizetype m_start = 0; ///< of the piece in the document
    qsizetype m_end = 0;
    int m_revision = 0; ///< of the document when it was copied
    int m_width = 0;    ///< pixels
    QSize m_resolution;
};

} // namespace platform
