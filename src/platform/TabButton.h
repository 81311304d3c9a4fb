// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QToolButton>

namespace platform {

/// One tab of an SSTab.
class TabButton : public QToolButton {
    Q_OBJECT

public:
    TabButton(const QString& caption, QWidget* parent);

    /// Lets screen readers speak of these buttons as tabs, from now on.
    static void SpeakAsTab();

private:
    void Mark(bool inFront);
};

} // namespace platform
