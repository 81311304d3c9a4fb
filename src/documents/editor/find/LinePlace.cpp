// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/find/LinePlace.h"

#include <QRegularExpression>
#include <algorithm>
#include <limits>

namespace documents {
namespace {

// Of digits only; one that is too large is the largest.
qsizetype Number(const QString& digits) {
    bool ok = false;
    const qlonglong number = digits.toLongLong(&ok);
    return ok ? std::min<qlonglong>(number, std::numeric_limits<int>::max())
              : std::numeric_limits<int>::max();
}

} // namespace

ReadPlace ReadLinePlace(const QString& text, qsizetype currentLine, qsizetype lines) {
    static const QRegularExpression form(
        QStringLiteral("^\\s*([+-]?)\\s*([0-9]+)\\s*(?::\\s*([0-9]+)\\s*)?$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return {{}, QStringLiteral("Escribe una línea, como 12, +5, -5 o 12:8")};
    qsizetype line = Number(match.captured(2));
    if (match.captured(1).isEmpty())
        --line;
    else
        line = currentLine + (match.captured(1) == u'+' ? line : -line);
    const qsizetype column = match.captured(3).isEmpty() ? 1 : Number(match.captured(3));
    return {{std::clamp<qsizetype>(line, 0, lines - 1), std::max<qsizetype>(column - 1, 0)}, {}};
}

} // namespace documents
