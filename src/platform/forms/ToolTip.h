// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace platform {

/// A tool tip that shows the text as it is, whatever marks it holds.
inline QString ToolTipText(const QString& text) {
    return text.isEmpty()
               ? text
               : QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped());
}

} // namespace platform
