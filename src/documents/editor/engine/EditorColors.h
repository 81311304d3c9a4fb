// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <array>

namespace documents {

class ScriptEditor;

/// The colours of the editor: those that SetItemColor was given and, for the other items, the
/// defaults of the light or the dark set. In the dark one only the defaults count.
class EditorColors {
public:
    EditorColors() { m_chosen.fill(-1); }

    /// `color` is 0x00BBGGRR, or -1 for the default of the item.
    void Set(int item, int color) { m_chosen.at(static_cast<size_t>(item)) = color; }
    void Dark(bool dark) { m_dark = dark; }
    bool Dark() const { return m_dark; }
    /// Gives them to the engine. The font of STYLE_DEFAULT goes to all styles.
    void Apply(ScriptEditor& editor) const;

private:
    std::array<int, 31> m_chosen{};
    bool m_dark = false;
};

} // namespace documents
