// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QToolButton>

namespace platform {

/// One tab of an SSTab.
class TabButton : public QToolButton {
    Q_OBJECT

public:
    TabButton(const QString& caption, QWidget* parent);

    QSize minimumSizeHint() const override { return sizeHint(); } // a caption is never cut off

private:
    void Mark(bool inFront);
};

/// What holds them.
class TabList : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;
};

/// Lets screen readers speak of these as tabs, from now on.
void SpeakAsTabs();

} // namespace platform
