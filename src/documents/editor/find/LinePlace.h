// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace documents {

/// A place in a text that somebody asks for by numbers. Both are counted from 0.
struct LinePlace {
    qsizetype line = 0;
    qsizetype column = 0; ///< in characters; may lie behind the line's end
};

struct ReadPlace {
    LinePlace place;
    QString fault; ///< in Spanish; the place has no meaning then
};

/// Reads "12", "12:8" (line and column), "+5" or "-5" (lines on or back). A line that isn't there
/// becomes the first or the last one.
ReadPlace ReadLinePlace(const QString& text, qsizetype currentLine, qsizetype lines);

} // namespace documents
