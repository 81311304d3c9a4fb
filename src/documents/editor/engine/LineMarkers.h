// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <vector>

namespace documents {

class ScriptEditor;

/// The markers of some lines, which would gather on the first one when those are replaced by as
/// many others.
class LineMarkers {
public:
    LineMarkers(ScriptEditor& editor, qsizetype first, qsizetype last);
    void PutBack() const;

private:
    struct Line {
        qsizetype number;
        long markers; // a bit for each
    };

    ScriptEditor& m_editor;
    qsizetype m_first;
    std::vector<Line> m_lines;
};

} // namespace documents
